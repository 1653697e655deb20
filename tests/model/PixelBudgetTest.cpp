#include "model/PixelBudget.h"
#include "model/Canvas.h"
#include "model/PngCodec.h"
#include "support/DrawingFixture.h"
#include "support/HeldEncoder.h"
#include "support/ResidentMemory.h"

#include <QBuffer>
#include <QEventLoop>
#include <QTimer>

namespace {

constexpr qint64 kCanvasBytes = qint64(kCanvasSize) * kCanvasSize * 4;

class PixelBudgetTest : public DrawingFixture {
protected:
    PixelBudgetTest() : m_limit(budget().limit()) {}
    ~PixelBudgetTest() override { budget().setLimit(m_limit); }

    static PixelBudget& budget() { return PixelBudget::instance(); }
    void allowCanvases(int count) { budget().setLimit(count * kCanvasBytes + kCanvasBytes / 2); }

    bool isUnpacked(int frameNumber) const { return layer().frameNumbered(frameNumber)->isUnpacked(); }
    QList<int> unpacked() const
    {
        QList<int> numbers;
        for (const int number : layer().frameNumbers()) {
            if (isUnpacked(number)) {
                numbers << number;
            }
        }
        return numbers;
    }
    Layer& layer() const { return *drawing.layer("persp", 0); }

    // Frames whose PNG is at hand.
    void addLoadedLayer(std::initializer_list<int> numbers)
    {
        addLayer("persp", "Loaded", numbers);
        for (const int number : numbers) {
            layer().frameNumbered(number)->pack();
        }
    }

    void show(int frameNumber)
    {
        goTo(frameNumber);
        drawing.composite("persp");
    }

