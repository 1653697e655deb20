#include "support/NodeFixture.h"

#include "commands/NodeCommand.h"
#include "model/LayerListView.h"

namespace {

using testing::IsEmpty;

/// Stands in for the command that refreshes the panel.
struct PanelRefresh : MPxCommand {
    static void* creator() { return new PanelRefresh; }
    static MSyntax newSyntax()
    {
        MSyntax syntax;
        syntax.addFlag("-rlm", "-refreshLayerManager");
        return syntax;
    }
    MStatus doIt(const MArgList&) override
    {
        ++s_count;
        return MStatus::kSuccess;
    }

    static int s_count;
};

int PanelRefresh::s_count = 0;

class NodeCommandTest : public NodeFixture {
protected:
    NodeCommandTest()
    {
        addCommand(names::kNodeCommand, NodeCommand::creator, NodeCommand::newSyntax);
        addCommand(names::kUtilCommand, PanelRefresh::creator, PanelRefresh::newSyntax);
        PanelRefresh::s_count = 0;
    }

    bool command(const std::string& arguments) { return run("tqLumisketchNode " + arguments); }
    bool exists(const std::string& name) { return evaluate("objExists \"" + name + "\"") == kernel::Value(1); }
    std::string selection() { return kernel::toText(evaluate("ls -sl")); }
    void expectLockedTransform()
    {
        for (const char* name : {"translateX", "translateY", "translateZ", "rotateX", "rotateY", "rotateZ", "scaleX",
                                 "scaleY", "scaleZ"}) {
            const std::string channel = std::string(" lumisketch.") + name;
            EXPECT_EQ(evaluate("getAttr -lock" + channel), kernel::Value(1)) << name;
            EXPECT_EQ(evaluate("getAttr -keyable" + channel), kernel::Value(0)) << name;
            EXPECT_EQ(evaluate("getAttr -channelBox" + channel), kernel::Value(0)) << name;
        }
    }
};

TEST_F(NodeCommandTest, MakesANodeOfTheScenesOwnBesideAReferencedOne)
{
    QTemporaryDir folder;
    const std::string path = folder.filePath("ref.ma").toStdString();
    ASSERT_TRUE(command("-layer -camera persp -layerName Theirs"));
    ASSERT_TRUE(run("file -rename \"" + path + "\"; file -save -type \"mayaAscii\"; file -new"));
    ASSERT_TRUE(run("file -reference -namespace ref \"" + path + "\""));
    ASSERT_TRUE(exists("ref:lumisketchShape"));
    EXPECT_EQ(evaluate("tqLumisketchNode -exists"), kernel::Value(0));
    ASSERT_TRUE(command("-layer -camera persp -layerName Mine"));
    EXPECT_TRUE(exists("|lumisketch|lumisketchShape"));
    EXPECT_EQ(drawing().layerName("persp", 0), "Mine");
    run("undo");
    EXPECT_FALSE(exists("lumisketchShape"));
    EXPECT_TRUE(exists("ref:lumisketchShape"));
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(NodeCommandTest, MakesTheOneDrawingNodeOfAScene)
{
    EXPECT_EQ(evaluate("tqLumisketchNode -exists"), kernel::Value(0));
    ASSERT_TRUE(command(""));
    EXPECT_TRUE(exists("|lumisketch|lumisketchShape"));
    EXPECT_EQ(evaluate("tqLumisketchNode -exists"), kernel::Value(1));
    EXPECT_EQ(drawing().totalLayerCount(), 0);
    EXPECT_TRUE(node().isMaster());
    expectLockedTransform();

    EXPECT_FALSE(command(""));
    EXPECT_THAT(errors(), testing::Contains("[Lumisketch2] Node already exists"));
    EXPECT_EQ(BaseNode::allNodes().size(), 1u);
}

TEST_F(NodeCommandTest, LeavesNoNodeBehindThatGetsNoDrawing)
{
    const unsigned steps = session().undo.count();
    {
        const kernel::Scene::Activity reading(session().scene, kernel::FileActivity::Open);
        EXPECT_FALSE(command("-l -c persp"));
    }
    EXPECT_THAT(errors(), testing::Contains("[Lumisketch2] Failed to create drawing"));
    EXPECT_FALSE(exists("lumisketch"));
    EXPECT_TRUE(BaseNode::allNodes().empty());
    EXPECT_EQ(session().undo.count(), steps);
    EXPECT_TRUE(command("-l -c persp"));
}

TEST_F(NodeCommandTest, UndoAndRedoRestoreSelectionAndLocksButNotTheFirstLayer)
{
    run("createNode transform -n other");
    ASSERT_EQ(selection(), "other");
    ASSERT_TRUE(command("-l -c persp -ln Ink"));
    EXPECT_EQ(selection(), "");
    EXPECT_EQ(drawing().layerName("persp", 0), "Ink");
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(PanelRefresh::s_count, round + 1) << "on every run, when the host is idle";
        run("undo");
        EXPECT_EQ(BaseNode::masterNode(), nullptr);
        EXPECT_FALSE(exists("lumisketch"));
        EXPECT_EQ(selection(), "other");
        run("redo");
        ASSERT_NE(BaseNode::masterNode(), nullptr);
        EXPECT_TRUE(exists("|lumisketch|lumisketchShape"));
        EXPECT_EQ(drawing().totalLayerCount(), 0);
        EXPECT_TRUE(node().isMaster());
        EXPECT_EQ(selection(), "");
        expectLockedTransform();
    }
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(NodeCommandTest, RedoLeavesNoStrokeOnTheEmptyNode)
{
    ASSERT_TRUE(command("-l -c persp -f"));
    ASSERT_NE(drawing().beginStroke("persp", false), nullptr);
    run("undo");
    run("redo");
    EXPECT_FALSE(drawing().hasStroke());
}

TEST_F(NodeCommandTest, GivesTheCameraAFirstLayerAsTheFlagsSay)
{
    const struct {
        const char* flags;
        const char* name;
        int state;
        QList<int> keys;
    } cases[] = {
        {"-l -c persp", "Layer", kLayerAnim, {}},
        {"-l -c persp -ln \"Two words\"", "Two words", kLayerAnim, {}},
        {"-l -c persp -ls 1", "Layer", kLayerStatic, {}},
        {"-layer -camera persp -layerName Ink -layerState 2 -frame", "Ink", kLayerLocked, {10, 11, 12, 13, 14}},
        {"-l -c persp -ls 7", "Layer", kLayerAnim, {}},
    };
    for (const auto& c : cases) {
        run("file -f -new");
        session().scene.highlightSliderRange({10, 15});
        ASSERT_TRUE(command(c.flags)) << c.flags;
        ASSERT_EQ(drawing().layerCount("persp"), 1) << c.flags;
        EXPECT_EQ(drawing().layerName("persp", 0), c.name) << c.flags;
        EXPECT_EQ(drawing().layerState("persp", 0), c.state) << c.flags;
        EXPECT_EQ(drawing().frameNumbers("persp"), c.keys) << c.flags;
        EXPECT_EQ(evaluate("tqLumisketchNode -q -c"), kernel::Value(std::string("persp"))) << c.flags;
    }
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(NodeCommandTest, GivesTheFirstLayerNamesThatASavedSceneCanHold)
{
    ASSERT_TRUE(command("-l -c \"a\\\"cam\" -ln \"b\\\\c\\nd\" -ls 2 -f"));
    EXPECT_EQ(drawing().cameras(), QStringList{"a'cam"});
    EXPECT_EQ(drawing().layerName("a'cam", 0), "b/cd");
    EXPECT_EQ(drawing().layerState("a'cam", 0), kLayerLocked);
    EXPECT_EQ(drawing().frameNumbers("a'cam").size(), 1);
}

TEST_F(NodeCommandTest, KeysTheCurrentFrameWhenNothingIsHighlighted)
{
    goTo(6);
    ASSERT_TRUE(command("-l -c persp -f"));
    EXPECT_EQ(drawing().frameNumbers("persp"), QList<int>{6});
}

TEST_F(NodeCommandTest, WithoutALayerTheOtherFlagsMeanNothing)
{
    ASSERT_TRUE(command("-f -ln Ink -ls 1 -c persp"));
    EXPECT_EQ(drawing().totalLayerCount(), 0);
}

TEST_F(NodeCommandTest, TheFirstModeInOrderOfPrecedenceIsTaken)
{
    EXPECT_EQ(evaluate("tqLumisketchNode -rg -r -ex"), kernel::Value(0)) << "-refresh fails without a node";
    ASSERT_TRUE(command("-l -c persp"));
    struct List : LayerListView {
        void clear() override { ++cleared; }
        void addRow(const QString&, int, const QString&, int, bool) override {}
        void select(const QString&, int) override {}
        void refresh() override {}
        int cleared = 0;
    } list;
    LayerManager::setLayerListView(&list);
    EXPECT_TRUE(command("-rg"));
    EXPECT_EQ(list.cleared, 0);
    EXPECT_TRUE(command("-rg -r"));
    EXPECT_EQ(list.cleared, 1);
}

TEST_F(NodeCommandTest, RefreshesHaveTheDrawingComposedAnewAsItIsAtTheScenesTime)
{
    ASSERT_TRUE(command("-l -c persp"));
    drawing().insertLayer("top", -1, "X");
    drawing().addFrame("top", timeOfFrame(1));
    const struct {
        const char* flag;
        bool redrawsOthers;  // than the current camera
        int shown;           // index of top's frame afterwards
    } cases[] = {{"-rg", false, -1}, {"-r", true, 0}};
    for (const auto& c : cases) {
        drawing().updateCurrentFrames(0, false);
        drawing().composite("persp");
        drawing().composite("top");
        EXPECT_TRUE(command(c.flag));
        EXPECT_TRUE(drawing().needsRedraw("persp")) << c.flag;
        EXPECT_EQ(drawing().needsRedraw("top"), c.redrawsOthers) << c.flag;
        EXPECT_EQ(drawing().activeLayer("top")->currentFrameIndex(), c.shown) << c.flag;
    }
}

}  // namespace
