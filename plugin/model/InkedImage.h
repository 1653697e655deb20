#pragma once

#include "model/InkMap.h"

#include <QColor>
#include <QImage>

#include <vector>

class Picture;

/// An image and where its ink is.
struct InkedImage {
    QImage image;  ///< canvas-sized, RGBA8888 or ARGB32
    InkMap ink;
};

/// The same for one that is mixed into others.
struct Ply {
    InkedImage sheet;
    int opacity = 255;  ///< 0..255
};

/// The picture's pixels as an image that may be mixed. What comes in another size or format is converted each time.
InkedImage inkedImage(const Picture& picture);
InkedImage blankSheet();  ///< a canvas without ink

/// Mixing works on canvases in RGBA8888 and changes the inked parts only. Against a painter, which goes over every
/// pixel, nothing but the colour of nearly transparent pixels differs.
void layOver(InkedImage& canvas, const std::vector<Ply>& plies);  ///< one after the other, the first lowest
/// The same in some columns only: those that within has.
void layOver(InkedImage& canvas, const std::vector<Ply>& plies, const InkMap& within);
void copyColumns(QImage& canvas, const QImage& source, const InkMap& columns);
void layUnder(InkedImage& canvas, const InkedImage& sheet);  ///< sheet: RGBA8888
void wipe(InkedImage& canvas);                               ///< makes it blank again
/// Gives every pixel that is not fully transparent the colour; alpha is kept.
void tintImage(InkedImage& canvas, const QColor& colour);
