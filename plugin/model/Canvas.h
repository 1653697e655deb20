#pragma once

#include <QColor>
#include <QImage>

/// Side of every drawing, stroke and composite image, in pixels.
constexpr int kCanvasSize = 1024;

QImage blankCanvas();  ///< kCanvasSize square, RGBA8888, transparent
/// The image as a canvas that may be written by bytes: RGBA8888, cropped or padded with transparency at the right and
/// bottom to the canvas size. A null image gives a blank canvas.
QImage asCanvas(const QImage& image);
/// The same, but shared with nobody, so that writing to it copies nothing more.
QImage ownCanvas(const QImage& image);

/// Whether an image is a canvas already, or one in ARGB32, the format of decoded PNGs: four bytes a pixel, the same but
/// for the places of red and blue.
bool isMixable(const QImage& image);

/// Fills a canvas with a colour at alpha 0. Unlike QImage::fill it keeps red, green and blue.
void fillInvisible(QImage& canvas, const QColor& colour);
void copyRect(QImage& canvas, const QImage& source, const QRect& rect);  ///< rect lies on both canvases
/// Makes the part of the rectangle that lies on the canvas transparent.
void clearRect(QImage& canvas, const QRect& rect);
