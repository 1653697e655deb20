#include "api/Registration.h"
#include "api/Tools.h"
#include "support/HostFixture.h"

#include <maya/MGlobal.h>
#include <maya/MPxContextCommand.h>

using api::ToolBox;
using api::ToolEvent;
using testing::ElementsAre;

namespace {

std::vector<std::string>& journal()
{
    static std::vector<std::string> entries;
    return entries;
}

/// A tool that writes down what it hears; the viewport forms answer only while `s_viewport` is on.
class Pen : public MPxContext {
public:
    static bool s_viewport;

    Pen() { setTitleString("Pen"); }
    ~Pen() override { journal().push_back("deleted"); }
    void toolOnSetup(MEvent&) override
    {
        MString current;
        MGlobal::executeCommand("currentCtx", current);
        journal().push_back(std::string("setup ") + current.asUTF8());
        setHelpString("Draw");
    }
    void toolOffCleanup() override { journal().push_back("cleanup"); }

    MStatus doPress(MEvent& event) override
    {
        short x = 0;
        short y = 0;
        event.getPosition(x, y);
        const char* const button = event.mouseButton() == MEvent::kLeftMouse ? " left" : " middle";
        journal().push_back("press " + std::to_string(x) + ' ' + std::to_string(y) + button
                            + (event.isModifierShift() ? " shift" : ""));
        MGlobal::executeCommand("createNode \"transform\" -n \"pressed\"", false, true);
        return MS::kSuccess;
    }
    MStatus doDrag(MEvent&) override
    {
        journal().push_back("drag");
        return MS::kSuccess;
    }
    MStatus doRelease(MEvent&) override
    {
        journal().push_back("release");
        MGlobal::executeCommand("createNode \"transform\" -n \"released\"", false, true);
        return MS::kSuccess;
    }
    MStatus doPress(MEvent& event, MHWRender::MUIDrawManager& manager, const MHWRender::MFrameContext& c) override
    {
        journal().push_back("viewport press");
        return s_viewport ? MS::kSuccess : MPxContext::doPress(event, manager, c);
    }
    void completeAction() override
    {
        journal().push_back("complete");
        MGlobal::executeCommand("setToolTo moveSuperContext");
        MString current;
        MGlobal::executeCommand("currentCtx", current);
        journal().push_back(std::string("still ") + current.asUTF8());
    }
    void abortAction() override { journal().push_back("abort"); }
    void getClassName(MString& name) const override { name = "pen"; }

    int width = 1;
};

bool Pen::s_viewport = false;

class PenCommand : public MPxContextCommand {
public:
    static void* creator() { return new PenCommand; }
    MPxContext* makeObj() override { return m_pen = new Pen; }
    MStatus appendSyntax() override
    {
        MSyntax own = syntax();
        return own.addFlag("-w", "-width", MSyntax::kLong);
    }
    MStatus doEditFlags() override { return parser().getFlagArgument("width", 0, m_pen->width); }
    MStatus doQueryFlags() override { return setResult(m_pen->width); }

private:
    Pen* m_pen = nullptr;
};

class ToolBoxTest : public HostFixture {
protected:
    ToolBoxTest()
    {
        Pen::s_viewport = false;
        session().batch = false;
        api::registerContextCommand(session(), "pens", "penCtx", PenCommand::creator);
        journal().clear();
    }
    ~ToolBoxTest() override { api::deregisterContextCommand(session(), "penCtx"); }

    static void send(ToolEvent::Kind kind, int x = 0, int y = 0)
    {
        ToolEvent event;
        event.kind = kind;
        event.x = x;
        event.y = y;
        event.button = ToolEvent::Button::Left;
        ToolBox::instance().send(event, nullptr, nullptr);
    }
    static std::string current() { return ToolBox::instance().currentName(); }
};

}  // namespace

TEST_F(ToolBoxTest, ContextCommandsMakeAndKeepTools)
{
    EXPECT_EQ(evaluate("penCtx"), kernel::Value(std::string("penCtx1")));
    EXPECT_EQ(evaluate("penCtx mine"), kernel::Value(std::string("mine")));
    EXPECT_EQ(evaluate("penCtx -width 3"), kernel::Value(std::string("penCtx2")));
    EXPECT_FALSE(run("penCtx mine"));

    EXPECT_EQ(evaluate("penCtx -q -width penCtx2"), kernel::Value(3));
    ASSERT_TRUE(run("penCtx -e -width 8 mine"));
    EXPECT_EQ(evaluate("penCtx -q -width mine"), kernel::Value(8));
    EXPECT_EQ(evaluate("penCtx -q -width penCtx1"), kernel::Value(1));
    EXPECT_FALSE(run("penCtx -q -width nobody"));

    EXPECT_EQ(evaluate("penCtx -exists mine"), kernel::Value(1));
    EXPECT_EQ(evaluate("contextInfo -exists penCtx9"), kernel::Value(0));
    EXPECT_EQ(evaluate("contextInfo -exists RotateSuperContext"), kernel::Value(1));
    EXPECT_EQ(evaluate("contextInfo -class mine"), kernel::Value(std::string("pen")));
    EXPECT_EQ(evaluate("contextInfo -title mine"), kernel::Value(std::string("Pen")));
    EXPECT_FALSE(run("contextInfo -title nobody"));
}

