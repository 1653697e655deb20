#include "model/PaintedBelow.h"

#include "model/Canvas.h"
#include "model/DrawingPainter.h"
#include "model/InkMap.h"

namespace {

constexpr int kTileSide = 32;
constexpr int kBands = kCanvasSize / kTileSide;
constexpr int kColumnsOfATile = kTileSide / InkMap::kColumnWidth;
constexpr quint64 kTileColumns = (quint64(1) << kColumnsOfATile) - 1;

/// The columns of all the tiles of a band of rows that an ink map has columns in.
quint64 tilesIn(const InkMap& map, int band)
{
    quint64 columns = 0;
    for (int y = band * kTileSide; y < (band + 1) * kTileSide; ++y) {
        columns |= map.row(y);
    }
    quint64 tiles = 0;
    for (quint64 tile = kTileColumns; tile != 0; tile <<= kColumnsOfATile) {
        tiles |= columns & tile ? tile : 0;
    }
    return tiles;
}

}  // namespace

const QImage& PaintedBelow::image(const InkMap& columns, const std::vector<quint64>& madeOf, const Paint& paint)
{
    if (m_image.isNull()) {
        m_image = blankCanvas();
    }
    if (madeOf != m_madeOf || m_painted.empty()) {
        m_madeOf = madeOf;
        m_painted.assign(kBands, 0);
    }
    paintTiles(columns, paint);
    return m_image;
}

void PaintedBelow::paintTiles(const InkMap& columns, const Paint& paint)
{
    const RowSpan rows = columns.rows();
    for (int band = rows.first / kTileSide; band * kTileSide < rows.end; ++band) {
        quint64& painted = m_painted[static_cast<size_t>(band)];
        const quint64 wanted = tilesIn(columns, band);
        paintColumns(band, wanted & ~painted, paint);
        painted |= wanted;
    }
}

// Whole columns: see paintableArea.
void PaintedBelow::paintColumns(int band, quint64 columns, const Paint& paint)
{
    forInkSpans(columns, [&](int left, int end) {
        const QRect area(left, band * kTileSide, end - left, kTileSide);
        clearRect(m_image, area);
        QPainter painter(&m_image);
        prepareDrawingPainter(painter);
        paint(painter, area);
    });
}
