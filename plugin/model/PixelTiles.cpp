#include "model/PixelTiles.h"

#include "model/Canvas.h"
#include "model/CanvasMemory.h"
#include "model/RowBands.h"

#include <QCryptographicHash>
#include <QHash>

#include <cstring>
#include <mutex>
#include <new>

namespace {

constexpr int kSide = 64;  // pixels; as high as a band of rows
constexpr int kTilesInRow = kCanvasSize / kSide;
constexpr int kTiles = kTilesInRow * kTilesInRow;
constexpr int kRowBytes = kSide * 4;
constexpr int kTileBytes = kSide * kRowBytes;
constexpr int kLevel = 3;  // of zlib: painted canvases get hardly smaller above, and take three times as long

using Tile = PixelTiles::Tile;

/// The tiles that are in use, by the hash of what they hold.
class TileStore {
public:
    std::shared_ptr<const Tile> find(const QByteArray& hash)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_tiles.value(hash).lock();
    }

    std::shared_ptr<const Tile> insert(const Tile& made)
    {
        const auto tile = std::make_shared<const Tile>(made);
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_tiles.size() >= m_sweepAt) {
            sweep();
        }
        m_tiles.insert(tile->hash, tile);
        return tile;
    }

private:
    void sweep()
    {
        for (auto next = m_tiles.begin(); next != m_tiles.end();) {
            next = next->expired() ? m_tiles.erase(next) : next + 1;
        }
        m_sweepAt = 2 * m_tiles.size() + kTiles;
    }

    std::mutex m_mutex;
    QHash<QByteArray, std::weak_ptr<const Tile>> m_tiles;
    int m_sweepAt = kTiles;
};

TileStore& store()
{
    static TileStore tiles;
    return tiles;
}

// A tile's place is its number, row by row.
int left(int place)
{
    return place % kTilesInRow * kRowBytes;  // in bytes
}

int top(int place)
{
    return place / kTilesInRow * kSide;
}

// Copies a square of bytes from one canvas to another, or to where there is nothing but the square.
void copySquare(uchar* to, int toStride, const uchar* from, int fromStride)
{
    for (int y = 0; y < kSide; ++y) {
        std::memcpy(to + y * toStride, from + y * fromStride, kRowBytes);
    }
}

// From one of the two formats of canvases to the other.
void swapRedAndBlue(uchar* square)
{
    quint32* const pixels = reinterpret_cast<quint32*>(square);
    for (int i = 0; i < kSide * kSide; ++i) {
        const quint32 pixel = pixels[i];
        pixels[i] = (pixel & 0xff00ff00u) | (pixel & 0xffu) << 16 | (pixel >> 16 & 0xffu);
    }
}

bool isSwapped(QImage::Format format)
{
    return format == QImage::Format_ARGB32;
}

// In RGBA8888, so that equal tiles of canvases in either format are one.
QByteArray cutOut(const QImage& canvas, int place)
{
    QByteArray bytes(kTileBytes, Qt::Uninitialized);
    uchar* const square = reinterpret_cast<uchar*>(bytes.data());
    copySquare(square, kRowBytes, canvas.constScanLine(top(place)) + left(place), canvas.bytesPerLine());
    if (isSwapped(canvas.format())) {
        swapRedAndBlue(square);
    }
    return bytes;
}

// Each byte becomes its difference from the one a row above, as in a PNG's rows of filter "up": soft ink then repeats.
QByteArray compressed(QByteArray bytes)
{
    uchar* const rows = reinterpret_cast<uchar*>(bytes.data());
    for (int i = kTileBytes - 1; i >= kRowBytes; --i) {
        rows[i] = static_cast<uchar>(rows[i] - rows[i - kRowBytes]);
    }
    QByteArray result = qCompress(bytes, kLevel);
    if (result.isEmpty()) {
        throw std::bad_alloc();  // nothing else can go wrong
    }
    result.squeeze();  // the room it was given for the worst case
    return result;
}

QByteArray uncompressed(const QByteArray& compressed)
{
    QByteArray bytes = qUncompress(compressed);
    if (bytes.size() != kTileBytes) {
        throw std::bad_alloc();  // nothing else can go wrong with bytes that never left memory
    }
    uchar* const rows = reinterpret_cast<uchar*>(bytes.data());
    for (int i = kRowBytes; i < kTileBytes; ++i) {
        rows[i] = static_cast<uchar>(rows[i] + rows[i - kRowBytes]);
    }
    return bytes;
}

// Two different tiles with the same hash would be more of an accident than a memory that forgets.
QByteArray hashOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

/// A canvas that another one may have squares in common with; null when there is none.
struct Similar {
    QImage image;
    const std::vector<std::shared_ptr<const Tile>>& tiles;  // none: not known
};

QByteArray bytesOf(const std::shared_ptr<const Tile>& tile, int place, const Similar& similar)
{
    const bool isKnown = !similar.tiles.empty();
    if (!similar.image.isNull() && (!isKnown || similar.tiles[static_cast<size_t>(place)] == tile)) {
        const QByteArray other = cutOut(similar.image, place);
        if (isKnown || hashOf(other) == tile->hash) {
            return other;
        }
    }
    return uncompressed(tile->compressed);
}

}  // namespace

void PixelTiles::prepare()
{
    store();
}

PixelTiles PixelTiles::of(const QImage& canvas)
{
    PixelTiles made;
    if (!isMixable(canvas)) {
        return made;
    }
    made.m_format = canvas.format();
    made.m_tiles.reserve(kTiles);
    for (int i = 0; i < kTiles; ++i) {
        const QByteArray bytes = cutOut(canvas, i);
        const QByteArray hash = hashOf(bytes);
        const std::shared_ptr<const Tile> known = store().find(hash);
        made.m_tiles.push_back(known ? known : store().insert({hash, compressed(bytes)}));
    }
    return made;
}

QImage PixelTiles::image() const
{
    return image(QImage(), PixelTiles());
}

QImage PixelTiles::image(const QImage& similar, const PixelTiles& tilesOfSimilar) const
{
    if (isEmpty()) {
        return QImage();
    }
    const Similar source = {isMixable(similar) ? similar : QImage(), tilesOfSimilar.m_tiles};
    QImage canvas = canvasMemory::take(m_format);
    uchar* const bits = canvas.bits();
    const int stride = canvas.bytesPerLine();
    forRowBands([&](int first, int end) {
        for (int i = first / kSide * kTilesInRow; i < end / kSide * kTilesInRow; ++i) {
            QByteArray bytes = bytesOf(m_tiles[static_cast<size_t>(i)], i, source);
            uchar* const square = reinterpret_cast<uchar*>(bytes.data());
            if (isSwapped(m_format)) {
                swapRedAndBlue(square);
            }
            copySquare(bits + top(i) * stride + left(i), stride, square, kRowBytes);
        }
    });
    return canvas;
}
