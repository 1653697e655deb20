#pragma once

#include "model/ActiveStroke.h"
#include "model/Layer.h"

#include <QImage>
#include <QPainter>

#include <memory>

/// A stroke or transform from its first point to its end: the record, what it is drawn on, and its working images.
/// What it is drawn on is remembered by value and survives changes around it.
class StrokeInProgress {
public:
    StrokeInProgress();

    /// Where the stroke goes. A transform may begin without a frame (hasFrame false).
    struct Target {
        QString camera;
        quint64 layerId;
        bool hasFrame;
        int frameNumber;
    };

    ActiveStroke* record() const { return m_record.get(); }  ///< null when nothing is in progress
    const Target& target() const { return m_target; }        ///< meaningful while there is a record
    bool isOn(const QString& camera) const { return m_record && m_target.camera == camera; }

    void begin(const Target& target, const QImage& canvas);  ///< canvas: what is drawn into, RGBA8888
    void end();                                              ///< forgets the record; what was cut stays

    /// Brings the working images up to date with the record: draws the newest points, renders the shape, takes the
    /// region. base: the frame that is drawn on.
    void advance(const QImage& base);
    /// Draws base with the stroke or transform on it, as it is seen before the commit.
    void paint(QPainter& painter, const QImage& base) const;
    /// The drawing that a commit leaves behind.
    QImage committed(const QImage& base);

private:
    void takeRegion(const QImage& base);

    std::unique_ptr<ActiveStroke> m_record;
    Target m_target;
    int m_lastRasterised = 0;  // index of the last point that is in m_canvas
    QImage m_canvas;
    QImage m_selection;  // what floats in a transform
    QImage m_cut;        // what pasting brings back; outlives the stroke
};
