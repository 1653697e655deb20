#include "model/Ghosts.h"

#include "settings/Preferences.h"

namespace {

void makeBlank(InkedImage& sheet)
{
    if (sheet.image.isNull()) {
        sheet = blankSheet();
    } else {
        wipe(sheet);
    }
}

// In 255ths, rounded down twice, as painters take the opacity that is set for them.
int paintersOpacity(float opacity)
{
    return 255 * static_cast<int>(opacity * 256.0f) >> 8;
}

// The ghosts on one side, farthest first, so that nearer ones lie over it. direction: -1 earlier, +1 later.
void drawGhosts(InkedImage& sheet, Layer& layer, int count, int direction)
{
    std::vector<Ply> plies;
    const float step = kStrongestGhost / static_cast<float>(count);
    for (int k = count; k >= 1; --k) {
        const Picture ghost = layer.pictureAtOffset(direction * k);
        if (!ghost.isBlank()) {
            plies.push_back(
                {inkedImage(ghost), paintersOpacity(kStrongestGhost - static_cast<float>(k) * step + step)});
        }
    }
    layOver(sheet, plies);
}

void appendNeighbours(std::vector<quint64>& ids, const Layer& layer, int count, int direction)
{
    for (int k = 1; k <= count; ++k) {
        ids.push_back(layer.pictureIdAtOffset(direction * k));
    }
}

}  // namespace

GhostOptions ghostOptions()
{
    const Preferences& preferences = Preferences::instance();
    return {preferences.ghostPrev(),
            preferences.ghostNext(),
            preferences.ghostPrevCount(),
            preferences.ghostNextCount(),
            preferences.ghostColorOverride(),
            preferences.ghostColorOverridePrev(),
            preferences.ghostColorOverrideNext()};
}

// Each side's frames from near to far, preceded by whether and how it is drawn.
std::vector<quint64> GhostImages::ingredients(const Layer& layer, const GhostOptions& options)
{
    std::vector<quint64> all = {layer.id(), options.previous, options.next, options.tinted};
    if (options.tinted) {
        all.push_back(options.previousTint.rgba());
        all.push_back(options.nextTint.rgba());
    }
    if (options.previous) {
        all.push_back(static_cast<quint64>(options.previousCount));
        appendNeighbours(all, layer, options.previousCount, -1);
    }
    if (options.next) {
        all.push_back(static_cast<quint64>(options.nextCount));
        appendNeighbours(all, layer, options.nextCount, +1);
    }
    return all;
}

bool GhostImages::isOutdated(const Layer& layer, const GhostOptions& options) const
{
    return (options.previous || options.next) && ingredients(layer, options) != m_madeOf;
}

void GhostImages::rebuild(Layer& layer, const GhostOptions& options)
{
    if (!isOutdated(layer, options)) {
        return;
    }
    if (options.previous && options.previousCount >= 1) {
        makeBlank(m_previous);
        drawGhosts(m_previous, layer, options.previousCount, -1);
        if (options.tinted) {
            tintImage(m_previous, options.previousTint);
        }
    }
    makeBlank(m_sheet);
    if (options.next && options.nextCount >= 1) {
        drawGhosts(m_sheet, layer, options.nextCount, +1);
        if (options.tinted) {
            tintImage(m_sheet, options.nextTint);
        }
    }
    if (!m_previous.image.isNull()) {
        layUnder(m_sheet, m_previous);
    }
    m_madeOf = ingredients(layer, options);  // reading unpacks blank frames, which gives them a picture
    ++m_revision;
}
