#pragma once

#include "model/LayerManager.h"

#include <QImage>

#include <optional>

/// One camera's picture made plainly, to compare the real one with: every refresh clears the picture and paints every
/// image over the whole canvas. It has working images of its own and only looks at the drawing: dirty marks and the
/// stroke record stay as they are.
class LiteralCompositor {
public:
    LiteralCompositor();

    /// Follows the stroke that has just been begun in the drawing; blank: as it was begun.
    void beginStroke(const LayerManager& drawing, const QString& camera, bool blank);

    /// The picture, made anew if the drawing says that something changed. To be asked before the drawing itself, which
    /// then forgets what changed. playing: the host plays back.
    const QImage& compose(const LayerManager& drawing, const QString& camera, bool playing);

    /// The picture painted once more, over the given ghosts instead of its own: those that a stroke is drawn over stay
    /// as they were made before.
    QImage repainted(const LayerManager& drawing, const QString& camera, const QImage& ghosts) const;

    /// What the stroke in progress is drawn into: its ink, or the erased copy of the frame.
    const QImage& strokeImage() const { return m_stroke; }

    struct Commit {
        QImage image;  ///< what the frame becomes
        QByteArray undo;
    };
    /// What committing the stroke would give; nullopt when there is nothing to commit it to.
    std::optional<Commit> commit(const LayerManager& drawing, const QString& camera);

private:
    struct Target {
        quint64 layerId;
        bool hasFrame;  // false: whatever frame the layer shows
        int frameNumber;
    };

    const Layer* targetLayer(const LayerManager& drawing, const QString& camera) const;
    Frame* targetFrame(const Layer& layer) const;
    bool isTargetThere(const Layer& layer) const { return !m_target.hasFrame || targetFrame(layer); }
    void rebuildGhosts(const Layer& active);
    void paint(QImage& picture, const LayerManager& drawing, const QString& camera, const QImage& ghosts) const;
    void advanceStroke(const ActiveStroke& record, const QImage& base);
    void takeRegion(const ActiveStroke& record, const QImage& base);
    void paintStroke(QPainter& painter, const ActiveStroke& record, const QImage& base) const;

    QImage m_image;
    bool m_showsGhosts = false;
    QImage m_previousGhosts;
    QImage m_ghosts;

    Target m_target = {0, false, 0};
    int m_lastRasterised = 0;
    bool m_regionTaken = false;
    QImage m_stroke;
    QImage m_selection;
    QImage m_cut;
};

/// Draws an image flipped, scaled, turned and moved as the record tells, all of it wherever it lands.
void literalTransform(QPainter& painter, const ActiveStroke& record, const QImage& image);

/// Gives every pixel of an RGBA8888 image that is not fully transparent the colour.
void literalTint(QImage& image, const QColor& colour);
