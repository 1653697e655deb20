// Tools whose drawing leaves the scene, or changes, while a stroke is open or a region floats.

#include "support/ToolFixture.h"

#include "contexts/DrawContextCommand.h"
#include "contexts/ThreadManager.h"
#include "contexts/TransformContext.h"
#include "contexts/TransformContextCommand.h"
#include "model/Canvas.h"

#include <QCursor>

#include <functional>

#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LetGo : public ToolFixture {
protected:
    LetGo()
    {
        EXPECT_TRUE(m_plugin.registerContextCommand(names::kDrawContextCommand, DrawContextCommand::creator));
        EXPECT_TRUE(m_plugin.registerContextCommand(names::kTransformContextCommand, TransformContextCommand::creator));
        for (const char* command : {names::kUtilCommand, names::kNodeCommand}) {
            session().commands.add(command, [](const kernel::ValueList&) { return kernel::Value(); });
        }
        run("tqLmDrawCtx drawTool; tqLmTransformCtx transformTool; setToolTo drawTool");
        QCursor::setPos(views.persp().widget()->mapToGlobal(QPoint(100, 100)));
    }
    ~LetGo() override
    {
        run("setToolTo selectSuperContext");
        ThreadManager::destroy();
    }

    void drag() { send(api::ToolEvent::Kind::Drag, {140, 120}); }
    static TransformContext& transformTool()
    {
        return static_cast<TransformContext&>(*api::ToolBox::instance().current());
    }
    static std::string nameOf(const BaseNode& node) { return MFnDependencyNode(node.thisMObject()).name().asChar(); }
    static std::string parentOf(const BaseNode& node)
    {
        return MFnDependencyNode(MFnDagNode(node.thisMObject()).parent(0)).name().asChar();
    }

    /// How the drawing node may leave the scene and come back into it. The last step of the queue is its creation.
    struct Way {
        const char* name;
        std::string go;
        std::string comeBack;
    };
    std::vector<Way> waysToGo()
    {
        return {{"deleted", "delete " + parentOf(node()), "undo"},
                {"its shape deleted", "delete " + nameOf(node()), "undo"},
                {"its creation undone", "undo", "redo"}};
    }
    /// What may be the next that a tool hears of.
    struct Event {
        const char* name;
        std::function<void()> send;
    };
    const std::vector<Event> kPointerEvents = {
        {"a drag", [this] { drag(); }},
        {"the release", [this] { release(); }},
        {"another press", [this] { press(); }},
        {"leaving the tool", [this] { run("setToolTo selectSuperContext"); }},
    };

    void drawInk()
    {
        drawing().insertLayer("persp", -1, "Ink");
        drawing().addFrameAtCurrentTime("persp");
        QImage ink = blankCanvas();
        ink.setPixelColor(200, 200, Qt::red);
        drawing().activeLayer("persp")->setCurrentImage(ink);
    }
    void floatAll()
    {
        run("setToolTo transformTool");
        transformTool().transform(false);
    }
    void pasteAtAnotherTime()
    {
        run("setToolTo transformTool");
        transformTool().copy();
        goTo(7);
        transformTool().pasteAndTransform(QPoint(10, 10));
        ASSERT_TRUE(transformTool().isTransforming());
    }
    void selectSome()
    {
        run("setToolTo transformTool");
        press();
        drag();
    }
};

TEST_F(LetGo, AStrokeWhoseNodeGoesLeavesNothingThatCouldComeBackWithIt)
{
    for (const bool hasLayer : {false, true}) {
        if (hasLayer) {
            drawing().insertLayer("persp", -1, "Ink");
            drawing().addFrame("persp", timeOfFrame(-3));
        }
        const QString before = describeDrawing();
        for (const Way& way : waysToGo()) {
            for (const Event& event : kPointerEvents) {
                SCOPED_TRACE(std::string(way.name) + ", then " + event.name + (hasLayer ? ", on a layer" : ""));
                run("setToolTo drawTool");
                const std::shared_ptr<LayerManager> manager = node().layerManager();
                press();
                ASSERT_TRUE(manager->hasStroke());
                ASSERT_NE(describe(*manager), before) << "a frame is made for the stroke";
                run(way.go);
                ASSERT_EQ(BaseNode::masterNode(), nullptr);
                event.send();
                EXPECT_FALSE(ThreadManager::instance().isRunning());
                EXPECT_FALSE(manager->hasStroke());
                EXPECT_EQ(describe(*manager), before);
                release();
                run(way.comeBack);
                ASSERT_NE(BaseNode::masterNode(), nullptr);
                EXPECT_EQ(describeDrawing(), before);
            }
        }
    }
    EXPECT_THAT(commits, IsEmpty());
    EXPECT_THAT(errors(), IsEmpty());
    run("setToolTo drawTool");
    press();
    release();
    EXPECT_THAT(commits, ElementsAre("-fa persp"));
}

