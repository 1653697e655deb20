#pragma once

#include "model/PixelTiles.h"

#include <QByteArray>
#include <QImage>

/// A picture in a form that takes little memory: the one that files hold, the one that is made quickly, or both.
struct PackedPixels {
    QByteArray png;
    PixelTiles tiles;

    // Both are empty when the image cannot be packed, for want of memory too.
    static PackedPixels asPng(const QImage& image);
    static PackedPixels quick(const QImage& image);  ///< tiles of a canvas, the PNG of any other
    bool isEmpty() const { return png.isEmpty() && tiles.isEmpty(); }
    /// Null when the PNG does not decode. similar: pixels that may have parts in common, which saves time; more of it
    /// when they are packed in tiles as well.
    QImage unpacked(const QImage& similar = QImage(), const PixelTiles& tilesOfSimilar = PixelTiles()) const;
    void add(const PackedPixels& other);  ///< another form of the same picture; what is here already stays
};
