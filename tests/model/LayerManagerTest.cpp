#include "model/DrawingViews.h"
#include "model/LayerListView.h"
#include "support/DrawingFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LayerManagerTest : public DrawingFixture {
protected:
    // Layers of a camera, the active one starred.
    QString stack(const QString& camera) const
    {
        QStringList list = names(camera);
        if (drawing.activeLayerIndex(camera) >= 0) {
            list[drawing.activeLayerIndex(camera)] += '*';
        }
        return list.join(' ');
    }

    void addLayers(const QString& camera, const QStringList& layers)
    {
        for (const QString& name : layers) {
            drawing.insertLayer(camera, -1, name);
        }
    }
};

class ListedLayers : public LayerListView {
public:
    ListedLayers() { LayerManager::setLayerListView(this); }
    ~ListedLayers() override { LayerManager::setLayerListView(nullptr); }
    void clear() override { rows = QStringList("clear"); }
    void addRow(const QString& camera, int index, const QString& name, int state, bool visible) override
    {
        rows << QString("%1 %2 %3 %4 %5").arg(camera).arg(index).arg(name).arg(state).arg(visible);
    }
    void select(const QString& camera, int index) override { rows << QString("select %1 %2").arg(camera).arg(index); }
    void refresh() override { rows << "refresh"; }
    QStringList rows;
};

class KnownViews : public DrawingViews {
public:
    KnownViews() { LayerManager::setDrawingViews(this); }
    ~KnownViews() override { LayerManager::setDrawingViews(nullptr); }
    QString activeCamera() override { return camera; }
    void redrawDrawing() override { ++redraws; }
    void activeOpacityChanged() override { ++opacities; }
    QString camera;
    int redraws = 0;
    int opacities = 0;
};

TEST_F(LayerManagerTest, TheFirstLayerOfAllMakesItsCameraCurrentLaterCamerasDoNot)
{
    EXPECT_EQ(drawing.insertLayer("persp", 5, "A"), 0);
    EXPECT_EQ(drawing.currentCamera(), QString("persp"));
    EXPECT_EQ(drawing.insertLayer("top", -1, "B"), 0);
    EXPECT_EQ(drawing.currentCamera(), QString("persp"));
    EXPECT_EQ(stack("persp"), QString("A*"));
    EXPECT_EQ(stack("top"), QString("B*"));
    EXPECT_EQ(drawing.insertLayer("persp", 0, "C"), 0);
    EXPECT_EQ(stack("persp"), QString("C A*"));
    EXPECT_EQ(drawing.cameras(), (QStringList{"persp", "top"}));
    EXPECT_EQ(drawing.totalLayerCount(), 3);
}

TEST_F(LayerManagerTest, CamerasAreListedInCaseSensitiveOrder)
{
    for (const char* camera : {"b", "A", "a", "B"}) {
        drawing.insertLayer(camera, -1, "L");
    }
    EXPECT_EQ(drawing.cameras(), (QStringList{"A", "B", "a", "b"}));
}

TEST_F(LayerManagerTest, NamesAreUniqueAcrossCamerasAndAlwaysNumberedOnLayer)
{
    const struct {
        const char* camera;
        const char* asked;
        const char* given;
    } steps[] = {{"persp", "", "Layer"},           {"persp", "", "Layer 1"},      {"top", "Sky", "Sky"},
                 {"persp", "Sky", "Layer 2"},      {"top", "Layer 4", "Layer 4"}, {"top", "Layer", "Layer 3"},
                 {"top", "Layer 1", "Layer 5"},    {"top", "sky", "sky"},         {"top", "a\"b\\c\nd", "a'b/cd"},
                 {"top", "a\"b\\c\nd", "Layer 6"}, {"top", "\n\t", "Layer 7"}};
    for (const auto& step : steps) {
        const int index = drawing.insertLayer(step.camera, -1, QString(step.asked));
        EXPECT_EQ(drawing.layerName(step.camera, index), QString(step.given)) << step.asked;
    }
}

