#include "api/Tools.h"
#include "support/WindowFixture.h"
#include "view/Viewport.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>

#include <maya/M3dView.h>
#include <maya/MDagPath.h>
#include <maya/MPxContext.h>

namespace {

/// Writes down what it hears and, when told to, runs a script at the press or the release.
class ScriptedTool : public MPxContext {
public:
    ScriptedTool(QStringList& log, std::function<void(const QString&)>& act) : m_log(log), m_act(act) {}
    MStatus doPress(MEvent&) override { return hear("press"); }
    MStatus doDrag(MEvent&) override { return hear("drag"); }
    MStatus doRelease(MEvent&) override { return hear("release"); }

private:
    MStatus hear(const QString& what)
    {
        M3dView view = M3dView::active3dView();
        MDagPath camera;
        const bool hasCamera = view.getCamera(camera);
        m_log << what + ' ' + (hasCamera ? camera.partialPathName().asChar() : "nowhere");
        if (m_act) {
            m_act(what);
        }
        return MStatus::kSuccess;
    }

    QStringList& m_log;
    std::function<void(const QString&)>& m_act;
};

class PanelsTest : public WindowFixture {
protected:
    PanelsTest()
    {
        main = views->add("modelPanel4", session().scene.findOrNull("perspShape"), &window);
        run("createNode transform -n lookCam; createNode camera -n lookCamShape -p lookCam; window -widthHeight 300 "
            "280 tools; paneLayout panes; modelPanel floating;"
            "lookThru floating top");
        api::ToolBox& tools = api::ToolBox::instance();
        tools.setCurrent(tools.add("scriptedToolCtx", "", new ScriptedTool(log, act), nullptr));
    }
    ~PanelsTest() override { api::ToolBox::instance().clear(); }

    view::Viewport* floating() { return views->find("floating"); }
    void send(view::Viewport* view, QEvent::Type type)
    {
        const bool isRelease = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, QPointF(20, 20), view->mapToGlobal(QPoint(20, 20)),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          isRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view, &event);
    }
    unsigned hostViews() { return M3dView::numberOf3dViews(); }

    view::Viewport* main;
    QStringList log;
    std::function<void(const QString&)> act;
};

}  // namespace

TEST_F(PanelsTest, AViewInAnotherWindowIsOneOfTheHosts)
{
    ASSERT_NE(floating(), nullptr);
    EXPECT_TRUE(widget("tools")->isAncestorOf(floating()));
    EXPECT_EQ(value("modelPanel -q -camera floating"), "top");
    EXPECT_EQ(value("modelPanel -q -control floating"), "tools|panes|floating");
    EXPECT_EQ(widget("tools|panes|floating"), widget("floating"));
    EXPECT_EQ(value("modelPanel -q -modelEditor floating"), "floating");
    EXPECT_EQ(value("paneLayout -q -childArray panes"), "floating");
    EXPECT_EQ(value("getPanel -type modelPanel"), "floating");
    EXPECT_EQ(value("getPanel -typeOf floating"), "modelPanel");
    EXPECT_EQ(hostViews(), 2u);
    M3dView view;
    ASSERT_TRUE(M3dView::getM3dViewFromModelPanel("floating", view));
    EXPECT_EQ(view.widget(), floating());
    MDagPath camera;
    EXPECT_TRUE(view.getCamera(camera));
    EXPECT_EQ(camera.partialPathName(), MString("topShape"));
    MPoint point;
    MVector direction;
    short x = 0, y = 0;
    EXPECT_TRUE(view.viewToWorld(40, 70, point, direction));
    view.worldToView(point + direction, x, y);
    EXPECT_EQ(QPoint(x, y), QPoint(40, 70));
    EXPECT_FALSE(run("modelPanel floating"));
    EXPECT_THAT(lastError(), testing::HasSubstr("is not unique"));
}

TEST_F(PanelsTest, AStrokeInItIsTheToolsAndMakesItTheActiveView)
{
    run("showWindow tools");
    send(floating(), QEvent::MouseButtonPress);
    send(floating(), QEvent::MouseMove);
    send(floating(), QEvent::MouseButtonRelease);
    EXPECT_EQ(log.join(", "), "press topShape, drag topShape, release topShape");
    EXPECT_EQ(value("getPanel -withFocus"), "floating");
    EXPECT_EQ(value("modelEditor -q -activeView floating"), "1");
    send(main, QEvent::MouseButtonPress);
    send(main, QEvent::MouseButtonRelease);
    window.show();
    EXPECT_EQ(views->active(), main);
    run("modelEditor -e -activeView floating");
    EXPECT_EQ(views->active(), floating());
    run("window -e -visible 0 tools");
    EXPECT_EQ(views->active(), main) << "nobody works in a window that is not open";
}

