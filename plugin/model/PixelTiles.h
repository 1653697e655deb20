#pragma once

#include <QByteArray>
#include <QImage>

#include <memory>
#include <vector>

/// A canvas in small squares, each compressed by itself. Squares that are equal, of whichever canvases, are in memory
/// once: the drawings before and after a stroke take little more than the stroke. For memory only, not for files.
/// May be made and read on any thread.
class PixelTiles {
public:
    /// Makes what all tiles share, so that it outlives statics made later whose threads make tiles.
    static void prepare();
    PixelTiles() = default;                      ///< of nothing
    static PixelTiles of(const QImage& canvas);  ///< of nothing unless the image is mixable
    bool isEmpty() const { return m_tiles.empty(); }
    /// The canvas, byte for byte, in the same format; null when of nothing. similar: one that may have squares in
    /// common with it, which are then copied.
    QImage image(const QImage& similar = QImage()) const;

    struct Tile {
        QByteArray hash;  ///< of its pixels
        QByteArray compressed;
    };

private:
    std::vector<std::shared_ptr<const Tile>> m_tiles;  // row by row
    QImage::Format m_format = QImage::Format_Invalid;
};
