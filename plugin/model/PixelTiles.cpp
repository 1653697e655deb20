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

using Tile = std::shared_ptr<const QByteArray>;

/// The compressed tiles that are in use, by the hash of what they hold.
class TileStore {
public:
    Tile find(const QByteArray& hash)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_tiles.value(hash).lock();
    }

    Tile insert(const QByteArray& hash, const QByteArray& compressed)
    {
        const Tile tile = std::make_shared<const QByteArray>(compressed);
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_tiles.size() >= m_sweepAt) {
            sweep();
        }
        m_tiles.insert(hash, tile);
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
    QHash<QByteArray, std::weak_ptr<const QByteArray>> m_tiles;
    int m_sweepAt = kTiles;
};

TileStore& store()
{
    static TileStore tiles;
    return tiles;
}

int left(int tile)
{
    return tile % kTilesInRow * kRowBytes;  // in bytes
}

int top(int tile)
{
    return tile / kTilesInRow * kSide;
}

QByteArray cutOut(const QImage& canvas, int tile)
{
    QByteArray bytes(kTileBytes, Qt::Uninitialized);
    for (int y = 0; y < kSide; ++y) {
        std::memcpy(bytes.data() + y * kRowBytes, canvas.constScanLine(top(tile) + y) + left(tile), kRowBytes);
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
    return qCompress(bytes, kLevel);
}

void putIn(uchar* canvas, int stride, int tile, const QByteArray& compressed)
{
    QByteArray bytes = qUncompress(compressed);
    uchar* const rows = reinterpret_cast<uchar*>(bytes.data());
    for (int i = kRowBytes; i < bytes.size(); ++i) {
        rows[i] = static_cast<uchar>(rows[i] + rows[i - kRowBytes]);
    }
    for (int y = 0; y < kSide && (y + 1) * kRowBytes <= bytes.size(); ++y) {
        std::memcpy(canvas + (top(tile) + y) * stride + left(tile), rows + y * kRowBytes, kRowBytes);
    }
}

}  // namespace

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
        const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
        const Tile known = store().find(hash);
        made.m_tiles.push_back(known ? known : store().insert(hash, compressed(bytes)));
    }
    return made;
}

QImage PixelTiles::image() const
{
    if (isEmpty()) {
        return QImage();
    }
    QImage canvas(kCanvasSize, kCanvasSize, m_format);
    uchar* const bits = canvas.bits();
    const int stride = canvas.bytesPerLine();
    forRowBands([&](int first, int end) {
        for (int i = first / kSide * kTilesInRow; i < end / kSide * kTilesInRow; ++i) {
            putIn(bits, stride, i, *m_tiles[static_cast<size_t>(i)]);
        }
    });
    return canvas;
}
