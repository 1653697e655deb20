#include "model/Canvas.h"
#include "support/DrawingFixture.h"

#include <set>

namespace {

class CompositeTest : public DrawingFixture {
protected:
    QImage picture() { return pixels::seen(*drawing.composite("persp")); }
};

TEST_F(CompositeTest, ALayersOpacityIsStoredButNotApplied)
{
    addLayer("persp", "A", {1});
    drawing.setLayerOpacity("persp", 0, 0.25f);
    EXPECT_EQ(picture(), pixels::marked(1));
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

}  // namespace
