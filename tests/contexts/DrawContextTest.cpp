#include "support/ToolFixture.h"

#include "contexts/DrawContextCommand.h"
#include "contexts/ThreadManager.h"
#include "settings/PenState.h"

#include "api/Access.h"

#include <QCoreApplication>
#include <QCursor>
#include <QMouseEvent>

#include <functional>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The tool in the views of a window; the real pointer is put where the test wants it.
class DrawContextTest : public ToolFixture {
protected:
    DrawContextTest()
    {
        EXPECT_TRUE(m_plugin.registerContextCommand(names::kDrawContextCommand, DrawContextCommand::creator));
        run("tqLmDrawCtx drawTool; setToolTo drawTool");
        pointAt(views.persp(), 100, 100);
    }
    ~DrawContextTest() override
    {
        run("setToolTo selectSuperContext");
        ThreadManager::destroy();
    }

    void pointAt(TestView& view, int x, int y) { QCursor::setPos(view.widget()->mapToGlobal(QPoint(x, y))); }
    void click()
    {
        press();
        release();
    }

    const QString blank = pixels::hash(Frame(timeOfFrame(0)).image());
};

TEST_F(DrawContextTest, AClickDrawsAndTellsTheCommandWhatWasMadeForIt)
{
    click();
    EXPECT_NE(pixels("persp"), blank);
    click();
    goTo(5);
    click();
    EXPECT_THAT(commits, ElementsAre("-la 0 -fa persp", "persp", "-fa persp"));
    EXPECT_FALSE(drawing().hasStroke());
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(DrawContextTest, APressInAnotherViewDrawsOnlyThere)
{
    click();
    const QString persp = pixels("persp");
    views.activate(views.top());
    pointAt(views.top(), 300, 200);
    press();
    EXPECT_EQ(drawing().currentCamera(), "top");
    EXPECT_EQ(drawing().stroke("persp"), nullptr);
    // Another view is drawn meanwhile; the points still go where this view shows them.
    MDagPath perspCamera;
    M3dView view;
    M3dView::get3dView(0, view);
    view.getCamera(perspCamera);
    node().updateViewportMetrics(perspCamera, 200, 100);
    ASSERT_NE(drawing().stroke("top"), nullptr);
    ThreadManager::instance().OnMousePositionChanged(QPoint(512, 256), 10, 1.0f, 1.0f);
    EXPECT_EQ(drawing().stroke("top")->points.last().position, QPoint(512, 512));
    release();
    EXPECT_EQ(pixels("persp"), persp);
    EXPECT_NE(pixels("top"), blank);
}

// The texts that choose tools are sent unrecorded: a commit in the course of one would be in no undo step.
TEST_F(DrawContextTest, AStrokeIsCommittedBeforeACommandOfOursChoosesAnotherTool)
{
    session().commands.add(names::kUtilCommand, [this](const kernel::ValueList&) -> kernel::Value {
        run("setToolTo drawTool");
        return {};
    });
    session().commands.remove(names::kStrokeCommand);
    session().commands.add(names::kStrokeCommand, [this](const kernel::ValueList& args) {
        run("createNode transform");  // a step, where it is recorded
        return commit(args);
    });
    using Choice = std::function<bool()>;
    const Choice choices[] = {[] { return script::selectTool(ToolType::Eraser); },
                              [] { return script::setCurrentTool("drawTool"); },
                              [] { return script::setSelectTool(); }};
    for (const Choice& choose : choices) {
        press();
        const unsigned before = session().undo.count();
        EXPECT_TRUE(choose());
        EXPECT_FALSE(drawing().hasStroke());
        EXPECT_EQ(session().undo.count(), before + 1);
        release();
        run("setToolTo drawTool");
    }
}

TEST_F(DrawContextTest, ARefusedPressLeavesNothingForTheReleaseToCommit)
{
    Preferences::instance().setDefaultLayerState(kLayerLocked);
    click();
    EXPECT_THAT(commits, IsEmpty());
    EXPECT_EQ(drawing().totalLayerCount(), 0);
}

TEST_F(DrawContextTest, TheMiddleButtonTakesUpTheLayerOfAnotherViewsCamera)
{
    std::vector<std::string> activated;
    session().commands.add(names::kLayerCommand, [&](const kernel::ValueList& args) {
        activated.push_back(textOf(args));
        return kernel::Value();
    });
    const auto click = [this](TestView& view) {
        views.activate(view);
        send(api::ToolEvent::Kind::Press, {100, 100}, api::ToolEvent::Button::Middle);
        send(api::ToolEvent::Kind::Release, {100, 100}, api::ToolEvent::Button::Middle);
    };
    drawing().insertLayer("persp", -1, "Ink");
    click(views.top());
    EXPECT_THAT(activated, IsEmpty()) << "there is no layer";
    drawing().insertLayer("top", -1, "Below");
    drawing().insertLayer("top", -1, "Above");
    drawing().setActiveLayer("top", 1, false);
    click(views.persp());
    EXPECT_THAT(activated, IsEmpty()) << "it is the current camera";
    click(views.top());
    EXPECT_THAT(activated, ElementsAre("-e -active 1 top"));
    EXPECT_THAT(commits, IsEmpty());
}

TEST_F(DrawContextTest, ASecondButtonDoesNothingWhileTheFirstDraws)
{
    press();
    api::ToolEvent event;
    event.button = api::ToolEvent::Button::Middle;
    MEvent middle = api::Access::event(event);
    api::ToolBox::instance().current()->doPress(middle);
    api::ToolBox::instance().current()->doRelease(middle);
    EXPECT_TRUE(ThreadManager::instance().isRunning());
    EXPECT_THAT(commits, IsEmpty());
    release();
    EXPECT_EQ(commits.size(), 1u);
}

TEST_F(DrawContextTest, AStrokeWhoseReleaseNeverComesEndsOnce)
{
    QWidget& view = *views.persp().widget();
    view.setMouseTracking(true);
    const auto hover = [&] {
        QMouseEvent event(QEvent::MouseMove, QPointF(9, 9), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &event);
    };
    const auto leaveWindow = [&] {
        QEvent event(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(&view, &event);
    };
    unsigned strokes = 0;
    for (const std::function<void()>& loss : {std::function<void()>(hover), std::function<void()>(leaveWindow)}) {
        press();
        penState::setPressure(0.3f);
        QMouseEvent drag(QEvent::MouseMove, QPointF(9, 9), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &drag);
        EXPECT_TRUE(ThreadManager::instance().isRunning());
        loss();
        EXPECT_FALSE(ThreadManager::instance().isRunning());
        EXPECT_EQ(commits.size(), ++strokes);
        EXPECT_FLOAT_EQ(penState::pressure(), 1.0f);
        send(api::ToolEvent::Kind::Drag);
        release();
        loss();
        EXPECT_EQ(commits.size(), strokes);
    }
}

TEST_F(DrawContextTest, AStrokeInAViewThatIsDestroyedIsCommitted)
{
    press();
    views.activate(views.top());
    views.persp().destroyWidget();
    QCoreApplication::sendPostedEvents();
    EXPECT_FALSE(ThreadManager::instance().isRunning());
    EXPECT_THAT(commits, ElementsAre("-la 0 -fa persp"));
}

TEST_F(DrawContextTest, MarksThatAreShownForAToolAreRefreshedWhenItIsEnteredAndLeft)
{
    struct Marks : TimelineMarks {
        bool update() override { return false; }
        void refresh() override { seen.push_back(isToolActive()); }
        std::vector<bool> seen;
    } marks;
    TimelineMarks::install(&marks);
    run("setToolTo selectSuperContext; setToolTo drawTool");
    EXPECT_THAT(marks.seen, IsEmpty()) << "they are always shown";
    Preferences::instance().setTimelineFrameDisplay(1);
    run("setToolTo selectSuperContext; setToolTo drawTool");
    EXPECT_THAT(marks.seen, ElementsAre(false, true));
    TimelineMarks::install(nullptr);
}

TEST_F(DrawContextTest, APressInAViewThatShowsNoCanvasIsIgnored)
{
    run("setAttr perspShape.overscan 1000000");
    click();
    EXPECT_THAT(commits, IsEmpty());
    EXPECT_EQ(drawing().totalLayerCount(), 0);
    run("setAttr perspShape.overscan 1");
    click();
    EXPECT_EQ(commits.size(), 1u);
}

// A preferences file may say so: it is the number of no drawing tool.
TEST_F(DrawContextTest, APressWithTheTransformNumberAsActiveToolDoesNothing)
{
    Preferences::instance().setActiveTool(ToolType::Transform);
    const unsigned undoSteps = session().undo.count();
    for (const bool hasLayer : {false, true}) {
        if (hasLayer) {
            drawing().insertLayer("persp", -1, "Ink");
        }
        const QString before = describeDrawing();
        press();
        EXPECT_FALSE(ThreadManager::instance().isRunning());
        EXPECT_FALSE(drawing().hasStroke());
        send(api::ToolEvent::Kind::Drag);
        release();
        EXPECT_EQ(describeDrawing(), before);
    }
    EXPECT_THAT(commits, IsEmpty());
    EXPECT_EQ(session().undo.count(), undoSteps);
    EXPECT_EQ(Preferences::instance().activeTool(), ToolType::Transform);
}

TEST_F(DrawContextTest, ARecordNobodyFillsIsNotCommittedButDropped)
{
    drawing().insertLayer("persp", -1, "Ink");
    drawing().addFrameAtCurrentTime("persp");
    ActiveStroke* stale = drawing().beginStroke("persp", false);
    stale->points = {{20, 1.0f, 1.0f, QPoint(800, 800)}, {20, 1.0f, 1.0f, QPoint(900, 900)}};
    release();
    EXPECT_THAT(commits, IsEmpty());
    EXPECT_EQ(pixels("persp"), blank);

    press();
    EXPECT_TRUE(drawing().stroke("persp")->points.isEmpty());
    release();
    EXPECT_THAT(commits, ElementsAre("persp"));
}

TEST_F(DrawContextTest, LeavingTheToolOrPressingAnewEndsAStroke)
{
    press();
    run("setToolTo selectSuperContext");
    EXPECT_THAT(commits, ElementsAre("-la 0 -fa persp"));
    run("setToolTo drawTool");
    press();
    press();
    EXPECT_EQ(commits.size(), 2u);
    release();
    EXPECT_EQ(commits.size(), 3u);
    press();
    MEvent event;
    api::ToolBox::instance().current()->toolOnSetup(event);
    EXPECT_EQ(commits.size(), 4u) << "entered anew without being left";
}

TEST_F(DrawContextTest, ADrawingNodeIsAskedForOnceWhereThereIsNone)
{
    int asked = 0;
    session().commands.add(names::kNodeCommand, [&](const kernel::ValueList&) {
        ++asked;
        script::drawingNodeCommandRan();
        return kernel::Value();
    });
    const auto enter = [this] { run("setToolTo selectSuperContext; setToolTo drawTool"); };
    enter();
    host().drainIdle();
    EXPECT_EQ(asked, 0);
    run("file -f -new");
    click();
    click();
    enter();
    EXPECT_EQ(api::ToolBox::instance().helpString(), "Draw on viewport");
    host().drainIdle();
    EXPECT_EQ(asked, 1);
    click();
    host().drainIdle();
    EXPECT_EQ(asked, 2) << "what could not be made is asked for anew";
    EXPECT_THAT(commits, IsEmpty());
}

}  // namespace