TEST_F(LayerManagerTest, RenamingToTheSameNameKeepsItAndToATakenOneNumbersIt)
{
    addLayers("persp", {"A", "B"});
    drawing.renameLayer("persp", 0, "A");
    EXPECT_EQ(names("persp"), (QStringList{"A", "B"}));
    drawing.renameLayer("persp", 0, "B");
    EXPECT_EQ(names("persp"), (QStringList{"Layer 1", "B"}));
    drawing.renameLayer("persp", 1, "C \"2\"");
    drawing.renameLayer("persp", 1, "C \"2\"");
    EXPECT_EQ(names("persp"), (QStringList{"Layer 1", "C '2'"}));
    drawing.renameLayer("persp", 7, "D");
    EXPECT_EQ(drawing.totalLayerCount(), 2);
}

TEST_F(LayerManagerTest, NewLayersHaveTheDefaultStateHandedInOnesKeepTheirs)
{
    Preferences::instance().setDefaultLayerState(kLayerStatic);
    drawing.insertLayer("persp", -1, "A");
    EXPECT_EQ(drawing.layerState("persp", 0), kLayerStatic);
    addLayer("persp", "A", {1});
    EXPECT_EQ(drawing.layerState("persp", 1), kLayerAnim);
    EXPECT_EQ(drawing.layerName("persp", 1), QString("A"));
    EXPECT_EQ(drawing.insertLayer("persp", -1, std::unique_ptr<Layer>()), -1);
}

