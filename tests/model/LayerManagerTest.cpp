#include "model/DrawingViews.h"
#include "model/LayerListView.h"
#include "support/DrawingFixture.h"

#include <functional>

namespace {

using testing::IsEmpty;

class LayerManagerTest : public DrawingFixture {
protected:
    struct Step {
        std::function<int()> run;
        int result;
        const char* stacks;   // every camera's layers, bottom first; those marked active are starred
        const char* cameras;  // the current one, and the one before
    };

    void follow(const std::vector<Step>& steps)
    {
        int number = 0;
        for (const Step& step : steps) {
            SCOPED_TRACE("step " + std::to_string(++number));
            EXPECT_EQ(step.run(), step.result);
            EXPECT_EQ(stacks(), QString(step.stacks));
            EXPECT_EQ(drawing.currentCamera() + " < " + drawing.previousCamera(), QString(step.cameras));
        }
        EXPECT_THAT(errors(), IsEmpty());
    }

    QString stacks() const
    {
        QStringList list;
        for (const QString& camera : drawing.cameras()) {
            list << camera + ": " + stack(camera);
        }
        return list.join("; ");
    }

    QString stack(const QString& camera) const
    {
        QStringList list;
        for (int i = 0; i < drawing.layerCount(camera); ++i) {
            list << drawing.layerName(camera, i) + (drawing.layer(camera, i)->isActive() ? "*" : "");
        }
        return list.join(' ');
    }

    void addLayers(const QString& camera, const QStringList& layers)
    {
        for (const QString& name : layers) {
            drawing.insertLayer(camera, -1, name);
        }
    }

