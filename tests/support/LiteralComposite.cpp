#include "support/LiteralComposite.h"

#include "model/ShapeRaster.h"
#include "settings/Preferences.h"
#include "support/LiteralRaster.h"

#include <QBuffer>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int kSide = 1024;
constexpr float kStrongestGhostOpacity = 0.4f;

QImage transparentImage()
{
    QImage image(kSide, kSide, QImage::Format_RGBA8888);
    image.fill(Qt::transparent);
    return image;
}

// A picture from a file may have any size and format; what is missing of a canvas is transparent.
QImage canvasOf(const QImage& image)
{
    if (image.isNull()) {
        return transparentImage();
    }
    const QImage converted = image.convertToFormat(QImage::Format_RGBA8888);
    return converted.size() == QSize(kSide, kSide) ? converted : converted.copy(0, 0, kSide, kSide);
}

QImage filledWith(const QColor& colour)
{
    QImage image(kSide, kSide, QImage::Format_RGBA8888);
    for (int y = 0; y < kSide; ++y) {
        uchar* pixel = image.scanLine(y);
        for (int x = 0; x < kSide; ++x, pixel += 4) {
            pixel[0] = static_cast<uchar>(colour.red());
            pixel[1] = static_cast<uchar>(colour.green());
            pixel[2] = static_cast<uchar>(colour.blue());
            pixel[3] = 0;
        }
    }
    return image;
}

