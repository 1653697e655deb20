#include "model/PackedPixels.h"

#include "model/PngCodec.h"

#include <new>

namespace {

// Packing takes memory for a while: a picture for which there is none stays as it is.
PackedPixels madeOrNothing(const QImage& image, void (*make)(const QImage& image, PackedPixels& packed))
{
    PackedPixels packed;
    try {
        make(image, packed);
    } catch (const std::bad_alloc&) {
    }
    return packed;
}

}  // namespace

PackedPixels PackedPixels::asPng(const QImage& image)
{
    return madeOrNothing(image, [](const QImage& pixels, PackedPixels& packed) { packed.png = encodePng(pixels); });
}

PackedPixels PackedPixels::quick(const QImage& image)
{
    const PackedPixels packed =
        madeOrNothing(image, [](const QImage& pixels, PackedPixels& made) { made.tiles = PixelTiles::of(pixels); });
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