    int insert(const char* camera, int index, const char* name) { return drawing.insertLayer(camera, index, name); }
    int take(const char* camera, int index) { return drawing.takeLayer(camera, index) ? 1 : 0; }
    int takeAll(const char* camera) { return static_cast<int>(drawing.takeAllLayers(camera).size()); }
    int activate(const char* camera, int index, bool makeCurrent)
    {
        return drawing.setActiveLayer(camera, index, makeCurrent) ? 1 : 0;
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
    follow({
        {[&] { return insert("persp", 5, "A"); }, 0, "persp: A*", "persp < "},
        {[&] { return insert("top", -1, "B"); }, 0, "persp: A*; top: B*", "persp < "},
        {[&] { return insert("persp", 0, "C"); }, 0, "persp: C A*; top: B*", "persp < "},
        {[&] { return insert("persp", 1, "D"); }, 1, "persp: C D A*; top: B*", "persp < "},
        {[&] { return insert("persp", 3, "E"); }, 3, "persp: C D A* E; top: B*", "persp < "},
        {[&] { return insert("top", -7, "F"); }, 1, "persp: C D A* E; top: B* F", "persp < "},
        {[&] { return insert("Cam", 0, "G"); }, 0, "Cam: G*; persp: C D A* E; top: B* F", "persp < "},
    });
    EXPECT_EQ(drawing.totalLayerCount(), 7);
}

TEST_F(LayerManagerTest, NamesAreUniqueAcrossCamerasAndAlwaysNumberedOnLayer)
{
    enum { kNew = -1, kHandedIn = -2 };
    const struct {
        const char* camera;
        int target;  // a layer to rename, or kNew or kHandedIn for one more at the end
        const char* asked;
        const char* given;
    } steps[] = {
        {"persp", kNew, "", "Layer"},
        {"persp", kNew, "", "Layer 1"},
        {"top", kNew, "Sky", "Sky"},
        {"persp", kNew, "Sky", "Layer 2"},
        {"top", kNew, "Layer 4", "Layer 4"},
        {"top", kNew, "Layer", "Layer 3"},
        {"top", kNew, "Layer 1", "Layer 5"},
        {"top", kNew, "sky", "sky"},
        {"top", kNew, "a\"b\\c\nd", "a'b/cd"},
        {"top", kNew, "a\"b\\c\nd", "Layer 6"},
        {"top", kNew, "\n\t", "Layer 7"},
        {"persp", kHandedIn, "Sky", "Sky"},
        {"side", kHandedIn, "", ""},
        {"persp", 0, "Layer", "Layer"},
        {"persp", 0, "Ground", "Ground"},
        {"persp", kNew, "", "Layer"},
        {"persp", 0, "Sky", "Layer 8"},
        {"persp", 0, "Layer 1", "Layer 9"},  // its own number counts as taken until it has another
        {"persp", 0, "Layer 8", "Layer 8"},
        {"persp", 0, "", "Layer 9"},
        {"persp", 3, "Sky", "Sky"},
        {"top", 6, "a\"b\\c\nd", "Layer 8"},
        {"top", 5, "a\"b\\c\nd", "a'b/cd"},
    };
    for (const auto& step : steps) {
        int index = step.target;
        if (index == kNew) {
            index = drawing.insertLayer(step.camera, -1, QString(step.asked));
        } else if (index == kHandedIn) {
            index = addLayer(step.camera, step.asked, {});
        } else {
            drawing.renameLayer(step.camera, index, step.asked);
        }
        EXPECT_EQ(drawing.layerName(step.camera, index), QString(step.given)) << step.camera << " " << step.asked;
    }
    const QString before = stacks();
    drawing.renameLayer("persp", 7, "New");
    drawing.renameLayer("none", 0, "New");
    EXPECT_EQ(stacks(), before);
}

TEST_F(LayerManagerTest, NewLayersHaveTheDefaultStateHandedInOnesKeepTheirs)
{
    Preferences::instance().setDefaultLayerState(kLayerStatic);
    addLayers("persp", {"A"});
    addLayer("persp", "B", {1});
    EXPECT_EQ(drawing.layerState("persp", 0), kLayerStatic);
    EXPECT_EQ(drawing.layerState("persp", 1), kLayerAnim);
    EXPECT_EQ(drawing.insertLayer("persp", -1, std::unique_ptr<Layer>()), -1);
}

TEST_F(LayerManagerTest, TakingALayerPassesTheActiveMarkOn)
{
    const struct {
        int active;
        int taken;
        const char* left;
    } cases[] = {{0, 0, "B* C"}, {0, 1, "A* C"}, {0, 2, "A* B"}, {1, 0, "B* C"}, {1, 1, "A* C"},
                 {1, 2, "A B*"}, {2, 0, "B C*"}, {2, 1, "A C*"}, {2, 2, "A B*"}};
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

TEST_F(LayerManagerTest, ACameraGoesWithItsLastLayerAndStaysCurrentUntilAFirstLayerOfAllComes)
{
    addLayers("persp", {"A", "B"});
    addLayers("top", {"C"});
    follow({
        {[&] { return take("persp", 0); }, 1, "persp: B*; top: C*", "persp < "},
        {[&] { return take("persp", 0); }, 1, "top: C*", "persp < "},
        {[&] { return insert("persp", -1, "D"); }, 0, "persp: D*; top: C*", "persp < "},
        {[&] { return take("top", 0); }, 1, "persp: D*", "persp < "},
        {[&] { return take("persp", 0); }, 1, "", "persp < "},
        {[&] { return take("persp", 0); }, 0, "", "persp < "},
        {[&] { return insert("top", -1, "E"); }, 0, "top: E*", "top < persp"},
        {[&] { return insert("persp", -1, "F"); }, 0, "persp: F*; top: E*", "top < persp"},
        {[&] { return takeAll("top"); }, 1, "persp: F*", "top < persp"},
        {[&] { return takeAll("top"); }, 0, "persp: F*", "top < persp"},
        {[&] { return insert("persp", 0, "G"); }, 0, "persp: G F*", "top < persp"},
        {[&] { return takeAll("persp"); }, 2, "", "top < persp"},
        {[&] { return insert("top", -1, "H"); }, 0, "top: H*", "top < persp"},
    });
}

TEST_F(LayerManagerTest, ATakenLayerComesBackAsTheSameOne)
{
    addLayers("persp", {"A"});
    EXPECT_NE(drawing.composite("persp"), nullptr);
    std::unique_ptr<Layer> layer = drawing.takeLayer("persp", 0);
    EXPECT_EQ(drawing.composite("persp"), nullptr);
    const Layer* address = layer.get();
    EXPECT_EQ(drawing.insertLayer("persp", 3, std::move(layer)), 0);
    EXPECT_EQ(drawing.layer("persp", 0), address);
    addLayers("persp", {"B", "C"});
    const auto taken = drawing.takeAllLayers("persp");
    ASSERT_EQ(taken.size(), 3u);
    EXPECT_EQ(taken[0].get(), address);
    EXPECT_EQ(taken[0]->name() + taken[1]->name() + taken[2]->name(), QString("ABC"));
}

TEST_F(LayerManagerTest, ActivatingMovesTheMarkAndTheCurrentCamera)
{
    addLayers("persp", {"A", "B", "C"});
    addLayers("top", {"D", "E"});
    follow({
        {[&] { return activate("top", 1, false); }, 1, "persp: A* B C; top: D E*", "persp < "},
        {[&] { return activate("top", 0, true); }, 1, "persp: A* B C; top: D* E", "top < persp"},
        {[&] { return activate("top", 1, true); }, 1, "persp: A* B C; top: D E*", "top < persp"},
        {[&] { return activate("persp", 2, true); }, 1, "persp: A B C*; top: D E*", "persp < top"},
        {[&] { return activate("none", -1, false); }, 1, "persp: A B C*; top: D E*", "persp < top"},
        {[&] { return activate("none", -1, true); }, 1, "persp: A B C*; top: D E*", "none < persp"},
        {[&] { return insert("none", -1, "F"); }, 0, "none: F*; persp: A B C*; top: D E*", "none < persp"},
        {[&] { return take("persp", 2); }, 1, "none: F*; persp: A B*; top: D E*", "none < persp"},
    });
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

TEST_F(LayerManagerTest, ATimeChangeLeavesTheLayerDrawnOnAndOnRequestTheCurrentCamerasActiveOne)
{
    addLayer("persp", "A", {1, 5});
    addLayer("persp", "B", {1, 5});
    addLayer("top", "C", {1, 5});
    const struct {
        bool skipActive;
        const char* strokeOn;  // the active layer of this camera when the stroke begins; none when empty
        const char* current;
        int active;  // on persp
        const char* shown;
    } cases[] = {
        {false, "", "persp", 0, "5 5 5"},     {true, "", "persp", 0, "1 5 5"},
        {true, "", "persp", 1, "5 1 5"},      {true, "", "top", 0, "5 5 1"},
        {true, "", "side", 0, "5 5 5"},       {false, "persp", "persp", 0, "1 5 5"},
        {true, "persp", "persp", 0, "1 5 5"}, {true, "persp", "persp", 1, "1 1 5"},
        {false, "persp", "top", 1, "1 5 5"},  {false, "top", "persp", 0, "5 5 1"},
        {true, "top", "persp", 1, "5 1 1"},
    };
    for (const auto& c : cases) {
        goTo(1);
        drawing.setActiveLayer("persp", 0, false);
        if (*c.strokeOn) {
            ASSERT_NE(drawing.beginStroke(c.strokeOn, false), nullptr);
        }
        drawing.setActiveLayer("persp", c.active, false);
        drawing.setCurrentCamera(c.current);
        drawing.updateCurrentFrames(6, c.skipActive);
        const auto shown = [&](const char* camera, int index) {
            const Layer& layer = *drawing.layer(camera, index);
            return QString::number(layer.frameNumbers().value(layer.currentFrameIndex()));
        };
        EXPECT_EQ(shown("persp", 0) + ' ' + shown("persp", 1) + ' ' + shown("top", 0), QString(c.shown))
            << (c.skipActive ? "skipping; " : "") << "stroke on " << c.strokeOn << "; current " << c.current
            << "; active " << c.active;
        drawing.dropStroke();
    }
}

}  // namespace
