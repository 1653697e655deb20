#include "model/Ghosts.h"

#include "model/Canvas.h"
#include "model/DrawingPainter.h"
#include "settings/Preferences.h"

namespace {

void makeBlank(QImage& image)
{
    if (image.isNull()) {
        image = blankCanvas();
    } else {
        image.fill(Qt::transparent);
    }
}

// The ghosts on one side, farthest first, so that nearer ones lie over it. direction: -1 earlier, +1 later.
void drawGhosts(QImage& image, Layer& layer, int count, int direction)
{
    QPainter painter(&image);
    prepareDrawingPainter(painter);
    const float step = kStrongestGhost / static_cast<float>(count);
    for (int k = count; k >= 1; --k) {
        const QImage& ghost = layer.imageAtOffset(direction * k);
        if (!ghost.isNull()) {
            painter.setOpacity(static_cast<double>(kStrongestGhost - static_cast<float>(k) * step + step));
            painter.drawImage(0, 0, ghost);
        }
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

void GhostImages::rebuild(Layer& layer, const GhostOptions& options)
{
    if (options.previous && options.previousCount >= 1) {
        makeBlank(m_previous);
        drawGhosts(m_previous, layer, options.previousCount, -1);
        if (options.tinted) {
            tintImage(m_previous, options.previousTint);
        }
    }
    if (!options.previous && !options.next) {
        return;
    }
    makeBlank(m_image);
    if (options.next && options.nextCount >= 1) {
        drawGhosts(m_image, layer, options.nextCount, +1);
        if (options.tinted) {
            tintImage(m_image, options.nextTint);
        }
    }
    QPainter painter(&m_image);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    if (!m_previous.isNull()) {
        painter.drawImage(0, 0, m_previous);
    }
}

void tintImage(QImage& image, const QColor& colour)
{
    const uchar red = static_cast<uchar>(colour.red());
    const uchar green = static_cast<uchar>(colour.green());
    const uchar blue = static_cast<uchar>(colour.blue());
    for (int y = 0; y < image.height(); ++y) {
        uchar* pixel = image.scanLine(y);
        const uchar* const end = pixel + image.width() * 4;
        for (; pixel != end; pixel += 4) {
            if (pixel[3] != 0) {
                pixel[0] = red;
                pixel[1] = green;
                pixel[2] = blue;
            }
        }
    }
}
