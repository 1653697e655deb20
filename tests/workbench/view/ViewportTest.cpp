#include "view/Viewport.h"

#include "api/Tools.h"
#include "view/Viewports.h"

#include <QApplication>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <maya/MPxContext.h>

#include <cmath>

namespace {

/// Writes down what it hears: "press 10 20 left shift".
class LoggingTool : public MPxContext {
public:
    explicit LoggingTool(QStringList& log) : m_log(log) {}

    using MPxContext::doDrag;
    using MPxContext::doPress;
    using MPxContext::doRelease;
    MStatus doPress(MEvent& event, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext& frame) override
    {
        int x = 0, y = 0, width = 0, height = 0;
        frame.getViewportDimensions(x, y, width, height);
        m_log << QString("port %1 %2").arg(width).arg(height);
        return write("press", event);
    }
    MStatus doDrag(MEvent& event, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) override
    {
        return write("drag", event);
    }
    MStatus doRelease(MEvent& event, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) override
    {
        return write("release", event);
    }
    void getClassName(MString& name) const override { name = "loggingTool"; }

private:
    MStatus write(const char* what, const MEvent& event)
    {
        short x = 0, y = 0;
        event.getPosition(x, y);
        QString line = QString("%1 %2 %3").arg(what).arg(x).arg(y);
        line += event.isModifierMiddleMouseButton() ? " middle" : event.isModifierLeftMouseButton() ? " left" : "";
        line += event.isModifierShift() ? " shift" : "";
        line += event.isModifierControl() ? " control" : "";
        m_log << line;
        return MStatus::kSuccess;
    }

    QStringList& m_log;
};

class ViewportTest : public testing::Test {
protected:
    ViewportTest()
    {
        session.batch = false;
        persp = views.add("modelPanel4", session.scene.findOrNull("perspShape"), &window);
        top = views.add("modelPanel1", session.scene.findOrNull("topShape"), &window);
        persp->setGeometry(0, 0, 400, 300);
        top->setGeometry(400, 0, 400, 300);
        api::ToolBox& tools = api::ToolBox::instance();
        tools.setCurrent(tools.add("loggingToolCtx", "", new LoggingTool(log), nullptr));
    }
    ~ViewportTest() override { api::ToolBox::instance().clear(); }

    void send(view::Viewport* view, QEvent::Type type, QPoint at, Qt::MouseButton button,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        m_held.setFlag(button, type != QEvent::MouseButtonRelease);
        const Qt::MouseButtons held = m_held;
        const Qt::MouseButton changed = type == QEvent::MouseMove ? Qt::NoButton : button;
        QMouseEvent event(type, at, view->mapToGlobal(at), changed, held, modifiers);
        QApplication::sendEvent(view, &event);
    }
    void drag(view::Viewport* view, QPoint from, QPoint to, Qt::MouseButton button,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        send(view, QEvent::MouseButtonPress, from, button, modifiers);
        send(view, QEvent::MouseMove, to, button, modifiers);
        send(view, QEvent::MouseButtonRelease, to, button, modifiers);
    }
    /// The pointer moves and no button is held any more: the release went elsewhere.
    void moveReleased(view::Viewport* view, QPoint at)
    {
        m_held = Qt::NoButton;
        send(view, QEvent::MouseMove, at, Qt::NoButton);
    }
    kernel::Node& transform(const char* name) { return *session.scene.findOne(name); }
    kernel::Node& shape(const char* name) { return *session.scene.findOne(std::string(name) + "Shape"); }
    /// Everything a camera move can change.
    std::vector<double> pose(const char* name)
    {
        std::vector<double> values;
        for (const char* attribute : {"translateX", "translateY", "translateZ", "rotateX", "rotateY", "rotateZ"}) {
            values.push_back(transform(name).number(attribute));
        }
        values.push_back(shape(name).number("orthographicWidth"));
        return values;
    }

    kernel::Session session;
    QWidget window;
    QStringList log;
    view::Viewports views{session};
    view::Viewport* persp;
    view::Viewport* top;

private:
    Qt::MouseButtons m_held;
};

}  // namespace

