#include "model/Picture.h"
#include "model/Canvas.h"
#include "model/CpuFeatures.h"
#include "model/InkedImage.h"
#include "model/PngCodec.h"
#include "model/RowBands.h"
#include "model/RowLoops.h"
#include "support/Drawings.h"

#include <gtest/gtest.h>

#include <atomic>
#include <new>
#include <random>
#include <thread>

namespace {

TEST(Picture, CopiesShareWhatIsDecodedAndEncoded)
{
    const Picture packed = Picture::fromPng(encodePng(pixels::marked(3)));
    const Picture other = packed;
    EXPECT_FALSE(other.isUnpacked());
    EXPECT_TRUE(pixels::same(packed.image(), pixels::marked(3)));
    EXPECT_TRUE(other.isUnpacked());

    const Picture drawn(pixels::marked(4));
    const QByteArray png = Picture(drawn).png();
    EXPECT_EQ(drawn.png().constData(), png.constData()) << "encoded once";
    EXPECT_NE(drawn.id(), packed.id());
}

TEST(Picture, PackingOneLeavesThePixelsToTheOthers)
{
    Picture drawn(pixels::marked(4));
    const Picture other = drawn;
    drawn.pack();
    EXPECT_FALSE(drawn.isUnpacked());
    EXPECT_TRUE(other.isUnpacked());
    EXPECT_EQ(drawn.id(), other.id());
    EXPECT_TRUE(pixels::same(drawn.image(), pixels::marked(4)));

    Picture empty = Picture::emptyCanvas();
    empty.pack();
    EXPECT_TRUE(Picture::emptyCanvas().isUnpacked());
    EXPECT_EQ(empty.image().size(), QSize(kCanvasSize, kCanvasSize));
}

TEST(Picture, BrokenAndAbsentOnesHaveNoPixels)
{
    const Picture broken = Picture::fromPng("no picture");
    EXPECT_TRUE(broken.image().isNull());
    EXPECT_TRUE(broken.ink().isEmpty());
    EXPECT_TRUE(Picture::fromPng(QByteArray()).isBlank());
    EXPECT_TRUE(Picture(QImage()).isBlank());
    EXPECT_EQ(Picture().id(), 0u);
    EXPECT_TRUE(Picture().png().isEmpty());
}

// Every inked pixel lies in a marked column, and no column is marked that has no ink, in whatever format it comes.
TEST(InkMap, MarksTheColumnsThatHaveInk)
{
    QImage image = blankCanvas();
    for (const QPoint& p : {QPoint(0, 0), QPoint(31, 5), QPoint(32, 5), QPoint(1023, 5), QPoint(500, 1023)}) {
        image.setPixelColor(p, QColor(1, 2, 3, 1));
    }
    for (const QImage::Format format : {QImage::Format_RGBA8888, QImage::Format_ARGB32, QImage::Format_RGBA64}) {
        const InkMap ink = Picture(image.convertToFormat(format)).ink();
        EXPECT_EQ(ink.row(0), 1u);
        EXPECT_EQ(ink.row(5), 0x8000000000000006u);
        EXPECT_EQ(ink.row(1023), quint64(1) << 31);
        EXPECT_EQ(ink.row(6), 0u);
        EXPECT_EQ(ink.box(), QRect(0, 0, 1024, 1024));
    }
    EXPECT_EQ(Picture(QImage(40, 40, QImage::Format_RGB32)).ink().box(), QRect(0, 0, 48, 40));
}

TEST(InkMap, TakesAreasThatReachBeyondTheCanvas)
{
    InkMap map;
    for (const QRect& nothing : {QRect(), QRect(2000, 5, 10, 10), QRect(-50, -50, 50, 50)}) {
        map.add(nothing);
        EXPECT_TRUE(map.isEmpty());
    }
    map.add(QRect(-10, -10, 11, 12));
    EXPECT_EQ(map.box(), QRect(0, 0, 16, 2));
    map.add(QRect(1000, 1000, 500, 500));
    EXPECT_EQ(map.row(1023), 0xc000000000000000u);
    QList<QPair<int, int>> spans;
    forInkSpans(0x8000000000000007u, [&spans](int left, int end) { spans << qMakePair(left, end); });
    EXPECT_EQ(spans, (QList<QPair<int, int>>{{0, 48}, {1008, 1024}}));
    forInkSpans(~quint64(0), [](int left, int end) { EXPECT_EQ(end - left, 1024); });
}

TEST(RowBands, GiveEachRowToOneThreadOnce)
{
    std::vector<std::atomic<int>> visits(kCanvasSize);
    for (int round = 0; round < 50; ++round) {
        forRowBands([&visits](int first, int end) {
            for (int y = first; y < end; ++y) {
                ++visits[static_cast<size_t>(y)];
            }
        });
    }
    EXPECT_TRUE(std::all_of(visits.begin(), visits.end(), [](const std::atomic<int>& v) { return v == 50; }));
}

TEST(RowBands, MayBeCalledBySeveralAtOnceByThemselvesAndAfterTheirThreadsEnded)
{
    std::atomic<int> rows{0};
    const auto call = [&rows] {
        forRowBands([&rows](int, int) { forRowBands([&rows](int first, int end) { rows += end - first; }); });
    };
    for (int round = 1; round <= 20; ++round) {
        std::thread other(call);
        call();
        other.join();
        stopRowHelpers();
        EXPECT_EQ(rows, round * 2 * 16 * kCanvasSize);
    }
}

TEST(RowBands, PassOnWhatABandThrows)
{
    for (const int thrower : {0, 512, 960}) {
        EXPECT_THROW(forRowBands([thrower](int first, int) {
                         if (first >= thrower) {
                             throw std::bad_alloc();
                         }
                     }),
                     std::bad_alloc);
    }
}

class RowLoopsTest : public testing::Test {
protected:
    RowLoopsTest() : m_random(1) {}

