#pragma once

#include "model/Cutting.h"
#include "model/TransformMap.h"

/// What floats in a transform, and what is made of it: turned and scaled once for as long as it is only moved. Of a
/// large piece no more is made than lands on the canvas, so that at any scale it takes the memory of a few canvases.
class FloatingPiece {
public:
    void take(const Cutting& cutting);  ///< floats from now on, instead of what did
    void drop();                        ///< nothing floats, and nothing takes memory

    /// What of it lands on the canvas with that record: a canvas, borrowed until the next call. Moved by whole pixels,
    /// flipped and turned by a multiple of 90 degrees its pixels are exact copies.
    const InkedImage& sheet(const ActiveStroke& record);
    const InkMap& ink() const { return m_sheet.ink; }  ///< of the last sheet

private:
    void make(const TransformMap& placed, const QRectF& inked);
    void lay(const TransformMap& placed);

    Cutting m_cutting;
    QImage m_piece;        // null: not made yet
    TransformMap m_shape;  // what it was made with
    QRectF m_part;         // of the piece that was made, from the upper left corner of the shape's box
    InkedImage m_sheet;
    QRect m_laid;  // where on the sheet
};