TEST_F(ViewportTest, LeftAndMiddleDragsReachTheToolInPortPixels)
{
    drag(persp, {10, 20}, {30, 299}, Qt::LeftButton);
    drag(persp, {0, 0}, {399, 0}, Qt::MidButton, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(log.join(", "), "port 400 300, press 10 279 left, drag 30 0 left, release 30 0 left, "
                              "port 400 300, press 0 299 middle shift control, drag 399 299 middle shift control, "
                              "release 399 299 middle shift control");
}

TEST_F(ViewportTest, RightPressesAndCameraMovesDoNotReachTheTool)
{
    drag(persp, {10, 20}, {30, 40}, Qt::RightButton);
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MidButton, Qt::RightButton}) {
        drag(persp, {10, 20}, {30, 60}, button, Qt::AltModifier);
    }
    EXPECT_TRUE(log.isEmpty()) << log.join(", ").toStdString();
}

TEST_F(ViewportTest, ASecondButtonDoesNotDisturbAStroke)
{
    send(persp, QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton);
    send(persp, QEvent::MouseButtonPress, {10, 10}, Qt::MidButton);
    send(persp, QEvent::MouseButtonRelease, {10, 10}, Qt::MidButton);
    send(persp, QEvent::MouseButtonRelease, {10, 10}, Qt::LeftButton);
    EXPECT_EQ(log.filter("press").size(), 1);
    EXPECT_EQ(log.last(), "release 10 289 left");
}

TEST_F(ViewportTest, AStrokeWhoseReleaseIsLostEndsWhereItWasLastSeen)
{
    send(persp, QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton);
    send(persp, QEvent::MouseMove, {20, 10}, Qt::LeftButton);
    moveReleased(persp, {90, 90});
    moveReleased(persp, {91, 90});
    EXPECT_EQ(log.filter("release"), QStringList("release 20 289 left"));
    EXPECT_FALSE(session.undo.isChunkOpen());

    // The same button again, without any move in between.
    send(persp, QEvent::MouseButtonPress, {30, 10}, Qt::LeftButton);
    send(persp, QEvent::MouseButtonPress, {40, 10}, Qt::LeftButton);
    EXPECT_EQ(log.filter(QRegularExpression("press|release")).mid(2).join(", "),
              "press 30 289 left, release 30 289 left, press 40 289 left");
    send(persp, QEvent::MouseButtonRelease, {40, 10}, Qt::LeftButton);
}

TEST_F(ViewportTest, DialogsAndHidingEndAStrokeOnce)
{
    for (const QEvent::Type type : {QEvent::WindowBlocked, QEvent::Hide}) {
        log.clear();
        send(persp, QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton);
        QEvent event(type);
        QApplication::sendEvent(persp, &event);
        send(persp, QEvent::MouseButtonRelease, {50, 10}, Qt::LeftButton);
        EXPECT_EQ(log.filter("release"), QStringList("release 10 289 left"));
    }
}

TEST_F(ViewportTest, ACameraMoveWhoseReleaseIsLostEnds)
{
    send(persp, QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton, Qt::AltModifier);
    const auto before = pose("persp");
    moveReleased(persp, {90, 90});
    EXPECT_EQ(pose("persp"), before);
    drag(persp, {10, 20}, {30, 40}, Qt::LeftButton);
    EXPECT_EQ(log.filter("release").size(), 1);
}

TEST_F(ViewportTest, ThePressedViewIsTheActiveOneBeforeTheToolHearsOfIt)
{
    EXPECT_EQ(views.activeView(), persp);
    QString activeAtPress;
    QObject::connect(&views, &view::Viewports::ActiveChanged, [&] {
        activeAtPress = QString::fromStdString(views.activeView()->panelName()) + (log.isEmpty() ? " first" : "");
    });
    send(top, QEvent::MouseButtonPress, {5, 5}, Qt::LeftButton);
    EXPECT_EQ(activeAtPress, "modelPanel1 first");
    top->hide();
    EXPECT_EQ(views.activeView(), persp) << "a view out of sight is not worked in";
    EXPECT_EQ(views.views().size(), 1u);
}

