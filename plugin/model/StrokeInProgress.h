#pragma once

#include "model/ActiveStroke.h"
#include "model/Layer.h"

#include <QImage>
#include <QPainter>

#include <memory>

/// A stroke or transform from its first point to its end: the record, what it is drawn on, and its working images.
class StrokeInProgress {
public:
    StrokeInProgress();

    /// What the stroke is drawn on, by value: it may be moved or removed meanwhile.
    struct Target {
        QString camera;
        quint64 layerId;
        bool hasFrame;  ///< false: whatever frame the layer shows
        int frameNumber;
    };

    ActiveStroke* record() const { return m_record.get(); }  ///< null when nothing is in progress
    const Target& target() const { return m_target; }        ///< meaningful while there is a record

    void begin(const Target& target, const QImage& canvas);  ///< canvas: what is drawn into, RGBA8888
    void end();                                              ///< forgets the record; what was cut stays

    /// Brings the working images up to date with the record: draws the newest points, renders the shape, takes the
    /// region. base: the drawing beneath.
    void advance(const QImage& base);
    /// The box of what may look different since this was asked last.
    QRect takeTouched();
    /// Draws an area of base with the stroke or transform on it, as it is seen before it is committed. What a transform
    /// floats is drawn whole.
    void paint(QPainter& painter, const QImage& base, const QRect& area) const;
    /// The drawing that a commit leaves behind: a canvas.
    QImage committed(const QImage& base);

private:
    void takeRegion(const QImage& base);

    std::unique_ptr<ActiveStroke> m_record;
    Target m_target;
    int m_lastRasterised = 0;  // index of the last point that is drawn
    bool m_regionTaken = false;
    QRect m_touched;
    QImage m_canvas;
    QImage m_selection;  // what floats in a transform
    QImage m_cut;        // what pasting brings back
};