    /// Turns the event loop until the work, done once a turn, says that it is enough.
    template <class Work>
    static void turnUntil(Work isEnough)
    {
        QEventLoop loop;
        QTimer turns;
        QObject::connect(&turns, &QTimer::timeout, [&] {
            if (isEnough()) {
                loop.quit();
            }
        });
        turns.start(0);
        loop.exec();
    }

private:
    const qint64 m_limit;
};

TEST_F(PixelBudgetTest, CountsEachPictureOnceHoweverManyShareIt)
{
    const qint64 before = budget().bytes();
    {
        Picture one(pixels::marked(1));
        const Picture two = one;
        EXPECT_EQ(budget().bytes(), before + kCanvasBytes);
        one = Picture::fromPng(encodePng(pixels::marked(2)));
        EXPECT_EQ(budget().bytes(), before + kCanvasBytes);
        one.image();
        EXPECT_EQ(budget().bytes(), before + 2 * kCanvasBytes);
    }
    EXPECT_EQ(budget().bytes(), before);
}

TEST_F(PixelBudgetTest, WhatWasShownLeastRecentlyIsPackedFirst)
{
    addLoadedLayer({1, 2, 3, 4, 5});
    allowCanvases(3);
    for (const int number : {1, 2, 3}) {
        show(number);
    }
    EXPECT_EQ(unpacked(), (QList<int>{1, 2, 3}));
    show(1);
    show(4);
    EXPECT_EQ(unpacked(), (QList<int>{1, 3, 4}));
    show(5);
    EXPECT_EQ(unpacked(), (QList<int>{1, 4, 5}));
}

TEST_F(PixelBudgetTest, WhatIsInUseIsNeverPacked)
{
    addLoadedLayer({1, 2, 3, 4, 5});
    addLayer("persp", "Shown", {1});
    addLayer("persp", "Hidden", {1});
    for (const int i : {1, 2}) {
        drawing.layer("persp", i)->frameAt(0)->pack();
    }
    Preferences::instance().setGhostPrev(true);
    Preferences::instance().setGhostPrevCount(2);
    show(4);
    drawing.layer("persp", 2)->frameAt(0)->image();
    drawing.setLayerVisible("persp", 2, false);
    allowCanvases(0);
    budget().trim();
    EXPECT_EQ(unpacked(), (QList<int>{2, 3, 4}));
    EXPECT_TRUE(drawing.layer("persp", 1)->frameAt(0)->isUnpacked());
    EXPECT_FALSE(drawing.layer("persp", 2)->frameAt(0)->isUnpacked());

    drawing.setActiveLayer("persp", 1, true);
    ASSERT_NE(drawing.beginStroke("persp", true), nullptr);
    show(5);
    EXPECT_EQ(unpacked(), (QList<int>{5}));
    EXPECT_TRUE(drawing.layer("persp", 1)->frameAt(0)->isUnpacked()) << "drawn on";
}

TEST_F(PixelBudgetTest, DrawnPicturesArePackedWithoutKeepingTheEventLoopWaiting)
{
    addLayer("persp", "Drawn", {1, 2, 3, 4, 5, 6});
    allowCanvases(2);
    bool isAsked = false;
    turnUntil([&] {
        if (!isAsked) {
            isAsked = true;
            budget().trim();
            EXPECT_EQ(budget().bytes(), 6 * kCanvasBytes) << "nothing is packed at once";
        }
        return budget().bytes() <= budget().limit();
    });
    EXPECT_EQ(budget().bytes(), 2 * kCanvasBytes);
    for (const int number : {1, 2, 3, 4, 5, 6}) {
        EXPECT_TRUE(pixels::same(layer().frameNumbered(number)->image(), pixels::marked(number)));
    }
}

// Drawn pictures that wait for their turn do not drive out what has just been shown.
TEST_F(PixelBudgetTest, WhatWaitsToBePackedCountsAsGone)
{
    addLoadedLayer({4, 5});
    std::vector<Picture> drawn;
    for (int i = 0; i < 3; ++i) {
        drawn.emplace_back(pixels::marked(i));
    }
    allowCanvases(3);
    HeldEncoder held;
    turnUntil([&] {
        show(4);
        show(5);
        return true;
    });
    EXPECT_EQ(unpacked(), (QList<int>{4, 5}));
    held.letGo();
    turnUntil([&] {
        budget().trim();
        EXPECT_EQ(unpacked(), (QList<int>{4, 5}));
        return !drawn[1].isUnpacked();
    });
    EXPECT_FALSE(drawn[0].isUnpacked());
    EXPECT_TRUE(drawn[2].isUnpacked());
}

TEST_F(PixelBudgetTest, WhatUndoHoldsIsPackedWhateverTheLimitUnlessItIsShown)
{
    addLayer("persp", "Drawn", {1, 2});
    show(2);
    const Picture undo(pixels::marked(7));
    for (const Picture& picture : {undo, Picture(layer().frameNumbered(2)->picture())}) {
        picture.packSoon();
        PictureEncoder::instance().finish();
        budget().trim();
    }
    EXPECT_FALSE(undo.isUnpacked());
    EXPECT_EQ(unpacked(), (QList<int>{1, 2}));
    show(1);
    layer().frameNumbered(2)->picture().packSoon();
    EXPECT_EQ(unpacked(), QList<int>{1}) << "at once, as it is packed already";
    EXPECT_TRUE(pixels::same(undo.image(), pixels::marked(7)));
}

TEST_F(PixelBudgetTest, NothingIsEncodedWhilePlayingOrDrawing)
{
    addLayer("persp", "Drawn", {1, 2, 3, 4});
    show(1);
    allowCanvases(1);
    session().events.setCondition("playingBack", true);
    ASSERT_TRUE(MAnimControl::isPlaying());
    budget().trim();
    EXPECT_EQ(unpacked(), (QList<int>{1, 2, 3, 4}));
    session().events.setCondition("playingBack", false);
    ASSERT_NE(drawing.beginStroke("persp", true), nullptr);
    budget().trim();
    EXPECT_EQ(unpacked(), (QList<int>{1, 2, 3, 4}));
    drawing.dropStroke();
    budget().trim();
    EXPECT_EQ(unpacked(), (QList<int>{drawing.layer("persp", 0)->currentFrame()->frameNumber()}));
}

TEST_F(PixelBudgetTest, TheEmptyCanvasThatAllShareStaysWhatItIs)
{
    const qint64 before = budget().bytes();
    Picture::emptyCanvas().packSoon();
    PictureEncoder::instance().finish();
    budget().trim();
    EXPECT_TRUE(Picture::emptyCanvas().isUnpacked());
    EXPECT_EQ(budget().bytes(), before);
}

// It is quicker to unpack then, and yet what is saved again is the very file that it came from.
TEST_F(PixelBudgetTest, WhatUndoHoldsOfALoadedDrawingIsPackedAgainAndKeepsItsFile)
{
    const QByteArray file = encodePng(pixels::marked(3));
    const Picture loaded = Picture::fromPng(file);
    const QImage pixels = loaded.image();
    {
        const HeldEncoder held;
        const int before = PictureEncoder::instance().waiting();
        loaded.packSoon();
        EXPECT_EQ(PictureEncoder::instance().waiting(), before + 1);
        EXPECT_TRUE(loaded.isUnpacked());
    }
    budget().trim();
    EXPECT_FALSE(loaded.isUnpacked());
    EXPECT_EQ(loaded.image(), pixels);
    EXPECT_EQ(loaded.png().constData(), file.constData());
    loaded.packSoon();
    EXPECT_FALSE(loaded.isUnpacked()) << "at once";
}

// The sanitizers keep freed memory on purpose.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kMeasuresMemory = false;
constexpr int kFrameCount = 150;
#else
constexpr bool kMeasuresMemory = true;
constexpr int kFrameCount = 1000;
#endif

// Quickly compressed: a thousand of them are needed.
QByteArray quickPng(const QImage& image)
{
    constexpr int kFast = 80;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG", kFast);
    return bytes;
}

TEST_F(PixelBudgetTest, AThousandFramesSteppedThroughStayWithinMemoryAndAreAllThere)
{
    constexpr qint64 kAllowance = qint64(64) << 20;
    constexpr int kDrawnEvery = 25;
    const qint64 before = residentBytes();
    addLayer("persp", "Many", {});
    qint64 packedBytes = 0;
    for (int i = 1; i <= kFrameCount; ++i) {
        const QByteArray png = quickPng(pixels::marked(i));
        layer().insertFrame(Frame::fromPng(timeOfFrame(i), png));
        packedBytes += png.size();
    }
    Preferences::instance().setGhostPrev(true);
    Preferences::instance().setActiveTool(ToolType::Pencil);
    std::map<int, QImage> drawn;
    std::map<int, Picture> undone;
    qint64 most = 0;
    for (int i = 1; i <= kFrameCount; ++i) {
        show(i);
        if (i % kDrawnEvery == 0) {
            ActiveStroke* record = drawing.beginStroke("persp", false);
            ASSERT_NE(record, nullptr);
            record->points = drawings::line({i, 0}, {1000 - i, 1000}, 3);
            ASSERT_TRUE(drawing.commitStroke("persp", undone[i]));
            drawn[i] = layer().frameNumbered(i)->image().copy(0, 480, 1024, 40);
        }
        most = std::max(most, residentBytes());
    }
    EXPECT_LE(budget().bytes(), budget().limit() + kAllowance);
    if (kMeasuresMemory) {
        EXPECT_LE(most - before, packedBytes + budget().limit() + kAllowance);
        RecordProperty("megabytes", static_cast<int>((most - before) >> 20));
        RecordProperty("packedMegabytes", static_cast<int>(packedBytes >> 20));
    }
    for (int i = 1; i <= kFrameCount; ++i) {
        const QImage image = layer().frameNumbered(i)->picture().image();
        if (drawn.count(i)) {
            ASSERT_TRUE(pixels::same(image.copy(0, 480, 1024, 40), drawn[i])) << i;
            ASSERT_TRUE(pixels::same(undone[i].image(), pixels::marked(i))) << i;
        } else {
            ASSERT_TRUE(pixels::same(image, pixels::marked(i))) << i;
        }
        budget().trim();
    }
}

}  // namespace
