#include "model/Canvas.h"
#include "model/DrawingPainter.h"
#include "support/DrawingFixture.h"

#include <set>

namespace {

class CompositeTest : public DrawingFixture {
protected:
    QImage picture() { return pixels::seen(*drawing.composite("persp")); }

    // Images over one another, the first at the bottom.
    static QImage over(std::initializer_list<QImage> images)
    {
        QImage result = blankCanvas();
        QPainter painter(&result);
        prepareDrawingPainter(painter);
        for (const QImage& image : images) {
            painter.drawImage(0, 0, image);
        }
        return result;
    }

    // Frames whose whole canvas has one opaque colour make ghosts easy to tell.
    void addFlatLayer(std::initializer_list<int> numbers)
    {
        auto layer = drawings::layer("Flat", numbers);
        int i = 0;
        for (const int number : numbers) {
            QImage flat(kCanvasSize, kCanvasSize, QImage::Format_RGBA8888);
            flat.fill(Qt::transparent);
            for (int x = i * 10; x < i * 10 + 10; ++x) {
                flat.setPixelColor(x, 0, QColor(10, 20, 30));
            }
            layer->frameNumbered(number)->setImage(flat);
            ++i;
        }
        drawing.insertLayer("persp", -1, std::move(layer));
    }

    int alphaOfFrame(int index) { return pixels::alpha(picture(), index * 10 + 5, 0); }
};

TEST_F(CompositeTest, StacksTheVisibleLayersBottomFirst)
{
    addLayer("persp", "A", {1});
    addLayer("persp", "B", {1, 3});
    addLayer("persp", "C", {2});
    drawing.layer("persp", 1)->frameNumbered(1)->setImage(pixels::marked(130));  // overlaps nothing else
    goTo(1);
    EXPECT_EQ(picture(), over({pixels::marked(1), pixels::marked(130)}));
    goTo(3);
    EXPECT_EQ(picture(), over({pixels::marked(1), pixels::marked(3), pixels::marked(2)}));
    drawing.setLayerVisible("persp", 1, false);
    EXPECT_EQ(picture(), over({pixels::marked(1), pixels::marked(2)}));
    drawing.moveLayer("persp", 0, 2);
    EXPECT_EQ(picture(), over({pixels::marked(2), pixels::marked(1)}));
    goTo(0);
    EXPECT_EQ(picture(), blankCanvas());
}

TEST_F(CompositeTest, ALayersOpacityIsStoredButNotApplied)
{
    addLayer("persp", "A", {1});
    drawing.setLayerOpacity("persp", 0, 0.25f);
    EXPECT_EQ(picture(), over({pixels::marked(1)}));
}

TEST_F(CompositeTest, IsMadeAnewOnlyWhenSomethingChanged)
{
    EXPECT_EQ(drawing.composite("persp"), nullptr);
    addLayer("persp", "A", {1, 5});
    addLayer("top", "B", {1});
    drawing.composite("top");
    EXPECT_TRUE(drawing.needsRedraw("persp"));
    const QImage* first = drawing.composite("persp");
    EXPECT_FALSE(drawing.needsRedraw("persp"));
    EXPECT_FALSE(drawing.needsRedraw("none"));

    const std::function<void()> changes[] = {[this] { goTo(5); },
                                             [this] { drawing.markForRedraw("persp"); },
                                             [this] { drawing.setLayerVisible("persp", 0, false); },
                                             [this] { addLayer("persp", "C", {}); },
                                             [this] { drawing.setActiveLayer("persp", 1, false); },
                                             [this] { drawing.takeLayer("persp", 1); }};
    for (const auto& change : changes) {
        change();
        EXPECT_TRUE(drawing.needsRedraw("persp"));
        EXPECT_FALSE(drawing.needsRedraw("top"));
        EXPECT_EQ(drawing.composite("persp"), first) << "the picture stays where it is";
        EXPECT_FALSE(drawing.needsRedraw("persp"));
    }
}

TEST_F(CompositeTest, AGenerationStandsForOnePictureOnly)
{
    EXPECT_EQ(drawing.compositeGeneration("persp"), 0u);
    addLayer("persp", "A", {1, 5});
    addLayer("top", "B", {1});
    std::map<quint64, QImage> pictures;
    const auto look = [&](const QString& camera) {
        const QImage& shown = *drawing.composite(camera);
        return pictures.emplace(drawing.compositeGeneration(camera), shown.copy()).first->second == shown;
    };
    const std::function<void()> changes[] = {[] {}, [this] { goTo(5); }, [this] { drawing.takeAllLayers("persp"); },
                                             [this] { addLayer("persp", "C", {2}); },
                                             [this] { drawing.setLayerVisible("persp", 0, false); }};
    for (const auto& change : changes) {
        change();
        for (const char* camera : {"persp", "top", "persp"}) {
            if (drawing.layerCount(camera) > 0) {
                EXPECT_TRUE(look(camera)) << camera;
            }
        }
    }
    EXPECT_FALSE(pictures.count(0));
    const quint64 last = drawing.compositeGeneration("persp");
    drawing.composite("persp");
    EXPECT_EQ(drawing.compositeGeneration("persp"), last) << "nothing changed";
}

TEST_F(CompositeTest, AStrokesPictureHasAnotherGenerationWheneverItGrowsAndOnlyThen)
{
    addLayer("persp", "A", {1});
    goTo(1);
    for (const ToolType tool : {ToolType::Pencil, ToolType::Eraser}) {
        Preferences::instance().setActiveTool(tool);
        ActiveStroke* stroke = drawing.beginStroke("persp", false);
        ASSERT_NE(stroke, nullptr);
        std::set<quint64> seen;
        for (const QPoint& to : {QPoint(450, 450), QPoint(550, 500), QPoint(560, 700)}) {
            stroke->points << StrokePoint{9, 1, 1, to};
            stroke->changed = true;
            drawing.composite("persp");
            const quint64 grown = drawing.compositeGeneration("persp");
            EXPECT_TRUE(seen.insert(grown).second) << "the stroke has grown";
            drawing.composite("persp");
            EXPECT_EQ(drawing.compositeGeneration("persp"), grown) << "nothing changed";
        }
        drawing.dropStroke();
        drawing.composite("persp");
        EXPECT_FALSE(seen.count(drawing.compositeGeneration("persp"))) << "the stroke has gone";
    }
}

TEST_F(CompositeTest, GhostsFadeByKeysAndNotByTime)
{
    addFlatLayer({1, 2, 10, 50, 51});
    goTo(10);
    Preferences::instance().setGhostPrev(true);
    Preferences::instance().setGhostPrevCount(3);
    Preferences::instance().setGhostNext(true);
    Preferences::instance().setGhostNextCount(1);
    EXPECT_NEAR(alphaOfFrame(0), 255 * 0.8 / 3, 1);
    EXPECT_NEAR(alphaOfFrame(1), 255 * 0.4, 1);
    EXPECT_EQ(alphaOfFrame(2), 255);
    EXPECT_NEAR(alphaOfFrame(3), 255 * 0.4, 1);
    EXPECT_EQ(alphaOfFrame(4), 0);
    goTo(51);
    EXPECT_EQ(alphaOfFrame(0), 0);
    EXPECT_NEAR(alphaOfFrame(1), 255 * 0.4 / 3, 1);
    EXPECT_NEAR(alphaOfFrame(3), 255 * 0.4, 1);
}

TEST_F(CompositeTest, TintedGhostsHaveTheirSidesColour)
{
    addFlatLayer({1, 2, 3});
    goTo(2);
    Preferences& preferences = Preferences::instance();
    preferences.setGhostPrev(true);
    preferences.setGhostNext(true);
    preferences.setGhostColorOverride(true);
    preferences.setGhostColorOverridePrev(QColor(200, 0, 0));
    preferences.setGhostColorOverrideNext(QColor(0, 0, 200));
    const QColor earlier = picture().pixelColor(5, 0);
    const QColor later = picture().pixelColor(25, 0);
    EXPECT_NEAR(earlier.red(), 200, 2);
    EXPECT_NEAR(earlier.blue(), 0, 2);
    EXPECT_NEAR(later.blue(), 200, 2);
    EXPECT_EQ(picture().pixelColor(15, 0), QColor(10, 20, 30));
}

}  // namespace