TEST_F(LetGo, AStrokeWhoseNodeIsBackBeforeThePointerMovesGoesOn)
{
    for (const Way& way : waysToGo()) {
        press();
        run(way.go);
        run(way.comeBack);
        release();
    }
    EXPECT_THAT(commits, ElementsAre("-la 0 -fa persp", "persp", "persp"));
}

TEST_F(LetGo, WhatFloatsOrIsSelectedLeavesNothingThatCouldComeBackWithTheNode)
{
    drawInk();
    const QString before = describeDrawing();
    const struct {
        Event begin;
        bool isHeld;
    } states[] = {{{"a region floats", [this] { floatAll(); }}, false},
                  {{"a region is dragged",
                    [this] {
                        floatAll();
                        press();
                        drag();
                    }},
                   true},
                  {{"a paste floats", [this] { pasteAtAnotherTime(); }}, false},
                  {{"a region is selected", [this] { selectSome(); }}, true}};
    const struct {
        Event event;
        bool needsPress;
    } ends[] = {
        {{"a drag", [this] { drag(); }}, true},
        {{"another press", [this] { press(); }}, false},
        {{"leaving the tool", [this] { run("setToolTo selectSuperContext"); }}, false},
        {{"Enter", [] { api::ToolBox::instance().complete(); }}, false},
        {{"Backspace", [] { api::ToolBox::instance().deleteAction(); }}, false},
        {{"Escape", [] { api::ToolBox::instance().abort(); }}, false},
    };
    for (const Way& way : waysToGo()) {
        for (const auto& state : states) {
            for (const auto& end : ends) {
                if (end.needsPress && !state.isHeld) {
                    continue;
                }
                SCOPED_TRACE(std::string(way.name) + " while " + state.begin.name + ", then " + end.event.name);
                state.begin.send();
                ASSERT_FALSE(node().regionOutline().camera.isEmpty());
                run(way.go);
                ASSERT_EQ(BaseNode::masterNode(), nullptr);
                end.event.send();
                run(way.comeBack);
                ASSERT_NE(BaseNode::masterNode(), nullptr);
                goTo(1);
                EXPECT_FALSE(drawing().hasStroke());
                EXPECT_EQ(describeDrawing(), before);
                EXPECT_TRUE(node().regionOutline().camera.isEmpty());
                release();
                run("setToolTo selectSuperContext");
            }
        }
    }
    EXPECT_THAT(commits, IsEmpty());
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(LetGo, OfTwoNodesOnlyTheOneThatIsDrawnOnMatters)
{
    BaseNode& first = node();
    ASSERT_TRUE(run("createNode tqLumisketch"));
    ASSERT_EQ(BaseNode::allNodes().size(), 2u);
    BaseNode& second = *BaseNode::allNodes()[1];
    press();
    run("delete " + parentOf(second));
    drag();
    release();
    EXPECT_THAT(commits, ElementsAre("-la 0 -fa persp"));
    run("undo");

    const QString before = describeDrawing();
    goTo(4);
    press();
    run("delete " + parentOf(first));
    drag();
    release();
    press();
    release();
    EXPECT_EQ(commits.size(), 1u) << "the other node is not the scene's primary one";
    EXPECT_EQ(second.layerManager()->totalLayerCount(), 0);
    run("undo");
    goTo(1);
    EXPECT_EQ(describeDrawing(), before);
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(LetGo, AStrokeIsNotCommittedToAnotherNodeThatTookOver)
{
    drawInk();
    BaseNode& first = node();
    ASSERT_TRUE(run("createNode tqLumisketch; createNode transform -n below"));
    BaseNode& second = *BaseNode::allNodes()[1];
    const QString before = describe(*first.layerManager());
    const Event begins[] = {{"a stroke",
                             [this] {
                                 run("setToolTo drawTool");
                                 goTo(9);
                                 press();
                             }},
                            {"a paste", [this] { pasteAtAnotherTime(); }}};
    for (const Event& begin : begins) {
        SCOPED_TRACE(begin.name);
        begin.send();
        second.layerManager()->setMaster(true);
        ASSERT_TRUE(run("parent " + parentOf(first) + " below"));  // behind the other one
        ASSERT_EQ(BaseNode::masterNode(), &second);
        release();
        api::ToolBox::instance().complete();
        EXPECT_FALSE(first.layerManager()->hasStroke());
        run("undo");
        second.layerManager()->setMaster(false);
        goTo(1);
        EXPECT_EQ(describe(*first.layerManager()), before);
    }
    EXPECT_THAT(commits, IsEmpty());
    EXPECT_EQ(second.layerManager()->totalLayerCount(), 0);
}

TEST_F(LetGo, AStepThatMeetsAStrokeTakesItBackOnlyWhereSomethingWasMadeForIt)
{
    press();
    node().withdrawMadeStroke();
    EXPECT_EQ(drawing().totalLayerCount(), 0);
    release();
    EXPECT_THAT(commits, IsEmpty());

    drawInk();
    press();
    node().withdrawMadeStroke();
    release();
    EXPECT_THAT(commits, ElementsAre("persp"));
}

TEST_F(LetGo, TheLayerMadeForAStrokeIsTheOneThatIsCommittedOrTakenBackWhereverItHasMoved)
{
    for (const bool refused : {false, true}) {
        refuseCommits = refused;
        press();
        drawing().insertLayer("persp", 0, "Below");
        release();
        EXPECT_EQ(commits.back(), "-la 1 -fa persp");
        EXPECT_EQ(drawing().layerCount("persp"), refused ? 1 : 2);
        EXPECT_EQ(drawing().layerName("persp", 0), "Below");
        drawing().takeAllLayers("persp");
    }
}

TEST_F(LetGo, AStrokeStaysWithTheCameraItBeganOnWhateverTheViewShowsThen)
{
    const Event changes[] = {
        {"another view is active", [this] { views.activate(views.top()); }},
        {"resized", [this] { views.persp().widget()->resize(300, 200); }},
    };
    std::size_t strokes = 0;
    for (const Event& change : changes) {
        SCOPED_TRACE(change.name);
        press();
        change.send();
        drag();
        release();
        EXPECT_EQ(commits.size(), ++strokes);
        EXPECT_EQ(drawing().cameras(), QStringList{"persp"});
        EXPECT_FALSE(drawing().hasStroke());
        views.activate(views.persp());
    }
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(LetGo, AnotherSceneEndsWhatIsOpenAndTheToolsWorkInIt)
{
    const std::string file = prefsDir().toStdString() + "/other.ma";
    drawInk();
    ASSERT_TRUE(run("file -rename \"" + file + "\"; file -save -type mayaAscii"));
    const QString saved = describeDrawing();
    const Event begins[] = {{"a stroke",
                             [this] {
                                 run("setToolTo drawTool");
                                 goTo(5);
                                 press();
                             }},
                            {"a region", [this] { floatAll(); }},
                            {"a paste", [this] { pasteAtAnotherTime(); }}};
    for (const Event& begin : begins) {
        for (const char* scene : {"-new", "-open"}) {
            SCOPED_TRACE(std::string(begin.name) + ", file " + scene);
            begin.send();
            const std::weak_ptr<LayerManager> old = node().layerManager();
            const std::string named = scene == std::string("-open") ? " \"" + file + "\"" : std::string();
            ASSERT_TRUE(run(std::string("file -force ") + scene + named));
            EXPECT_TRUE(old.expired());
            drag();
            release();
            EXPECT_THAT(commits, IsEmpty());
            EXPECT_EQ(BaseNode::allNodes().size(), named.empty() ? 0u : 1u);
            ASSERT_TRUE(run("file -force -open \"" + file + "\""));
            goTo(1);
            EXPECT_EQ(describeDrawing(), saved);
        }
    }
    run("setToolTo drawTool");
    press();
    release();
    EXPECT_THAT(commits, ElementsAre("persp"));
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(LetGo, FilesThatComeAndGoBesideAStrokeLeaveItAlone)
{
    const std::string file = prefsDir().toStdString() + "/other.ma";
    drawInk();
    ASSERT_TRUE(run("file -rename \"" + file + "\"; file -save -type mayaAscii; file -force -new"));
    node();
    press();
    ASSERT_TRUE(run("file -reference -namespace ref \"" + file + "\""));
    drag();
    ASSERT_TRUE(run("file -removeReference \"" + file + "\""));
    drag();
    ASSERT_TRUE(run("file -import \"" + file + "\""));
    drag();
    release();
    EXPECT_THAT(commits, ElementsAre("-la 0 -fa persp"));
    EXPECT_EQ(drawing().totalLayerCount(), 1);
    EXPECT_THAT(errors(), IsEmpty());
}

}  // namespace
