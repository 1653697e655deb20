// What really arrives on the screen. Needs a display with OpenGL; the other tests of this program do not.

#include "api/Tools.h"
#include "kernel/Session.h"
#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QGuiApplication>
#include <QWidget>
#include <gtest/gtest.h>

#include <maya/MPxContext.h>
#include <maya/MViewport2Renderer.h>

#include <functional>

namespace {

using Draw = std::function<void(MHWRender::MUIDrawManager&)>;

/// Draws into every frame while it is current.
class DrawingTool : public MPxContext {
public:
    MStatus drawFeedback(MHWRender::MUIDrawManager& manager, const MHWRender::MFrameContext&) override
    {
        if (draw) {
            manager.beginDrawable();
            draw(manager);
            manager.endDrawable();
        }
        return MStatus::kSuccess;
    }
    Draw draw;
};

constexpr int kWidth = 240;
constexpr int kHeight = 160;

class Rendering : public testing::Test {
protected:
    void SetUp() override
    {
        if (QGuiApplication::platformName() == "offscreen") {
            GTEST_SKIP() << "no OpenGL on this platform";
        }
        session.batch = false;
        window.resize(kWidth, kHeight);
        views = std::make_unique<view::Viewports>(session);
        viewport = views->add("modelPanel4", session.scene.findOrNull("perspShape"), &window);
        viewport->setGeometry(0, 0, kWidth, kHeight);
        window.show();
        tool = new DrawingTool;
        api::ToolBox& tools = api::ToolBox::instance();
        tools.setCurrent(tools.add("drawingToolCtx", "", tool, nullptr));
        empty = picture(nullptr);
        ASSERT_EQ(empty.size(), QSize(kWidth, kHeight));
    }
    void TearDown() override { api::ToolBox::instance().clear(); }

    QImage picture(const Draw& draw)
    {
        tool->draw = draw;
        return viewport->grabFramebuffer().convertToFormat(QImage::Format_RGB32);
    }
    /// The colour at port coordinates.
    static QColor at(const QImage& image, int x, int y) { return image.pixelColor(x, kHeight - 1 - y); }

    static MHWRender::MTexture* makeTexture(int width, int height, const std::vector<QRgb>& rgba)
    {
        MHWRender::MTextureDescription description;
        description.setToDefault2DTexture();
        description.fWidth = width;
        description.fHeight = height;
        description.fBytesPerRow = width * 4;
        description.fBytesPerSlice = width * height * 4;
        const std::vector<unsigned char> bytes = bytesOf(rgba);
        return textures()->acquireTexture("", description, bytes.data(), false);
    }
    static std::vector<unsigned char> bytesOf(const std::vector<QRgb>& rgba)
    {
        std::vector<unsigned char> bytes;
        for (const QRgb pixel : rgba) {
            for (const int channel : {qRed(pixel), qGreen(pixel), qBlue(pixel), qAlpha(pixel)}) {
                bytes.push_back(static_cast<unsigned char>(channel));
            }
        }
        return bytes;
    }
    static MHWRender::MTextureManager* textures() { return MHWRender::MRenderer::theRenderer()->getTextureManager(); }
    /// The whole of a texture over a square in the middle of the view.
    static Draw square(MHWRender::MTexture* texture, double halfSize, MColor colour = MColor(1, 1, 1, 1))
    {
        return [=](MHWRender::MUIDrawManager& manager) {
            manager.setColor(colour);
            manager.setTexture(texture);
            manager.rect2d(MPoint(kWidth / 2, kHeight / 2, 0), MVector(0, 1, 0), halfSize, halfSize, true);
            manager.setTexture(nullptr);
        };
    }

    kernel::Session session;
    QWidget window;
    std::unique_ptr<view::Viewports> views;
    view::Viewport* viewport = nullptr;
    DrawingTool* tool = nullptr;
    QImage empty;
};

void expectNear(const QColor& colour, const QColor& wanted, const char* what)
{
    EXPECT_NEAR(colour.red(), wanted.red(), 1) << what;
    EXPECT_NEAR(colour.green(), wanted.green(), 1) << what;
    EXPECT_NEAR(colour.blue(), wanted.blue(), 1) << what;
}

}  // namespace

TEST_F(Rendering, TheSameStateGivesTheSamePicture)
{
    EXPECT_EQ(picture(nullptr), empty);
    const Draw stroke = [](MHWRender::MUIDrawManager& manager) {
        manager.line2d(MPoint(3, 5, 0), MPoint(200, 131, 0));
        manager.text2d(MPoint(100, 60, 0), "Frame 12");
    };
    const QImage drawn = picture(stroke);
    EXPECT_NE(drawn, empty);
    EXPECT_EQ(picture(stroke), drawn);
    EXPECT_EQ(picture(nullptr), empty) << "what a tool drew is gone with the next frame";
}

