#include "model/PackedPixels.h"

#include "model/PngCodec.h"

PackedPixels PackedPixels::asPng(const QImage& image)
{
    PackedPixels packed;
    packed.png = encodePng(image);
    return packed;
}

PackedPixels PackedPixels::quick(const QImage& image)
{
    PackedPixels packed;
    packed.tiles = PixelTiles::of(image);
    return packed.isEmpty() ? asPng(image) : packed;
}

QImage PackedPixels::unpacked(const QImage& similar, const PixelTiles& tilesOfSimilar) const
{
    return tiles.isEmpty() ? decodePng(png) : tiles.image(similar, tilesOfSimilar);
}

void PackedPixels::add(const PackedPixels& other)
{
    if (png.isEmpty()) {
        png = other.png;
    }
    if (tiles.isEmpty()) {
        tiles = other.tiles;
    }
}