TEST_F(LayerManagerTest, TakingALayerPassesTheActiveMarkOn)
{
    const struct {
        int active;
        int taken;
        const char* left;
    } cases[] = {{0, 0, "B* C"}, {1, 1, "A* C"}, {2, 2, "A B*"}, {2, 0, "B C*"}, {0, 2, "A* B"}, {1, 0, "B* C"}};
    for (const auto& c : cases) {
        drawing.clear(false);
        addLayers("persp", {"A", "B", "C"});
        drawing.setActiveLayer("persp", c.active, true);
        const std::unique_ptr<Layer> taken = drawing.takeLayer("persp", c.taken);
        ASSERT_TRUE(taken);
        EXPECT_EQ(taken->isActive(), c.active == c.taken);
        EXPECT_EQ(stack("persp"), QString(c.left)) << c.active << " " << c.taken;
    }
    EXPECT_EQ(drawing.takeLayer("persp", 2), nullptr);
    EXPECT_EQ(drawing.takeLayer("none", 0), nullptr);
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(LayerManagerTest, ACameraGoesWithItsLastLayer)
{
    addLayers("persp", {"A"});
    EXPECT_NE(drawing.composite("persp"), nullptr);
    std::unique_ptr<Layer> layer = drawing.takeLayer("persp", 0);
    EXPECT_EQ(drawing.composite("persp"), nullptr);
    EXPECT_EQ(drawing.cameras(), QStringList());
    EXPECT_EQ(drawing.currentCamera(), QString("persp"));
    const Layer* address = layer.get();
    EXPECT_EQ(drawing.insertLayer("persp", 3, std::move(layer)), 0);
    EXPECT_EQ(drawing.layer("persp", 0), address);
}

TEST_F(LayerManagerTest, TakesAllLayersOfACameraInOrder)
{
    addLayers("persp", {"A", "B", "C"});
    addLayers("top", {"D"});
    const auto taken = drawing.takeAllLayers("persp");
    ASSERT_EQ(taken.size(), 3u);
    EXPECT_EQ(taken[0]->name() + taken[1]->name() + taken[2]->name(), QString("ABC"));
    EXPECT_EQ(drawing.cameras(), QStringList("top"));
    EXPECT_TRUE(drawing.takeAllLayers("persp").empty());
}

TEST_F(LayerManagerTest, MovesWithinTheCamera)
{
    const struct {
        int from;
        int to;
        int landing;
        const char* result;
    } cases[] = {
        {0, 99, 2, "B C A*"}, {2, -5, 0, "C A* B"}, {0, 1, 1, "B A* C"}, {2, 1, 1, "A* C B"}, {1, 1, 1, "A* B C"}};
    for (const auto& c : cases) {
        drawing.clear(false);
        addLayers("persp", {"A", "B", "C"});
        EXPECT_EQ(drawing.moveLayer("persp", c.from, c.to), c.landing);
        EXPECT_EQ(stack("persp"), QString(c.result)) << c.from << " to " << c.to;
    }
    EXPECT_EQ(drawing.moveLayer("persp", 3, 0), -1);
    EXPECT_EQ(drawing.moveLayer("none", 0, 0), -1);
    EXPECT_THAT(errors(),
                ElementsAre("[Lumisketch2] Invalid layer: persp (3)", "[Lumisketch2] Invalid layer: none (0)"));
}

TEST_F(LayerManagerTest, MovesToAnotherCameraOfTheScene)
{
    addLayers("persp", {"A", "B"});
    addLayers("top", {"C"});
    EXPECT_EQ(drawing.moveLayerToCamera("persp", 0, "top", 0), 0);
    EXPECT_EQ(stack("persp"), QString("B*"));
    EXPECT_EQ(stack("top"), QString("A C*"));
    EXPECT_EQ(drawing.moveLayerToCamera("persp", 0, "nonesuch", 0), -1);
    EXPECT_EQ(drawing.moveLayerToCamera("persp", 4, "top", 0), -1);
    EXPECT_THAT(errors(),
                ElementsAre("[Lumisketch2] Camera does not exist: nonesuch", "[Lumisketch2] Invalid layer: persp (4)"));
    EXPECT_EQ(stack("persp"), QString("B*"));
}

TEST_F(LayerManagerTest, ActivatingMovesTheMarkAndTheCurrentCamera)
{
    addLayers("persp", {"A", "B", "C"});
    addLayers("top", {"D", "E"});
    EXPECT_TRUE(drawing.setActiveLayer("top", 1, false));
    EXPECT_EQ(stack("top"), QString("D E*"));
    EXPECT_EQ(drawing.currentCamera(), QString("persp"));
    EXPECT_TRUE(drawing.setActiveLayer("top", 0, true));
    EXPECT_EQ(drawing.currentCamera(), QString("top"));
    EXPECT_EQ(drawing.previousCamera(), QString("persp"));

    EXPECT_FALSE(drawing.setActiveLayer("persp", 3, true));
    EXPECT_FALSE(drawing.setActiveLayer("persp", -1, true));
    EXPECT_TRUE(drawing.setActiveLayer("none", -1, false));
    EXPECT_THAT(errors(), ElementsAre("[Lumisketch2] Invalid layer index: 3", "[Lumisketch2] Invalid layer index: -1"));
    EXPECT_EQ(stack("persp"), QString("A* B C"));
    EXPECT_EQ(drawing.currentCamera(), QString("top"));
}

TEST_F(LayerManagerTest, FollowsTheActiveView)
{
    addLayers("persp", {"A"});
    drawing.syncCurrentCamera();
    EXPECT_EQ(drawing.currentCamera(), QString("persp"));
    KnownViews views;
    drawing.syncCurrentCamera();
    EXPECT_EQ(drawing.currentCamera(), QString("persp")) << "a host without a view";
    views.camera = "top";
    drawing.syncCurrentCamera();
    drawing.syncCurrentCamera();
    EXPECT_EQ(drawing.currentCamera(), QString("top"));
    EXPECT_EQ(drawing.previousCamera(), QString("persp"));
}

TEST_F(LayerManagerTest, OnlyTheMasterPublishes)
{
    ListedLayers list;
    addLayers("persp", {"A", "B"});
    EXPECT_THAT(list.rows, IsEmpty());
    drawing.setMaster(true);
    addLayers("Cam", {"C"});
    EXPECT_EQ(list.rows,
              (QStringList{"clear", "Cam 0 C 0 1", "persp 0 A 0 1", "persp 1 B 0 1", "select persp 0", "refresh"}));
    drawing.setLayerVisible("persp", 1, false);
    drawing.setLayerState("persp", 1, kLayerLocked);
    EXPECT_EQ(list.rows.value(3), QString("persp 1 B 2 0"));
    drawing.setCurrentCamera("side");
    EXPECT_EQ(list.rows.value(4), QString("select side -1"));
    list.rows.clear();
    drawing.clear(false);
    EXPECT_THAT(list.rows, IsEmpty());
    drawing.clear(true);
    EXPECT_EQ(list.rows, (QStringList{"clear", "select side -1", "refresh"}));
}

TEST_F(LayerManagerTest, TellsOfTheOpacityThatTheOptionsShow)
{
    KnownViews views;
    addLayers("persp", {"A", "B"});
    addLayers("top", {"C"});
    drawing.setLayerOpacity("persp", 1, 0.5f);
    drawing.setLayerOpacity("top", 0, 0.5f);
    EXPECT_EQ(views.opacities, 0);
    drawing.setLayerOpacity("persp", 0, 7.0f);
    EXPECT_EQ(views.opacities, 1);
    EXPECT_EQ(drawing.layerOpacity("persp", 0), 1.0f);
}

TEST_F(LayerManagerTest, WithoutAnActiveLayerFrameOperationsRefuse)
{
    const MTime time = timeOfFrame(3);
    EXPECT_EQ(drawing.addFrame("persp", time), -1);
    EXPECT_EQ(drawing.addFrameAtCurrentTime("persp"), -1);
    EXPECT_EQ(drawing.insertFrame("persp", std::make_unique<Frame>(time)), -1);
    EXPECT_EQ(drawing.copyFrame("persp", time), nullptr);
    EXPECT_EQ(drawing.takeFrame("persp", time), nullptr);
    EXPECT_EQ(drawing.takeFrameAtCurrentTime("persp"), nullptr);
    EXPECT_EQ(drawing.nextFrame("persp", true), nullptr);
    EXPECT_EQ(drawing.previousFrame("persp", true), nullptr);
    EXPECT_EQ(drawing.frameNumbers("persp"), QList<int>());
    EXPECT_FALSE(drawing.hasFrameAtCurrentTime("persp"));
    EXPECT_EQ(drawing.layerName("persp", 0), QString());
    EXPECT_EQ(drawing.layerOpacity("persp", 0), 0.0f);
    EXPECT_FALSE(drawing.layerVisible("persp", 0));
}

TEST_F(LayerManagerTest, FrameOperationsGoToTheActiveLayer)
{
    addLayer("persp", "A", {1});
    addLayer("persp", "B", {4, 8});
    drawing.setActiveLayer("persp", 1, true);
    EXPECT_EQ(drawing.frameNumbers("persp"), (QList<int>{4, 8}));
    EXPECT_EQ(drawing.addFrame("persp", timeOfFrame(6)), 1);
    drawing.retime("persp", {5, 6, 7});
    EXPECT_EQ(drawing.frameNumbers("persp"), (QList<int>{5, 6, 7}));
    EXPECT_EQ(drawing.layer("persp", 0)->frameNumbers(), (QList<int>{1}));
}

TEST_F(LayerManagerTest, ATimeChangeMayLeaveTheActiveLayerOfTheCurrentCamera)
{
    addLayer("persp", "A", {1, 5});
    addLayer("persp", "B", {1, 5});
    addLayer("top", "C", {1, 5});
    goTo(1);
    drawing.updateCurrentFrames(6, true);
    EXPECT_EQ(drawing.layer("persp", 0)->currentFrame()->frameNumber(), 1);
    EXPECT_EQ(drawing.layer("persp", 1)->currentFrame()->frameNumber(), 5);
    EXPECT_EQ(drawing.layer("top", 0)->currentFrame()->frameNumber(), 5);
    drawing.updateCurrentFrames(6, false);
    EXPECT_EQ(drawing.layer("persp", 0)->currentFrame()->frameNumber(), 5);
}

}  // namespace
