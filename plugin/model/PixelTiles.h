#pragma once

#include <QByteArray>
#include <QImage>

#include <memory>
#include <vector>

/// A canvas in small squares, each compressed by itself. Squares that are equal, of canvases in whichever format, are
/// in memory once: the drawings before and after a stroke take little more than the stroke. For memory only, not for
/// files. May be made and read on any thread.
class PixelTiles {
public:
    /// Makes what all tiles share, so that it outlives statics made later whose threads make tiles.
    static void prepare();
    PixelTiles() = default;                      ///< of nothing
    static PixelTiles of(const QImage& canvas);  ///< of nothing unless the image is mixable
    bool isEmpty() const { return m_tiles.empty(); }
    QImage image() const;  ///< the canvas, byte for byte, in the same format; null when of nothing
    /// The same. similar: one that may have squares in common with it, which are then copied. Its tiles, if there are
    /// some, tell which; otherwise that has to be found out.
    QImage image(const QImage& similar, const PixelTiles& tilesOfSimilar) const;

    struct Tile {
        QByteArray hash;  ///< of its pixels
        QByteArray compressed;
    };

private:
    std::vector<std::shared_ptr<const Tile>> m_tiles;  // row by row
    QImage::Format m_format = QImage::Format_Invalid;
};