TEST_F(Rendering, ATransparentPictureLeavesNoTrace)
{
    // Ink's own colour stands behind alpha 0 too; linear filtering must not let it through.
    MHWRender::MTexture* const blank = makeTexture(4, 4, std::vector<QRgb>(16, qRgba(255, 40, 10, 0)));
    EXPECT_EQ(picture(square(blank, 71.5)), empty);
    textures()->releaseTexture(blank);
}

TEST_F(Rendering, PicturesStandUprightAndBlendByTheirAlpha)
{
    const QRgb red = qRgba(200, 0, 0, 255), green = qRgba(0, 200, 0, 255), blue = qRgba(0, 0, 200, 255);
    const QRgb half = qRgba(250, 250, 250, 128);
    MHWRender::MTexture* const texture = makeTexture(2, 2, {red, green, blue, half});
    const QImage image = picture(square(texture, 60));
    const int left = kWidth / 2 - 55, right = kWidth / 2 + 55, top = kHeight / 2 + 55, bottom = kHeight / 2 - 55;
    expectNear(at(image, left, top), QColor(200, 0, 0), "row 0 is the top one");
    expectNear(at(image, right, top), QColor(0, 200, 0), "top right");
    expectNear(at(image, left, bottom), QColor(0, 0, 200), "bottom left");
    const QColor under = at(empty, right, bottom);
    const auto mixed = [](int over, int below) { return int(over * 128 / 255.0 + below * 127 / 255.0 + 0.5); };
    expectNear(at(image, right, bottom),
               QColor(mixed(250, under.red()), mixed(250, under.green()), mixed(250, under.blue())), "half there");
    EXPECT_EQ(at(image, kWidth / 2 - 61, kHeight / 2), at(empty, kWidth / 2 - 61, kHeight / 2)) << "sharp edge";

    const QImage faint = picture(square(texture, 60, MColor(1, 1, 1, 0)));
    EXPECT_EQ(faint, empty) << "the drawing colour's alpha counts";
    textures()->releaseTexture(texture);
}

TEST_F(Rendering, AChangedTextureShowsAtTheNextFrame)
{
    MHWRender::MTexture* const texture = makeTexture(2, 2, std::vector<QRgb>(4, qRgba(200, 0, 0, 255)));
    picture(square(texture, 30));
    const std::vector<unsigned char> bytes = bytesOf(std::vector<QRgb>(4, qRgba(0, 0, 200, 255)));
    ASSERT_TRUE(texture->update(bytes.data(), false));
    expectNear(at(picture(square(texture, 30)), kWidth / 2, kHeight / 2), QColor(0, 0, 200), "after the update");
    textures()->releaseTexture(texture);
    EXPECT_EQ(picture(nullptr), empty);
}

TEST_F(Rendering, HigherPrioritiesLieAboveLowerOnes)
{
    const QImage image = picture([](MHWRender::MUIDrawManager& manager) {
        const auto block = [&](const MColor& colour, unsigned priority) {
            manager.setColor(colour);
            manager.setDepthPriority(priority);
            manager.rect2d(MPoint(50, 50, 0), MVector(0, 1, 0), 20, 20, true);
        };
        block(MColor(1, 0, 0), 5);
        block(MColor(0, 1, 0), 7);
        block(MColor(0, 0, 1), 5);
    });
    expectNear(at(image, 50, 50), QColor(0, 255, 0), "the highest");
}

TEST_F(Rendering, LinesRunThroughThePixelsTheyName)
{
    const QImage image = picture([](MHWRender::MUIDrawManager& manager) {
        manager.setColor(MColor(1, 1, 0));
        manager.line2d(MPoint(20, 30, 0), MPoint(60, 30, 0));
        manager.line2d(MPoint(100, 10, 0), MPoint(100, 90, 0));
    });
    expectNear(at(image, 40, 30), QColor(255, 255, 0), "a level line");
    expectNear(at(image, 100, 50), QColor(255, 255, 0), "an upright line");
    for (const QPoint& beside : {QPoint(40, 29), QPoint(40, 31), QPoint(99, 50), QPoint(101, 50)}) {
        EXPECT_EQ(at(image, beside.x(), beside.y()), at(empty, beside.x(), beside.y())) << "one pixel wide";
    }
}

TEST_F(Rendering, NoLineIsLostBetweenPixels)
{
    for (int tenth = 0; tenth < 10; ++tenth) {
        const double y = 63 + tenth / 10.0;  // renderers divide the picture into tiles of 64 pixels
        const QImage image = picture([y](MHWRender::MUIDrawManager& manager) {
            manager.setColor(MColor(1, 1, 0));
            manager.line2d(MPoint(20, y, 0), MPoint(60, y, 0));
        });
        EXPECT_TRUE(at(image, 40, 63) != at(empty, 40, 63) || at(image, 40, 64) != at(empty, 40, 64)) << y;
    }
}