TEST_F(ViewportTest, AltDragsMoveTheCamera)
{
    auto before = pose("persp");
    drag(persp, {100, 100}, {140, 100}, Qt::LeftButton, Qt::AltModifier);
    EXPECT_NE(pose("persp"), before);
    EXPECT_DOUBLE_EQ(transform("persp").number("rotateX"), before[3]) << "a level drag only turns";

    before = pose("persp");
    drag(persp, {100, 100}, {110, 130}, Qt::MidButton, Qt::AltModifier);
    EXPECT_NE(pose("persp")[1], before[1]);
    EXPECT_DOUBLE_EQ(pose("persp")[4], before[4]) << "tracking does not turn";

    const double distance = shape("persp").number("centerOfInterest");
    drag(persp, {100, 100}, {200, 100}, Qt::RightButton, Qt::AltModifier);
    EXPECT_LT(shape("persp").number("centerOfInterest"), distance) << "to the right is nearer";
    EXPECT_FALSE(session.scene.isModified());
    EXPECT_FALSE(session.undo.canUndo());
}

TEST_F(ViewportTest, WithTheirKeyHeldDragsAndTheWheelMoveThePicture)
{
    const auto number = [&](const char* attribute) { return shape("persp").number(attribute); };
    const auto before = pose("persp");
    views.panZoomKey().press();
    drag(persp, {100, 100}, {160, 130}, Qt::MidButton);
    EXPECT_EQ(number("panZoomEnabled"), 1);
    EXPECT_LT(number("horizontalPan"), 0) << "the film goes left under a picture that goes right";
    EXPECT_GT(number("verticalPan"), 0);
    drag(persp, {100, 100}, {180, 100}, Qt::RightButton);
    const double near = number("zoom");
    EXPECT_LT(near, 1) << "to the right is nearer";
    QWheelEvent wheel(QPointF(50, 50), QPointF(50, 50), QPoint(), QPoint(0, -240), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(persp, &wheel);
    EXPECT_GT(number("zoom"), near);
    EXPECT_TRUE(log.isEmpty()) << log.join(", ").toStdString();
    EXPECT_EQ(pose("persp"), before);
    EXPECT_FALSE(session.scene.isModified());
    EXPECT_FALSE(session.undo.canUndo());
    EXPECT_FALSE(views.panZoomKey().release()) << "it was no tap";

    drag(persp, {100, 100}, {160, 130}, Qt::MidButton);
    EXPECT_EQ(log.filter("drag").size(), 1) << "the tool's again";
}

TEST_F(ViewportTest, TheLeftButtonIsTheToolsWhateverKeyIsHeld)
{
    views.panZoomKey().press();
    drag(persp, {100, 100}, {160, 130}, Qt::LeftButton);
    EXPECT_EQ(log.filter("drag").size(), 1);
    EXPECT_EQ(shape("persp").number("panZoomEnabled"), 0);
    views.panZoomKey().press();
    EXPECT_TRUE(views.panZoomKey().release());
    EXPECT_FALSE(views.panZoomKey().release()) << "it was not held";
}

TEST_F(ViewportTest, FlatViewsDoNotOrbitAndDollyByTheirWidth)
{
    const auto before = pose("top");
    drag(top, {100, 100}, {180, 140}, Qt::LeftButton, Qt::AltModifier);
    EXPECT_EQ(pose("top"), before);
    drag(top, {100, 100}, {180, 100}, Qt::RightButton, Qt::AltModifier);
    EXPECT_LT(shape("top").number("orthographicWidth"), 30);

    QWheelEvent wheel(QPointF(50, 50), QPointF(50, 50), QPoint(), QPoint(0, -240), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    const double narrow = shape("top").number("orthographicWidth");
    QApplication::sendEvent(top, &wheel);
    EXPECT_GT(shape("top").number("orthographicWidth"), narrow);
    EXPECT_DOUBLE_EQ(transform("top").number("translateY"), 1000.1);
}

TEST_F(ViewportTest, LooksThroughTheCameraOfItsNameInAnotherSceneOrThroughPersp)
{
    const kernel::NodePtr oldTop = top->camera();
    session.scene.reset();
    ASSERT_TRUE(top->camera());
    EXPECT_NE(top->camera(), oldTop);
    EXPECT_EQ(top->camera()->name(), "topShape");

    const kernel::NodePtr transform = session.scene.makeNode(*session.nodeTypes.find("transform"), "shotCam");
    const kernel::NodePtr shape = session.scene.makeNode(*session.nodeTypes.find("camera"), "shotCamShape");
    session.scene.attach(transform);
    session.scene.attach(shape, transform.get());
    top->setCamera(shape);
    EXPECT_EQ(top->camera(), shape);
    session.scene.detach(transform);
    ASSERT_TRUE(top->camera());
    EXPECT_EQ(top->camera()->name(), "perspShape");
}
