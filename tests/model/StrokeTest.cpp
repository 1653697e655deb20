// A stroke from its begin to its commit, drop, undo and redo.

#include "model/Canvas.h"
#include "model/DrawingViews.h"
#include "model/PngCodec.h"
#include "support/Dice.h"
#include "support/DrawingFixture.h"

namespace {

class StrokeTest : public DrawingFixture {
protected:
    StrokeTest()
    {
        Preferences::instance().setActiveTool(ToolType::Pencil);
        Preferences::instance().setActiveColor(Qt::red);
    }

    /// Draws across the middle of the canvas with the active tool.
    bool drawLine(const QString& camera, Picture& undo)
    {
        ActiveStroke* record = drawing.beginStroke(camera, false);
        if (!record) {
            return false;
        }
        record->points = drawings::line({400, 500}, {600, 500});
        record->changed = true;
        return drawing.commitStroke(camera, undo);
    }

    QImage shown(const QString& camera) { return drawing.activeLayer(camera)->currentFrame()->image(); }
    QImage base() const { return pixels::marked(1); }

    /// The transform of a region, as the transform tool fills it.
    ActiveStroke* transform(QRect region)
    {
        ActiveStroke* record = drawing.beginStroke("persp", false);
        record->tool = ToolType::Transform;
        record->region = region;
        record->takeRegion = true;
        record->changed = true;
        return record;
    }
};

TEST_F(StrokeTest, ACommitDrawsIntoTheFrameEvenBeforeAnyRefresh)
{
    addLayer("persp", "A", {1});
    Picture undo;
    ASSERT_TRUE(drawLine("persp", undo));
    EXPECT_EQ(drawing.stroke("persp"), nullptr);
    EXPECT_EQ(shown("persp").pixelColor(500, 500), QColor(Qt::red));
    EXPECT_TRUE(pixels::same(shown("persp").copy(0, 0, 100, 100), base().copy(0, 0, 100, 100)));
    EXPECT_TRUE(pixels::same(undo.image(), base()));
}

TEST_F(StrokeTest, PointsThatChangeAfterTheyWereDrawnAreDrawnAnew)
{
    addLayer("persp", "A", {1});
    for (const ToolType tool : {ToolType::Pencil, ToolType::Brush, ToolType::Eraser}) {
        Preferences::instance().setActiveTool(tool);
        ActiveStroke* record = drawing.beginStroke("persp", false);
        const auto seenWithLineAt = [&](int y) {
            record->points = drawings::line({10, y}, {200, y});  // across the ink
            record->drawAnew = true;
            record->changed = true;
            return pixels::seen(*drawing.composite("persp"));
        };
        const QImage high = seenWithLineAt(18);
        EXPECT_FALSE(seenWithLineAt(28) == high) << int(tool);
        EXPECT_TRUE(seenWithLineAt(18) == high) << int(tool);
        drawing.dropStroke();
    }
}

TEST_F(StrokeTest, OneSwapUndoesAndTheNextRedoes)
{
    addLayer("persp", "A", {1});
    Picture other;
    ASSERT_TRUE(drawLine("persp", other));
    const QString after = describe(drawing);
    ASSERT_TRUE(drawing.swapActiveImage("persp", other));
    EXPECT_TRUE(pixels::same(shown("persp"), base()));
    ASSERT_TRUE(drawing.swapActiveImage("persp", other));
    EXPECT_EQ(describe(drawing), after);
    EXPECT_FALSE(drawing.swapImage({"persp", drawing.layerId("persp", 0), timeOfFrame(2)}, other));
    EXPECT_FALSE(drawing.swapImage({"persp", 0, timeOfFrame(1)}, other));
    EXPECT_FALSE(drawing.swapActiveImage("none", other));
    EXPECT_EQ(describe(drawing), after);
}

TEST_F(StrokeTest, AnEraserStrokeDoesNotBringBackWhatIsUndoneUnderIt)
{
    addLayer("persp", "A", {1});
    Picture other;
    ASSERT_TRUE(drawLine("persp", other));
    for (const ToolType tool : {ToolType::Eraser, ToolType::Pencil}) {
        Preferences::instance().setActiveTool(tool);
        ASSERT_NE(drawing.beginStroke("persp", false), nullptr);
        ASSERT_TRUE(drawing.swapActiveImage("persp", other));
        // A pencil's own ink can still be laid over whatever is there.
        EXPECT_EQ(drawing.stroke("persp") != nullptr, tool == ToolType::Pencil);
        drawing.dropStroke();
    }
}

TEST_F(StrokeTest, NeedsAnActiveLayerThatCanBeDrawnOnNow)
{
    EXPECT_EQ(drawing.beginStroke("persp", false), nullptr);
    addLayer("persp", "A", {5});
    goTo(6);
    EXPECT_EQ(drawing.beginStroke("persp", false), nullptr);
    drawing.setLayerState("persp", 0, kLayerStatic);
    ASSERT_NE(drawing.beginStroke("persp", false), nullptr);
    EXPECT_EQ(frameNumberOf(drawing.strokeFrame("persp").time), 5);
    drawing.dropStroke();
    drawing.setLayerState("persp", 0, kLayerAnim);
    EXPECT_NE(drawing.beginStroke("persp", true), nullptr);
}

TEST_F(StrokeTest, BelongsToOneCamera)
{
    addLayer("persp", "A", {1});
    addLayer("top", "B", {1});
    ActiveStroke* record = drawing.beginStroke("persp", false);
    EXPECT_EQ(drawing.beginStroke("persp", false), record);
    EXPECT_EQ(drawing.beginStroke("top", false), nullptr);
    EXPECT_EQ(drawing.stroke("top"), nullptr);
    drawing.composite("top");
    record->points = drawings::line({400, 500}, {600, 500});
    record->changed = true;
    EXPECT_TRUE(drawing.needsRedraw("persp"));
    EXPECT_FALSE(drawing.needsRedraw("top"));
    Picture undo;
    EXPECT_FALSE(drawing.commitStroke("top", undo));
    EXPECT_EQ(drawing.stroke("persp"), record);
}

TEST_F(StrokeTest, TakesToolAndColourOfItsBeginning)
{
    addLayer("persp", "A", {1});
    Preferences::instance().setActiveTool(ToolType::Arrow);
    penState::setEraserTip(true);
    const ActiveStroke* record = drawing.beginStroke("persp", false);
    penState::setEraserTip(false);
    Preferences::instance().setActiveColor(Qt::green);
    drawing.beginStroke("persp", false);
    EXPECT_EQ(record->tool, ToolType::Eraser);
    EXPECT_EQ(record->colour, QColor(Qt::red));
}

TEST_F(StrokeTest, GoesToTheFrameItWasBegunOnWhateverIsShownMeanwhile)
{
    addLayer("persp", "A", {1, 5});
    addLayer("persp", "B", {1});
    goTo(1);
    ActiveStroke* record = drawing.beginStroke("persp", false);
    record->points = drawings::line({400, 500}, {600, 500});
    goTo(5);
    EXPECT_EQ(drawing.layer("persp", 0)->currentFrame()->frameNumber(), 1) << "the layer drawn on stays";
    drawing.moveLayer("persp", 0, 1);
    drawing.setActiveLayer("persp", 0, true);
    const FrameAddress address = drawing.strokeFrame("persp");
    EXPECT_EQ(drawing.strokeLayerIndex("persp"), 1);
    EXPECT_EQ(address.layerId, drawing.layerId("persp", 1));
    EXPECT_EQ(frameNumberOf(address.time), 1);
    const QString before = describe(drawing);
    Picture undo;
    ASSERT_TRUE(drawing.commitStroke("persp", undo));
    EXPECT_FALSE(pixels::same(drawing.layer("persp", 1)->frameNumbered(1)->image(), base()));
    EXPECT_TRUE(pixels::same(drawing.layer("persp", 1)->frameNumbered(5)->image(), pixels::marked(5)));
    ASSERT_TRUE(drawing.swapImage(address, undo));
    EXPECT_EQ(describe(drawing), before);
}

TEST_F(StrokeTest, IsDroppedWhenItsFrameIsGone)
{
    addLayer("persp", "A", {1, 5});
    ActiveStroke* record = drawing.beginStroke("persp", false);
    record->points = drawings::line({400, 500}, {600, 500});
    drawing.takeFrame("persp", timeOfFrame(1));
    drawing.composite("persp");
    EXPECT_EQ(drawing.strokeFrame("persp").layerId, 0u);
    Picture undo;
    EXPECT_FALSE(drawing.commitStroke("persp", undo));
    EXPECT_FALSE(drawing.hasStroke());
    drawing.beginStroke("persp", true);
    drawing.clear(false);
    EXPECT_FALSE(drawing.commitStroke("persp", undo));
}

// Pictures from elsewhere decode to other formats and sizes; the eraser writes other.
TEST_F(StrokeTest, ErasesOnWhateverPictureTheFrameHolds)
{
    Preferences::instance().setActiveTool(ToolType::Eraser);
    const struct {
        QImage::Format format;
        QSize size;
    } pictures[] = {{QImage::Format_Mono, {1, 1}},       {QImage::Format_Grayscale8, {16, 16}},
                    {QImage::Format_RGB32, {1100, 600}}, {QImage::Format_ARGB32, {1024, 1024}},
                    {QImage::Format_Mono, {1024, 1024}}, {QImage::Format_RGBA64, {600, 1100}}};
    for (const auto& p : pictures) {
        QImage picture(p.size, p.format);
        picture.fill(Qt::white);
        drawing.clear(false);
        addLayer("persp", "A", {1});
        Picture foreign = Picture::fromPng(encodePng(picture));
        ASSERT_TRUE(drawing.swapActiveImage("persp", foreign));
        ActiveStroke* record = drawing.beginStroke("persp", false);
        record->points = drawings::line({0, 0}, {1023, 1023}, 20);
        record->changed = true;
        drawing.composite("persp");
        Picture undo;
        ASSERT_TRUE(drawing.commitStroke("persp", undo));
        EXPECT_EQ(shown("persp").size(), QSize(kCanvasSize, kCanvasSize));
        EXPECT_EQ(pixels::alpha(shown("persp"), 0, 0), 0);
        EXPECT_TRUE(pixels::same(undo.image(), decodePng(encodePng(picture))));
    }
}

TEST_F(StrokeTest, ATextsFrameIsNotCommitted)
{
    addLayer("persp", "A", {1});
    Preferences::instance().setActiveTool(ToolType::Text);
    ActiveStroke* record = drawing.beginStroke("persp", false);
    record->points = {drawings::point(300, 300, 20)};
    record->changed = true;
    EXPECT_FALSE(pixels::same(*drawing.composite("persp"), base()));
    Picture undo;
    ASSERT_TRUE(drawing.commitStroke("persp", undo));
    EXPECT_TRUE(pixels::same(shown("persp"), base()));
}

// marked(1) is a box of 20 x 20 at (7, 13).
TEST_F(StrokeTest, ATransformMovesItsRegion)
{
    addLayer("persp", "A", {1});
    const QColor faint(65, 66, 67, 1);
    QImage image = base();
    image.setPixelColor(10, 40, faint);
    drawing.activeLayer("persp")->currentFrame()->setImage(image);
    ActiveStroke* record = transform(QRect(7, 13, 20, 30));
    record->translation = QPoint(100, 50);
    const QImage live = drawing.composite("persp")->copy();
    record->changed = true;
    EXPECT_EQ(*drawing.composite("persp"), live) << "the region is taken once";
    Picture undo;
    ASSERT_TRUE(drawing.commitStroke("persp", undo));
    EXPECT_EQ(shown("persp").copy(107, 63, 20, 30), image.copy(7, 13, 20, 30)) << "every byte, of faint ink too";
    EXPECT_EQ(pixels::inkBox(shown("persp")), QRect(107, 63, 20, 28));
    EXPECT_EQ(drawing.activeLayer("persp")->currentFrame()->picture().ink().box(), InkMap::of(shown("persp")).box());
    EXPECT_EQ(*drawing.composite("persp"), live);
}

TEST_F(StrokeTest, ATransformIsCommittedAsItWasShown)
{
    for (const char* name : {"below", "drawn on", "above"}) {
        addLayer("persp", name, {1, 5, 9});
    }
    drawing.setActiveLayer("persp", 1, true);
    goTo(1);
    Preferences::instance().setGhostNext(true);
    Dice dice(8);
    for (int i = 0; i < 20; ++i) {
        ActiveStroke* record = transform(QRect(dice.point(-10, 20), QSize(dice.between(5, 60), dice.between(5, 60))));
        record->keepCut = dice.oneIn(2);
        for (int step = 0; step < 3; ++step) {
            record->translation = dice.point(-40, 40);
            record->angle = static_cast<float>(dice.oneIn(2) ? 90 : dice.between(-180, 180));
            record->scaleX = dice.between(-20, 20) / 10.0;
            record->changed = true;
            drawing.composite("persp");
        }
        const QImage live = drawing.composite("persp")->copy();
        Picture undo;
        ASSERT_TRUE(drawing.commitStroke("persp", undo));
        EXPECT_LE(pixels::farthest(*drawing.composite("persp"), live), 1) << i;
        ASSERT_TRUE(drawing.swapActiveImage("persp", undo));
        drawing.composite("persp");
    }
}

TEST_F(StrokeTest, CutCopyAndPasteGoThroughTheKeptRegion)
{
    addLayer("persp", "A", {1});
    Picture undo;
    ActiveStroke* record = transform(QRect(-10, -10, 27, 43));  // over the canvas
    record->clearOnly = true;
    record->keepCut = true;
    ASSERT_TRUE(drawing.commitStroke("persp", undo));
    EXPECT_EQ(pixels::inkBox(shown("persp")), QRect(17, 13, 10, 20)) << "cut";

    record = transform(QRect(500, 600, 27, 43));
    record->pasteAsIs = true;
    ASSERT_TRUE(drawing.commitStroke("persp", undo));
    EXPECT_EQ(pixels::inkBox(shown("persp").copy(400, 400, 624, 624)), QRect(117, 223, 10, 20)) << "pasted";

    record = transform(QRect(517, 623, 10, 20));
    record->keepCut = true;
    record->translation = QPoint(50, 0);
    ASSERT_TRUE(drawing.commitStroke("persp", undo));
    EXPECT_EQ(pixels::inkBox(shown("persp").copy(400, 400, 624, 624)), QRect(117, 223, 60, 20)) << "copied";
}

TEST_F(StrokeTest, OddRegionsAreHarmless)
{
    addLayer("persp", "A", {1});
    Picture undo;
    const QString before = describe(drawing);
    transform(QRect());
    drawing.composite("persp");
    ASSERT_TRUE(drawing.commitStroke("persp", undo));
    EXPECT_EQ(describe(drawing), before);

    for (const QRect& region : {QRect(-500, -500, 600, 600), QRect(1000, 1000, 500, 500), QRect(3000, 0, 5, 5)}) {
        ActiveStroke* record = transform(region);
        record->clearOnly = true;
        ASSERT_TRUE(drawing.commitStroke("persp", undo));
        for (const QPoint& p : {region.topLeft(), region.bottomRight()}) {
            if (shown("persp").rect().contains(p)) {
                EXPECT_EQ(pixels::alpha(shown("persp"), p.x(), p.y()), 0);
            }
        }
    }
}

}  // namespace