TEST_F(PanelsTest, DeletingTheWindowInTheMiddleOfAStrokeEndsTheStroke)
{
    run("showWindow tools");
    const QPointer<view::Viewport> view = floating();
    send(view, QEvent::MouseButtonPress);
    M3dView handle = M3dView::active3dView();
    EXPECT_TRUE(run("deleteUI tools"));
    EXPECT_EQ(log.join(", "), "press topShape, release topShape");
    EXPECT_EQ(hostViews(), 1u);
    EXPECT_EQ(handle.widget(), nullptr);
    EXPECT_EQ(value("modelPanel -exists floating"), "0");
    EXPECT_FALSE(view.isNull()) << "it may be on the way of an event";
    deliverDeletions();
    EXPECT_TRUE(view.isNull());
    EXPECT_FALSE(session().undo.isChunkOpen());
    EXPECT_EQ(views->active(), main);
}

TEST_F(PanelsTest, AToolMayDeleteTheWindowItWorksIn)
{
    for (const char* moment : {"press", "release"}) {
        log.clear();
        run("if (!`window -exists tools`) { window tools; paneLayout panes; modelPanel floating; } showWindow tools");
        act = [&](const QString& what) {
            if (what == moment && ui().find("tools")) {
                run("deleteUI tools");
            }
        };
        const QPointer<view::Viewport> view = floating();
        send(view, QEvent::MouseButtonPress);
        if (view) {
            send(view, QEvent::MouseButtonRelease);
        }
        EXPECT_EQ(log.filter("press").size(), 1) << moment;
        EXPECT_EQ(log.filter("release").size(), 1) << moment;
        deliverDeletions();
        EXPECT_TRUE(view.isNull()) << moment;
        EXPECT_FALSE(session().undo.isChunkOpen()) << moment;
        act = {};
    }
}

TEST_F(PanelsTest, AViewDestroyedByAnyoneEndsItsStrokeAndLosesItsName)
{
    run("showWindow tools");
    send(floating(), QEvent::MouseButtonPress);
    delete widget("tools");
    EXPECT_EQ(log.filter("release").size(), 1);
    EXPECT_EQ(value("modelPanel -exists floating"), "0");
    EXPECT_EQ(hostViews(), 1u);

    run("window tools; paneLayout panes; modelPanel floating; showWindow tools");
    log.clear();
    send(floating(), QEvent::MouseButtonPress);
    delete widget("floating");
    EXPECT_EQ(log.filter("release").size(), 1);
    EXPECT_TRUE(run("modelPanel -parent panes floating"));
    EXPECT_EQ(value("paneLayout -q -childArray panes"), "floating");
}

TEST_F(PanelsTest, ClosingTheWindowDeletesItsPanelAndItCanBeMadeAgain)
{
    for (int round = 0; round < 3; ++round) {
        run("if (!`window -exists tools`) { window tools; paneLayout panes; modelPanel floating; } showWindow tools");
        widget("tools")->close();
        EXPECT_EQ(value("modelPanel -exists floating"), "0");
        EXPECT_EQ(value("paneLayout -exists panes"), "0");
        EXPECT_EQ(hostViews(), 1u);
    }
    deliverDeletions();
    EXPECT_TRUE(errors().empty()) << lastError();
}

// A module takes the panel's widget into a panel of its own.
TEST_F(PanelsTest, PanelsThatWereTakenAwayComeBack)
{
    QWidget own;
    for (int round = 0; round < 2; ++round) {
        widget("floating")->setParent(&own);
        EXPECT_EQ(value("paneLayout -q -childArray panes"), "");
        EXPECT_TRUE(run("modelPanel -e -parent panes floating"));
        EXPECT_EQ(value("paneLayout -q -childArray panes"), "floating");
    }
    EXPECT_EQ(value("modelPanel -q -control floating"), "tools|panes|floating");
}