    // All alphas occur, empty and opaque stretches too.
    std::vector<quint32> noise(int count)
    {
        std::vector<quint32> row;
        while (static_cast<int>(row.size()) < count) {
            const int kind = static_cast<int>(m_random() % 4);
            for (int i = 0; i < 20; ++i) {
                const quint32 pixel = m_random();
                row.push_back(kind == 0 ? pixel & 0xffffffu : kind == 1 ? pixel | 0xff000000u : pixel);
            }
        }
        row.resize(static_cast<size_t>(count));
        return row;
    }

    std::mt19937 m_random;
};

TEST_F(RowLoopsTest, GiveTheSameBytesWhicheverProcessorTheyAreCompiledFor)
{
    const RowLoops* avx2 = usesAvx2() ? avx2RowLoops() : nullptr;
    if (!avx2) {
        GTEST_SKIP() << "only the portable loops run here";
    }
    const RowLoops& plain = portableRowLoops();
    for (const int count : {1, 15, 16, 17, 33, 1024}) {
        for (const int opacity : {255, 101, 1, 0}) {
            const std::vector<quint32> source = noise(count);
            const std::vector<quint32> back = noise(count);
            for (const bool swapped : {false, true}) {
                std::vector<quint32> a = back;
                std::vector<quint32> b = back;
                plain.over(a.data(), source.data(), count, swapped, opacity);
                avx2->over(b.data(), source.data(), count, swapped, opacity);
                ASSERT_EQ(a, b) << count << " at " << opacity;
            }
            std::vector<quint32> a = back;
            std::vector<quint32> b = back;
            plain.under(a.data(), source.data(), count);
            avx2->under(b.data(), source.data(), count);
            plain.tint(a.data(), count, 0x112233);
            avx2->tint(b.data(), count, 0x112233);
            ASSERT_EQ(a, b) << count;
        }
    }
    const std::vector<quint32> row = noise(1024);
    EXPECT_EQ(plain.inkColumns(row.data(), 64), avx2->inkColumns(row.data(), 64));
}

}  // namespace
