#pragma once

#include "model/ActiveStroke.h"
#include "model/FloatingPiece.h"
#include "model/FrameAddress.h"
#include "model/InkedImage.h"
#include "model/Picture.h"

#include <QRect>

#include <memory>

/// A stroke or transform from its first point to its end: the record, what it is drawn on, and its working images.
class StrokeInProgress {
public:
    StrokeInProgress();

    /// What the stroke is drawn on, by value: it may be moved or removed meanwhile.
    struct Target {
        FrameAddress frame;
        bool hasFrame;  ///< false: whatever frame the layer shows
    };

    ActiveStroke* record() const { return m_record.get(); }  ///< null when nothing is in progress
    const Target& target() const { return m_target; }        ///< meaningful while there is a record

    void begin(const Target& target, const InkedImage& canvas);  ///< canvas: what is drawn into, RGBA8888
    void end();                                                  ///< forgets the record; what was cut stays

    /// Brings the working images up to date with the record: draws the newest points, renders the shape, takes the
    /// region. base: the drawing beneath.
    void advance(const Picture& base);
    /// What may look different: of what is drawn anew the columns of its ink, as it was and as it is, else an area.
    struct Touched {
        QRect area;
        InkMap columns;
    };
    Touched takeTouched();  ///< since this was asked last

    // The drawing with the stroke or transform on it, as it is seen before it is committed: base, unless the stroke
    // works on a copy of it, then the canvas.
    bool showsBase() const;
    bool isDrawnAnew() const;  ///< a shape, a text or a transform, with every step; another stroke only grows
    bool showsCanvas() const;  ///< a transform without a region shows nothing
    const InkedImage& canvas() const { return m_canvas; }
    bool holdsCut() const { return !m_cut.size.isEmpty(); }  ///< there is something to paste

    Picture committed(const Picture& base);  ///< the drawing that a commit leaves behind: a canvas

private:
    void startAnew(const Picture& base);
    void drawNewestPoints();
    void advanceTransform(const Picture& base);
    void takeRegion(const Picture& base);
    void layFloating();

    std::unique_ptr<ActiveStroke> m_record;
    Target m_target;
    int m_lastRasterised = 0;  // index of the last point that is drawn
    bool m_regionTaken = false;
    bool m_showsFrame = true;  // a transform that has not been advanced yet
    bool m_showedCanvas = false;
    Touched m_touched;
    InkedImage m_canvas;
    InkedImage m_emptied;  // a transform's canvas without what floats
    FloatingPiece m_floating;
    Cutting m_cut;  // what pasting brings back
};