void openPainter(QPainter& painter, QImage& image)
{
    painter.begin(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::HighQualityAntialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

// What a layer shows that many keys from its current frame; null when it is hidden or has none there.
QImage shownAt(const Layer& layer, int offset)
{
    Frame* frame = layer.isVisible() ? layer.frameAt(layer.currentFrameIndex() + offset) : nullptr;
    return frame ? frame->image() : QImage();
}

// The ghosts of one side, farthest first. direction: -1 earlier, +1 later.
void drawGhosts(QImage& image, const Layer& layer, int count, int direction)
{
    QPainter painter;
    openPainter(painter, image);
    const float step = kStrongestGhostOpacity / static_cast<float>(count);
    for (int k = count; k >= 1; --k) {
        const QImage ghost = shownAt(layer, direction * k);
        if (!ghost.isNull()) {
            painter.setOpacity(static_cast<double>(kStrongestGhostOpacity - static_cast<float>(k) * step + step));
            painter.drawImage(0, 0, ghost);
        }
    }
}

QByteArray encoded(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

}  // namespace

LiteralCompositor::LiteralCompositor()
    : m_image(transparentImage()), m_previousGhosts(transparentImage()), m_ghosts(transparentImage())
{}

void LiteralCompositor::beginStroke(const LayerManager& drawing, const QString& camera, bool blank)
{
    const ActiveStroke& record = *drawing.stroke(camera);
    const Layer& layer = *drawing.activeLayer(camera);
    Frame* frame = layer.currentFrame();
    m_target = {layer.id(), frame != nullptr, frame ? frame->frameNumber() : 0};
    m_lastRasterised = 0;
    m_regionTaken = false;
    m_selection = QImage();
    if (blank) {
        m_stroke = transparentImage();
    } else if (record.tool == ToolType::Eraser) {
        m_stroke = canvasOf(frame->image());
    } else {
        m_stroke = filledWith(record.colour);
    }
}

const QImage& LiteralCompositor::compose(const LayerManager& drawing, const QString& camera, bool playing)
{
    if (!drawing.needsRedraw(camera)) {
        return m_image;
    }
    const Preferences& preferences = Preferences::instance();
    const ActiveStroke* record = drawing.stroke(camera);
    const Layer* active = drawing.activeLayer(camera);
    const bool ghosting = active && !(playing && preferences.disableGhostingDuringPlayback());
    if (ghosting && (!record || record->points.isEmpty())) {
        rebuildGhosts(*active);
    }
    m_showsGhosts = ghosting && (preferences.ghostPrev() || preferences.ghostNext());
    const Layer* target = record ? targetLayer(drawing, camera) : nullptr;
    if (target && isTargetThere(*target)) {
        Frame* frame = targetFrame(*target);
        advanceStroke(*record, frame ? frame->image() : QImage());
    }
    paint(m_image, drawing, camera, m_ghosts);
    return m_image;
}

QImage LiteralCompositor::repainted(const LayerManager& drawing, const QString& camera, const QImage& ghosts) const
{
    QImage picture = transparentImage();
    paint(picture, drawing, camera, ghosts);
    return picture;
}

void LiteralCompositor::paint(QImage& picture, const LayerManager& drawing, const QString& camera,
                              const QImage& ghosts) const
{
    const ActiveStroke* record = drawing.stroke(camera);
    const Layer* target = record ? targetLayer(drawing, camera) : nullptr;
    picture.fill(Qt::transparent);
    QPainter painter;
    openPainter(painter, picture);
    if (m_showsGhosts) {
        painter.drawImage(0, 0, ghosts);
    }
    for (int i = 0; i < drawing.layerCount(camera); ++i) {
        const Layer& layer = *drawing.layer(camera, i);
        if (&layer != target || !isTargetThere(layer)) {
            painter.drawImage(0, 0, shownAt(layer, 0));
        } else if (layer.isVisible()) {
            Frame* frame = targetFrame(layer);
            paintStroke(painter, *record, frame ? frame->image() : QImage());
        }
    }
}

std::optional<LiteralCompositor::Commit> LiteralCompositor::commit(const LayerManager& drawing, const QString& camera)
{
    const ActiveStroke* record = drawing.stroke(camera);
    const Layer* layer = record ? targetLayer(drawing, camera) : nullptr;
    Frame* frame = layer ? targetFrame(*layer) : nullptr;
    if (!frame) {
        return std::nullopt;
    }
    const QByteArray undo = encoded(frame->image());
    const QImage base = canvasOf(frame->image());
    advanceStroke(*record, base);
    if (record->tool == ToolType::Eraser) {
        return Commit{m_stroke, undo};
    }
    const bool transforming = record->tool == ToolType::Transform;
    if (transforming && !m_regionTaken) {
        return Commit{base, undo};
    }
    if (record->tool == ToolType::Text) {
        renderShape(m_stroke, *record, false);
    }
    QImage result = (transforming ? m_stroke : base).copy();
    QPainter painter;
    openPainter(painter, result);
    if (!transforming) {
        painter.drawImage(0, 0, m_stroke);
    } else if (!m_selection.isNull()) {
        literalTransform(painter, *record, m_selection);
    }
    painter.end();
    return Commit{result, undo};
}

const Layer* LiteralCompositor::targetLayer(const LayerManager& drawing, const QString& camera) const
{
    for (int i = 0; i < drawing.layerCount(camera); ++i) {
        if (drawing.layer(camera, i)->id() == m_target.layerId) {
            return drawing.layer(camera, i);
        }
    }
    return nullptr;
}

Frame* LiteralCompositor::targetFrame(const Layer& layer) const
{
    return m_target.hasFrame ? layer.frameNumbered(m_target.frameNumber) : layer.currentFrame();
}

// With earlier ghosts off their image stays as it was last made, and is still placed behind the later ones.
void LiteralCompositor::rebuildGhosts(const Layer& active)
{
    const Preferences& preferences = Preferences::instance();
    if (preferences.ghostPrev() && preferences.ghostPrevCount() >= 1) {
        m_previousGhosts.fill(Qt::transparent);
        drawGhosts(m_previousGhosts, active, preferences.ghostPrevCount(), -1);
        if (preferences.ghostColorOverride()) {
            literalTint(m_previousGhosts, preferences.ghostColorOverridePrev());
        }
    }
    if (!preferences.ghostPrev() && !preferences.ghostNext()) {
        return;
    }
    m_ghosts.fill(Qt::transparent);
    if (preferences.ghostNext() && preferences.ghostNextCount() >= 1) {
        drawGhosts(m_ghosts, active, preferences.ghostNextCount(), +1);
        if (preferences.ghostColorOverride()) {
            literalTint(m_ghosts, preferences.ghostColorOverrideNext());
        }
    }
    QPainter painter;
    openPainter(painter, m_ghosts);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    painter.drawImage(0, 0, m_previousGhosts);
}

void LiteralCompositor::advanceStroke(const ActiveStroke& record, const QImage& base)
{
    if (isFreehand(record.tool)) {
        literalStroke(m_stroke, record.points, m_lastRasterised, record.tool);
        m_lastRasterised = std::max(record.points.size() - 1, 0);
    } else if (record.tool != ToolType::Transform) {
        renderShape(m_stroke, record, true);
    } else if (record.takeRegion && record.region.isValid()) {
        takeRegion(record, base);
    }
}

void LiteralCompositor::takeRegion(const ActiveStroke& record, const QImage& base)
{
    m_regionTaken = true;
    m_stroke = canvasOf(base);
    m_selection = record.clearOnly ? QImage() : m_stroke.copy(record.region);
    if (record.keepCut) {
        m_cut = m_stroke.copy(record.region);
    }
    if (record.pasteAsIs) {
        m_selection = m_cut;
    } else if (record.clearOnly || !record.keepCut) {
        const QRect inside = record.region & m_stroke.rect();
        for (int x = inside.left(); x <= inside.right(); ++x) {
            for (int y = inside.top(); y <= inside.bottom(); ++y) {
                m_stroke.setPixelColor(x, y, Qt::transparent);
            }
        }
    }
}

void LiteralCompositor::paintStroke(QPainter& painter, const ActiveStroke& record, const QImage& base) const
{
    if (record.tool == ToolType::Transform) {
        if (!record.region.isValid()) {
            return;
        }
        painter.drawImage(0, 0, m_stroke);
        if (!m_selection.isNull()) {
            literalTransform(painter, record, m_selection);
        }
        return;
    }
    if (record.tool != ToolType::Eraser) {
        painter.drawImage(0, 0, base);
    }
    painter.drawImage(0, 0, m_stroke);
}

void literalTransform(QPainter& painter, const ActiveStroke& record, const QImage& image)
{
    const QRect& region = record.region;
    if (record.pasteAsIs) {
        painter.drawImage(region.topLeft() + record.translation, image);
        return;
    }
    QMatrix matrix;
    matrix.rotate(static_cast<double>(record.angle));
    matrix.scale(record.scaleX, record.scaleY);
    const QImage made = image.transformed(matrix, Qt::SmoothTransformation);
    const QPoint centre(region.left() + region.width() / 2, region.top() + region.height() / 2);
    painter.drawImage(record.translation + centre - QPoint(made.width() / 2, made.height() / 2), made);
}

void literalTint(QImage& image, const QColor& colour)
{
    const uchar red = static_cast<uchar>(colour.red());
    const uchar green = static_cast<uchar>(colour.green());
    const uchar blue = static_cast<uchar>(colour.blue());
    uchar* pixels = image.bits();
    const int count = image.width() * image.height();
    for (int i = 0; i < count; ++i) {
        if (pixels[4 * i + 3] != 0) {
            pixels[4 * i] = red;
            pixels[4 * i + 1] = green;
            pixels[4 * i + 2] = blue;
        }
    }
}