TEST_F(ToolBoxTest, LeavesTheOldToolBeforeEnteringTheNew)
{
    ASSERT_TRUE(run("penCtx a; penCtx b; setToolTo a; setToolTo b; setToolTo b; setToolTo selectSuperContext"));
    EXPECT_THAT(journal(), ElementsAre("setup a", "cleanup", "setup b", "cleanup", "setup b", "cleanup"));
    EXPECT_EQ(evaluate("currentCtx"), kernel::Value(std::string("selectSuperContext")));
    EXPECT_FALSE(run("setToolTo nobody"));
    EXPECT_THAT(errors(), testing::Contains(testing::HasSubstr("Cannot find tool context: nobody")));
    EXPECT_EQ(current(), "selectSuperContext");
}

TEST_F(ToolBoxTest, OnePressDragReleaseIsOneUndoStep)
{
    ASSERT_TRUE(run("penCtx a; setToolTo a"));
    session().undo.flush();
    journal().clear();
    send(ToolEvent::Kind::Drag);  // no press came before
    send(ToolEvent::Kind::Press, 3, 4);
    send(ToolEvent::Kind::Drag);
    send(ToolEvent::Kind::Release);
    EXPECT_THAT(journal(), ElementsAre("press 3 4 left", "drag", "release"));
    EXPECT_EQ(session().undo.count(), 1u);
    session().undo.undo();
    EXPECT_FALSE(session().scene.findOrNull("pressed"));
    EXPECT_FALSE(session().scene.findOrNull("released"));
}

TEST_F(ToolBoxTest, ALostReleaseDoesNotSwallowTheNextStep)
{
    ASSERT_TRUE(run("penCtx a; setToolTo a"));
    session().undo.flush();
    send(ToolEvent::Kind::Press);
    send(ToolEvent::Kind::Press);
    send(ToolEvent::Kind::Release);
    EXPECT_EQ(session().undo.count(), 2u);
    send(ToolEvent::Kind::Press);
    ASSERT_TRUE(run("setToolTo selectSuperContext"));
    EXPECT_FALSE(session().undo.isChunkOpen());
    send(ToolEvent::Kind::Release);
    EXPECT_EQ(journal().back(), "cleanup");
}

TEST_F(ToolBoxTest, ViewportFormsComeFirstAndMayPassOn)
{
    api::DrawList list;
    const api::FrameState state;
    const auto manager = api::makeDrawManager(list);
    const auto frame = api::makeFrameContext(state);
    ASSERT_TRUE(run("penCtx a; setToolTo a"));
    journal().clear();
    ToolEvent press;
    press.button = ToolEvent::Button::Middle;
    press.shift = true;
    ToolBox::instance().send(press, manager.get(), frame.get());
    EXPECT_THAT(journal(), ElementsAre("viewport press", "press 0 0 middle shift"));
    Pen::s_viewport = true;
    journal().clear();
    ToolBox::instance().send(press, manager.get(), frame.get());
    EXPECT_THAT(journal(), ElementsAre("viewport press"));
    // the release has no viewport form of its own here
    press.kind = ToolEvent::Kind::Release;
    ToolBox::instance().send(press, manager.get(), frame.get());
    EXPECT_THAT(journal(), ElementsAre("viewport press", "release"));
}

TEST_F(ToolBoxTest, SwitchingFromInsideAToolWaitsForIdle)
{
    ASSERT_TRUE(run("penCtx a; setToolTo a"));
    journal().clear();
    ASSERT_TRUE(run("ctxCompletion"));
    host().drainIdle();
    EXPECT_EQ(current(), "moveSuperContext");
    EXPECT_THAT(journal(), ElementsAre("complete", "still a", "cleanup"));
    ASSERT_TRUE(run("ctxCompletion"));  // a built-in tool does nothing
    EXPECT_EQ(journal().size(), 3u);
}

TEST_F(ToolBoxTest, TakingTheCommandAwayLeavesAndDeletesItsTools)
{
    ASSERT_TRUE(run("penCtx a; penCtx b; setToolTo a"));
    journal().clear();
    EXPECT_TRUE(api::deregisterContextCommand(session(), "penCtx"));
    EXPECT_THAT(journal(), ElementsAre("cleanup", "deleted", "deleted"));
    EXPECT_EQ(current(), "selectSuperContext");
    EXPECT_EQ(evaluate("contextInfo -exists a"), kernel::Value(0));
    EXPECT_FALSE(run("penCtx"));
}

TEST_F(ToolBoxTest, BatchModeHasToolsButDoesNotEnterThem)
{
    session().batch = true;
    ASSERT_TRUE(run("penCtx a"));
    EXPECT_EQ(evaluate("contextInfo -exists a"), kernel::Value(1));
    EXPECT_FALSE(run("setToolTo a"));
    EXPECT_THAT(errors(), testing::Contains(testing::HasSubstr("batch mode")));
    EXPECT_TRUE(run("setToolTo moveSuperContext"));
    EXPECT_TRUE(journal().empty());
}
