// Locators of modules in a legacy view. Needs a display with OpenGL.

#include "api/Handles.h"
#include "api/Module.h"
#include "api/Tools.h"
#include "kernel/Session.h"
#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QWidget>
#include <gtest/gtest.h>

#include <maya/MFnDagNode.h>
#define MNoVersionString  // this is no module
#include <maya/MFnPlugin.h>
#include <maya/MPxContext.h>
#include <maya/MPxLocatorNode.h>

#include <functional>
#include <stdexcept>

namespace {

constexpr int kSide = 120;

/// Draws what a test says.
class Painter : public MPxLocatorNode {
public:
    static constexpr unsigned kId = 0x7003;
    static void* create() { return new Painter; }
    static MStatus initialize() { return MStatus::kSuccess; }

    void draw(M3dView& view, const MDagPath&, M3dView::DisplayStyle, M3dView::DisplayStatus) override
    {
        ++draws;
        if (paint) {
            paint(view);
        }
    }
    bool isTransparent() const override { return transparent; }
    bool drawLast() const override { return last; }

    std::function<void(M3dView&)> paint;
    bool transparent = false;
    bool last = false;
    int draws = 0;
};

/// Fills all of the view.
void fill(float red, float green, float blue)
{
    glDisable(GL_DEPTH_TEST);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glColor3f(red, green, blue);
    glRectf(-1, -1, 1, 1);
}

class Pen : public MPxContext {
public:
    MStatus doPress(MEvent&) override
    {
        heard += "plain ";
        return MStatus::kSuccess;
    }
    MStatus doPress(MEvent&, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) override
    {
        heard += "managed ";
        return MStatus::kSuccess;
    }
    std::string heard;
};

class LegacyRendering : public testing::Test {
protected:
    void SetUp() override
    {
        if (QGuiApplication::platformName() == "offscreen") {
            GTEST_SKIP() << "no OpenGL on this platform";
        }
        session.batch = false;
        module->name = "painters";
        module->session = &session;
        MObject object = api::toObject(module);
        MFnPlugin plugin(object, "Maker", "1.5");
        ASSERT_TRUE(plugin.registerNode("painter", MTypeId(Painter::kId), Painter::create, Painter::initialize,
                                        MPxNode::kLocatorNode));
        window.resize(kSide, kSide);
        views = std::make_unique<view::Viewports>(session);
        viewport = views->add("modelPanel4", session.scene.findOrNull("perspShape"), &window);
        viewport->setGeometry(0, 0, kSide, kSide);
        window.show();
        viewport->setLegacy(true);
        empty = picture();
    }
    void TearDown() override { api::ToolBox::instance().clear(); }

    QImage picture() { return viewport->grabFramebuffer().convertToFormat(QImage::Format_RGB32); }
    Painter& add(const std::function<void(M3dView&)>& paint)
    {
        MFnDagNode set;
        const MObject shape = MFnDagNode(set.create(MTypeId(Painter::kId), "painter")).child(0);
        auto& painter = dynamic_cast<Painter&>(*MFnDependencyNode(shape).userNode());
        painter.paint = paint;
        return painter;
    }

    kernel::Session session;
    api::ModulePtr module = std::make_shared<api::Module>();
    QWidget window;
    std::unique_ptr<view::Viewports> views;
    view::Viewport* viewport = nullptr;
    QImage empty;
};

}  // namespace

TEST_F(LegacyRendering, LocatorsDrawThemselvesOpaqueOnesFirstAndLastOnesLast)
{
    Painter& last = add([](M3dView&) { fill(0, 0, 1); });
    Painter& transparent = add([](M3dView&) { fill(0, 1, 0); });
    add([](M3dView&) { fill(1, 0, 0); });
    last.last = last.transparent = transparent.transparent = true;
    EXPECT_EQ(picture().pixelColor(5, 5), QColor(Qt::blue));
    last.last = last.transparent = false;
    EXPECT_EQ(picture().pixelColor(5, 5), QColor(Qt::green));

    viewport->setLegacy(false);
    const int before = last.draws;
    EXPECT_EQ(picture(), empty) << "Viewport 2.0 asks draw overrides";
    EXPECT_EQ(last.draws, before);
}

TEST_F(LegacyRendering, TheViewIsTheOneDrawnAndItsOpenGlIsAtHand)
{
    MStatus began = MStatus::kFailure;
    add([&](M3dView& view) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
        began = view.beginGL();
        fill(1, 1, 0);
        view.endGL();
#pragma GCC diagnostic pop
        fill(1, 0, 1);
    });
    EXPECT_EQ(picture().pixelColor(5, 5), QColor(Qt::magenta));
    EXPECT_TRUE(began);
}

TEST_F(LegacyRendering, WhatAModuleLeavesBehindSpoilsNothing)
{
    const struct {
        const char* what;
        std::function<void()> leave;
    } cases[] = {
        {"matrices",
         [] {
             glMatrixMode(GL_PROJECTION);
             glPushMatrix();
             glMatrixMode(GL_MODELVIEW);
             glPushMatrix();
             glMatrixMode(GL_TEXTURE);
             glScalef(9, 9, 9);
         }},
        {"attributes pushed",
         [] {
             glPushAttrib(GL_ALL_ATTRIB_BITS);
             glPushClientAttrib(GL_CLIENT_ALL_ATTRIB_BITS);
         }},
        {"switches, masks and a port",
         [] {
             glEnable(GL_CULL_FACE);
             glEnable(GL_SCISSOR_TEST);
             glScissor(0, 0, 1, 1);
             glEnable(GL_LIGHTING);
             glViewport(0, 0, 3, 3);
             glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
             glDepthMask(GL_FALSE);
         }},
        {"arrays",
         [] {
             glEnableClientState(GL_VERTEX_ARRAY);
             glPixelStorei(GL_UNPACK_ROW_LENGTH, 5);
         }},
        {"an unfinished shape", [] { glBegin(GL_TRIANGLES); }},
        {"an error", [] { glEnable(0xffff); }},
    };
    Painter& painter = add(nullptr);
    for (const auto& c : cases) {
        painter.paint = [&](M3dView&) { c.leave(); };
        picture();
        painter.paint = nullptr;
        EXPECT_EQ(picture(), empty) << c.what << ", in the next picture";
        painter.paint = [&](M3dView&) { c.leave(); };
        EXPECT_EQ(picture(), empty) << c.what << ", in the same picture";
    }
}

TEST_F(LegacyRendering, AModuleThatThrowsIsToldOnceAndTheOthersAreDrawn)
{
    std::vector<std::string> errors;
    session.output.addListener([&](kernel::Severity, const std::string& text) { errors.push_back(text); });
    Painter& broken = add([](M3dView&) {
        glBegin(GL_TRIANGLES);
        throw std::runtime_error("no ink");
    });
    add([](M3dView&) { fill(1, 0, 0); });
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(picture().pixelColor(5, 5), QColor(Qt::red));
    }
    EXPECT_EQ(broken.draws, 1);
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_NE(errors[0].find("no ink"), std::string::npos) << errors[0];
}

TEST_F(LegacyRendering, ToolsGetThePlainFormOfTheirEvents)
{
    auto* const pen = new Pen;
    api::ToolBox& tools = api::ToolBox::instance();
    tools.setCurrent(tools.add("penCtx", "", pen, nullptr));
    const auto press = [this] {
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, QPointF(9, 9), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(viewport, &event);
        }
    };
    press();
    viewport->setLegacy(false);
    press();
    EXPECT_EQ(pen->heard, "plain managed ");
}
