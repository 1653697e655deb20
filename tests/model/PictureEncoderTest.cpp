#include "model/PictureEncoder.h"
#include "model/Canvas.h"
#include "model/PictureData.h"
#include "model/PixelTiles.h"
#include "support/HeldEncoder.h"
#include "support/Pixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>

namespace {

std::unique_ptr<Picture::Data> drawn(int mark)
{
    auto picture = std::make_unique<Picture::Data>();
    picture->setPixels(pixels::marked(mark));
    return picture;
}

QImage noise(QImage::Format format)
{
    std::mt19937 random(1);
    QImage image(kCanvasSize, kCanvasSize, format);
    for (int y = 0; y < kCanvasSize; ++y) {
        auto* row = reinterpret_cast<quint32*>(image.scanLine(y));
        std::generate(row, row + kCanvasSize, [&random] { return static_cast<quint32>(random()); });
    }
    return image;
}

bool sameBytes(const QImage& a, const QImage& b)
{
    return a.format() == b.format() && a.byteCount() == b.byteCount()
        && std::equal(a.constBits(), a.constBits() + a.byteCount(), b.constBits());
}

TEST(PixelTiles, GiveEveryByteBack)
{
    QImage invisible(kCanvasSize, kCanvasSize, QImage::Format_RGBA8888);
    fillInvisible(invisible, QColor(1, 2, 3));
    for (const QImage& image : {pixels::marked(3), noise(QImage::Format_ARGB32), invisible}) {
        EXPECT_TRUE(sameBytes(PixelTiles::of(image).image(), image));
        for (const QImage& similar : {pixels::marked(4), image.convertToFormat(QImage::Format_ARGB32),
                                      noise(QImage::Format_RGBA8888), QImage(8, 8, image.format())}) {
            EXPECT_TRUE(sameBytes(PixelTiles::of(image).image(similar, PixelTiles()), image));
            EXPECT_TRUE(sameBytes(PixelTiles::of(image).image(similar, PixelTiles::of(similar)), image));
        }
    }
    EXPECT_TRUE(PixelTiles::of(QImage(40, 40, QImage::Format_RGBA8888)).isEmpty());
    EXPECT_TRUE(PixelTiles().image().isNull());
}

TEST(PictureEncoder, PacksWhatIsStillThereAndWasNotSavedMeanwhile)
{
    PictureEncoder& encoder = PictureEncoder::instance();
    const auto kept = drawn(1);
    const auto saved = drawn(2);
    auto gone = drawn(3);
    {
        HeldEncoder held;
        for (Picture::Data* picture : {kept.get(), saved.get(), gone.get()}) {
            encoder.add(*picture, PackedPixels::quick);
            encoder.add(*picture, PackedPixels::quick);
        }
        EXPECT_EQ(encoder.waiting(), 4) << "each once";
        saved->encoded();
        gone.reset();
        EXPECT_EQ(encoder.waiting(), 2);
    }
    EXPECT_EQ(encoder.waiting(), 0);
    encoder.takeFinished();
    EXPECT_TRUE(sameBytes(kept->shared->packed.tiles.image(), pixels::marked(1)));
    EXPECT_TRUE(saved->shared->packed.tiles.isEmpty());
}

TEST(PictureEncoder, ForgetsAPictureThatGoesWhileItIsPackedOrWhenItIsReady)
{
    PictureEncoder encoder;
    auto ready = drawn(1);
    encoder.add(*ready, PackedPixels::quick);
    encoder.finish();
    encoder.withdraw(*ready);

    auto underWay = drawn(2);
    std::promise<void> taken;
    std::promise<void> letGo;
    encoder.add(*underWay, [&](const QImage& image) {
        taken.set_value();
        letGo.get_future().wait();
        return PackedPixels::quick(image);
    });
    taken.get_future().wait();
    encoder.withdraw(*underWay);
    letGo.set_value();
    encoder.finish();
    EXPECT_TRUE(encoder.takeFinished().empty());
    EXPECT_FALSE(ready->isPacked() || underWay->isPacked());
}

TEST(PictureEncoder, StopsInTheMiddleAndGoesOnWithTheNext)
{
    PictureEncoder encoder;
    const auto first = drawn(1);
    const auto second = drawn(2);
    const auto third = drawn(3);
    encoder.stop();
    std::promise<void> taken;
    encoder.add(*first, [&taken](const QImage& image) {
        taken.set_value();
        return PackedPixels::quick(image);
    });
    encoder.add(*second, PackedPixels::quick);
    taken.get_future().wait();
    encoder.stop();
    EXPECT_LE(encoder.waiting(), 1);
    encoder.add(*third, PackedPixels::quick);
    encoder.finish();
    EXPECT_EQ(encoder.takeFinished().size(), 3u);
    EXPECT_TRUE(sameBytes(third->shared->packed.tiles.image(), pixels::marked(3)));
}

}  // namespace
