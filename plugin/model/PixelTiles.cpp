#include "model/PixelTiles.h"

#include "model/Canvas.h"
#include "model/RowBands.h"

#include <QCryptographicHash>
#include <QHash>

#include <cstring>
#include <mutex>

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

QByteArray cutOut(const QImage& canvas, int place)
{
    QByteArray bytes(kTileBytes, Qt::Uninitialized);
    for (int y = 0; y < kSide; ++y) {
        std::memcpy(bytes.data() + y * kRowBytes, canvas.constScanLine(top(place) + y) + left(place), kRowBytes);
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
    result.squeeze();  // the room it was given for the worst case
    return result;
}

QByteArray uncompressed(const QByteArray& compressed)
{
    QByteArray bytes = qUncompress(compressed);
    uchar* const rows = reinterpret_cast<uchar*>(bytes.data());
    for (int i = kRowBytes; i < bytes.size(); ++i) {
        rows[i] = static_cast<uchar>(rows[i] + rows[i - kRowBytes]);
    }
    return bytes;
}

// Two different tiles with the same hash would be more of an accident than a memory that forgets.
QByteArray hashOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

QByteArray bytesOf(const Tile& tile, int place, const QImage& similar)
{
    const QByteArray other = similar.isNull() ? QByteArray() : cutOut(similar, place);
    return !other.isNull() && hashOf(other) == tile.hash ? other : uncompressed(tile.compressed);
}

void putIn(uchar* canvas, int stride, int place, const QByteArray& bytes)
{
    for (int y = 0; y < kSide && (y + 1) * kRowBytes <= bytes.size(); ++y) {
        std::memcpy(canvas + (top(place) + y) * stride + left(place), bytes.constData() + y * kRowBytes, kRowBytes);
    }
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

QImage PixelTiles::image(const QImage& similar) const
{
    if (isEmpty()) {
        return QImage();
    }
    const QImage source = isMixable(similar) && similar.format() == m_format ? similar : QImage();
    QImage canvas(kCanvasSize, kCanvasSize, m_format);
    uchar* const bits = canvas.bits();
    const int stride = canvas.bytesPerLine();
    forRowBands([&](int first, int end) {
        for (int i = first / kSide * kTilesInRow; i < end / kSide * kTilesInRow; ++i) {
            putIn(bits, stride, i, bytesOf(*m_tiles[static_cast<size_t>(i)], i, source));
        }
    });
    return canvas;
}
