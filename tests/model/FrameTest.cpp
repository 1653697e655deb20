#include "model/Canvas.h"
#include "model/FrameNumber.h"
#include "model/PngCodec.h"
#include "support/Drawings.h"
#include "support/PluginFixture.h"

#include <limits>

namespace {

class FrameTest : public PluginFixture {
protected:
    static Frame frameWith(const QImage& image)
    {
        Frame frame(timeOfFrame(4));
        frame.setImage(image);
        return frame;
    }

    static QImage picture(int width, int height, QImage::Format format)
    {
        QImage image(width, height, format);
        image.fill(1);
        return image;
    }
};

TEST_F(FrameTest, GoesFromBlankToUnpackedToPackedAndBack)
{
    Frame frame(timeOfFrame(4));
    EXPECT_TRUE(frame.isBlank());
    frame.pack();
    EXPECT_TRUE(frame.isBlank());

    EXPECT_EQ(frame.image(), blankCanvas());
    EXPECT_TRUE(frame.isUnpacked());
    frame.setImage(pixels::marked(5));
    frame.pack();
    EXPECT_FALSE(frame.isUnpacked());
    EXPECT_FALSE(frame.isBlank());

    EXPECT_TRUE(pixels::same(frame.image(), pixels::marked(5)));
    EXPECT_TRUE(frame.isUnpacked());
}

TEST_F(FrameTest, CopiesArePackedOrBlankAndLeaveTheSourceAsItIs)
{
    Frame unpacked = frameWith(pixels::marked(5));
    Frame copy(unpacked);
    EXPECT_FALSE(copy.isUnpacked());
    EXPECT_TRUE(pixels::same(copy.image(), pixels::marked(5)));
    EXPECT_TRUE(unpacked.isUnpacked());
    EXPECT_EQ(copy.frameNumber(), 4);
    EXPECT_EQ(copy.png().constData(), unpacked.png().constData()) << "encoded once for all copies";

    unpacked.pack();
    EXPECT_EQ(Frame(unpacked).png(), unpacked.png());
    EXPECT_TRUE(Frame(Frame(timeOfFrame(1))).isBlank());
}

TEST_F(FrameTest, UnchangedPixelsKeepTheirBytesAndChangedOnesDoNot)
{
    const QByteArray odd = encodePng(picture(16, 9, QImage::Format_Grayscale8));
    std::unique_ptr<Frame> frame = Frame::fromPng(timeOfFrame(1), odd);
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->image().size(), QSize(16, 9));
    EXPECT_EQ(frame->png(), odd);
    frame->pack();
    EXPECT_EQ(frame->png(), odd);

    frame->image();
    frame->setImage(pixels::marked(2));
    EXPECT_TRUE(pixels::same(decodePng(frame->png()), pixels::marked(2)));
}

TEST_F(FrameTest, APictureThatDoesNotDecodeIsNoFrameAndLeavesAPackedOneBlank)
{
    QByteArray cut = encodePng(pixels::marked(3));
    cut.truncate(cut.size() / 2);
    EXPECT_EQ(Frame::fromPng(timeOfFrame(1), "not a picture"), nullptr);
    EXPECT_EQ(Frame::fromPng(timeOfFrame(1), QByteArray()), nullptr);
    EXPECT_EQ(Frame::fromPng(timeOfFrame(1), cut.left(30)), nullptr);

    Frame packed(timeOfFrame(1));
    packed.setPicture(Picture::fromPng(cut.left(30)));
    EXPECT_TRUE(packed.image().isNull());
    EXPECT_TRUE(packed.isBlank());
}

TEST_F(FrameTest, FrameNumbersTruncateTowardZeroInTheUiUnitAndStayWithin32Bits)
{
    const struct {
        double value;
        int number;
    } cases[] = {{3.0, 3},
                 {3.99, 3},
                 {-3.99, -3},
                 {-0.5, 0},
                 {1e12, std::numeric_limits<int>::max()},
                 {-1e12, std::numeric_limits<int>::min()}};
    for (const auto& c : cases) {
        EXPECT_EQ(frameNumberOf(MTime(c.value, MTime::uiUnit())), c.number) << c.value;
    }
    const MTime second(1.0, MTime::kSeconds);
    EXPECT_EQ(frameNumberOf(second), 24);
    MTime::setUIUnit(MTime::kPALFrame);
    EXPECT_EQ(frameNumberOf(second), 25);
    for (const int number : {-999, -1, 0, 1, 7, 100000}) {
        EXPECT_EQ(frameNumberOf(timeOfFrame(number)), number);
    }
}

TEST_F(FrameTest, ClearedRegionsMayReachBeyondTheCanvas)
{
    QImage canvas(kCanvasSize, kCanvasSize, QImage::Format_RGBA8888);
    canvas.fill(Qt::white);
    clearRect(canvas, QRect(-50, 1000, 100, 100));
    clearRect(canvas, QRect(2000, 2000, 5, 5));
    clearRect(canvas, QRect());
    EXPECT_EQ(pixels::alpha(canvas, 49, 1000), 0);
    EXPECT_EQ(pixels::alpha(canvas, 50, 1000), 255);
    EXPECT_EQ(pixels::alpha(canvas, 49, 999), 255);
    EXPECT_EQ(pixels::alpha(canvas, 0, 1023), 0);
}

}  // namespace