TEST_F(Rendering, OptionsLeaveOutWhatTheyNameAndNothingElse)
{
    const kernel::NodePtr shape = session.scene.makeNode(*session.nodeTypes.find("implicitSphere"), "ballShape");
    const kernel::NodePtr ball = session.scene.makeNode(*session.nodeTypes.find("transform"), "ball");
    session.scene.attach(ball);
    session.scene.attach(shape, ball.get());
    const auto shown = [this](bool view::ViewOptions::*option, bool on) {
        view::ViewOptions options;
        options.*option = on;
        viewport->setOptions(options);
        return picture(nullptr);
    };
    const QImage everything = shown(&view::ViewOptions::grid, true);
    EXPECT_NE(everything, empty);
    EXPECT_EQ(shown(&view::ViewOptions::objects, false), empty);
    const QImage outlines = shown(&view::ViewOptions::wireframe, true);
    EXPECT_NE(outlines, everything);
    EXPECT_NE(outlines, empty);
    const QImage nameless = shown(&view::ViewOptions::headsUp, false);
    const QRect aboveTheName(0, 0, kWidth, kHeight - 30);
    EXPECT_NE(nameless, everything);
    EXPECT_EQ(nameless.copy(aboveTheName), everything.copy(aboveTheName));
    EXPECT_NE(shown(&view::ViewOptions::grid, false).copy(aboveTheName), everything.copy(aboveTheName));
}

TEST_F(Rendering, GatesAreDrawnWhereTheCameraAsksForThem)
{
    kernel::Node& camera = *viewport->camera();
    const auto set = [&](kernel::Node& node, const char* name, double value) {
        node.setValue(*node.attribute(name), value);
    };
    const QColor line(0x5f, 0x8f, 0x5f);
    set(camera, "filmFit", 1);  // the film, 1.5 wide, is the port
    set(*session.scene.findOne("defaultResolution"), "height", 480);
    set(camera, "displayFilmGate", 1);
    QImage shown = picture(nullptr);
    expectNear(at(shown, 0, 80), line, "left side of the film gate");
    expectNear(at(shown, kWidth - 1, 40), line, "right side");
    expectNear(at(shown, 30, kHeight - 1), line, "upper side");
    set(camera, "displayFilmGate", 0);
    EXPECT_EQ(picture(nullptr), empty);

    // 960 x 480, 2 wide: 240 x 120 of 240 x 160
    set(camera, "displayResolution", 1);
    shown = picture(nullptr);
    expectNear(at(shown, 30, 20), line, "lower side of the render gate");
    expectNear(at(shown, 30, 139), line, "upper side");
    EXPECT_EQ(at(shown, 30, 10), at(empty, 30, 10)) << "nothing is dimmed yet";
    EXPECT_NE(shown.copy(80, 4, 80, 16), empty.copy(80, 4, 80, 16)) << "the size stands above it";
    set(camera, "displayGateMask", 1);
    set(camera, "displayGateMaskOpacity", 1);
    shown = picture(nullptr);
    expectNear(at(shown, 30, 10), QColor(0x30, 0x30, 0x30), "outside of the gate");
    EXPECT_EQ(at(shown, 30, 30), at(empty, 30, 30));
    set(*session.scene.findOne("defaultResolution"), "pixelAspect", 2);
    EXPECT_EQ(at(picture(nullptr), 30, 30), QColor(0x30, 0x30, 0x30)) << "4 wide: 60 high";
}

TEST_F(Rendering, GatesOfAViewOfOnePixelAndACameraOfNonsenseAreDrawn)
{
    kernel::Node& camera = *viewport->camera();
    const std::pair<const char*, double> values[] = {
        {"displayFilmGate", 1},  {"displayResolution", 1},    {"displayGateMask", 1}, {"displaySafeAction", 1},
        {"displaySafeTitle", 1}, {"verticalFilmAperture", 0}, {"overscan", 0},        {"zoom", 0},
        {"panZoomEnabled", 1},   {"horizontalPan", 1e30}};
    for (const auto& value : values) {
        camera.setValue(*camera.attribute(value.first), value.second);
    }
    EXPECT_EQ(picture(nullptr).size(), QSize(kWidth, kHeight));
    viewport->resize(1, 1);
    EXPECT_EQ(picture(nullptr).size(), QSize(1, 1));
}

TEST_F(Rendering, AViewOutOfSightIsNotPainted)
{
    int frames = 0;
    QObject::connect(viewport, &QOpenGLWidget::frameSwapped, [&frames] { ++frames; });
    kernel::Node& camera = *viewport->camera();
    const auto touch = [&] {
        camera.setValue(*camera.attribute("focalLength"), camera.number("focalLength") + 1);
        viewport->refresh(true);
        QCoreApplication::processEvents();
    };
    touch();
    EXPECT_GT(frames, 0);
    viewport->hide();
    frames = 0;
    touch();
    EXPECT_EQ(frames, 0);
}
