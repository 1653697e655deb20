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
    PixelTiles() = default;                      ///< of nothing
    static PixelTiles of(const QImage& canvas);  ///< of nothing unless the image is mixable
    bool isEmpty() const { return m_tiles.empty(); }
    QImage image() const;  ///< pixel for pixel, in the same format; null when of nothing

private:
    using Tile = std::shared_ptr<const QByteArray>;
    std::vector<Tile> m_tiles;  // row by row
    QImage::Format m_format = QImage::Format_Invalid;
};
