// The drawing node as both renderers really show it. Needs a display with OpenGL.

#include "support/NodeFixture.h"

#include "model/Canvas.h"

#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QTemporaryDir>
#include <QWidget>

#include <maya/M3dView.h>

#include <cstdlib>

namespace {

constexpr int kWidth = 480;
constexpr int kHeight = 300;

class NodePictures : public NodeFixture {
protected:
    void SetUp() override
    {
        if (QGuiApplication::platformName() == "offscreen") {
            GTEST_SKIP() << "no OpenGL on this platform";
        }
        window.resize(kWidth, kHeight);
        views = std::make_unique<view::Viewports>(session());
        viewport = views->add("modelPanel4", session().scene.findOrNull("perspShape"), &window);
        viewport->setGeometry(0, 0, kWidth, kHeight);
        view::ViewOptions options;
        options.grid = options.headsUp = false;
        viewport->setOptions(options);
        QEventLoop firstFrame;
        QObject::connect(viewport, SIGNAL(frameSwapped()), &firstFrame, SLOT(quit()));
        window.show();
        firstFrame.exec();
        drawing().insertLayer("persp", -1, "Ink");
        drawing().addFrameAtCurrentTime("persp");
        show(sheet(Qt::red));
        run("setAttr perspShape.filmFit 1");
    }

    /// Ink of a colour around the middle and along every edge of the canvas, so that any shift is seen.
    static QImage sheet(const QColor& ink)
    {
        QImage image(1024, 1024, QImage::Format_RGBA8888);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.fillRect(400, 400, 200, 150, ink);
        for (const QRect& bar :
             {QRect(0, 100, 20, 700), QRect(1004, 300, 20, 500), QRect(200, 0, 300, 20), QRect(500, 1004, 300, 20)}) {
            painter.fillRect(bar, ink);
        }
        return image;
    }
    void show(const QImage& image) { drawing().activeLayer("persp")->setCurrentImage(image); }

    QImage picture(bool legacy)
    {
        viewport->setLegacy(legacy);
        return viewport->grabFramebuffer().convertToFormat(QImage::Format_RGB32);
    }
    /// What the display shows of the window.
    QImage onScreen()
    {
        QCoreApplication::processEvents();
        return QGuiApplication::primaryScreen()
            ->grabWindow(window.winId())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }
    static QColor middle(const QImage& image) { return image.pixelColor(image.rect().center()); }
    QImage withoutDrawing()
    {
        view::ViewOptions options = viewport->options();
        options.moduleShapes = false;
        viewport->setOptions(options);
        const QImage bare = picture(false);
        options.moduleShapes = true;
        viewport->setOptions(options);
        return bare;
    }

    QWidget window;
    std::unique_ptr<view::Viewports> views;
    view::Viewport* viewport = nullptr;
};

/// The largest step between two pictures in any channel, and how many pixels differ by more than one.
struct Difference {
    int largest = 0;
    int pixels = 0;
};

Difference difference(const QImage& a, const QImage& b)
{
    Difference result;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            const int step =
                std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
            result.largest = std::max(result.largest, step);
            result.pixels += step > 1;
        }
    }
    return result;
}

TEST_F(NodePictures, TheLegacyViewportCoversThePixelsOfViewport2)
{
    const char* const cases[] = {
        "setAttr perspShape.filmFit 1",
        "setAttr perspShape.filmFit 0",
        "setAttr perspShape.filmFit 2",
        "setAttr perspShape.filmFit 3",
        "setAttr perspShape.overscan 1.37",
        "setAttr perspShape.panZoomEnabled 1; setAttr perspShape.zoom 0.45;"
        "setAttr perspShape.horizontalPan 0.31; setAttr perspShape.verticalPan -0.17",
        "setAttr tqLumisketch1.opacity 0.5",
    };
    for (const char* change : cases) {
        run(change);
        const QImage bare = withoutDrawing();
        const QImage modern = picture(false);
        const QImage legacy = picture(true);
        EXPECT_GT(difference(modern, bare).pixels, 1000) << change;
        const Difference between = difference(modern, legacy);
        EXPECT_EQ(between.pixels, 0) << change << ", by up to " << between.largest;
    }
}

TEST_F(NodePictures, BothRenderersShowEachChangeOfTheDrawing)
{
    for (const bool legacy : {false, true}) {
        show(sheet(Qt::red));
        const QImage red = picture(legacy);
        show(sheet(Qt::green));
        const QImage green = picture(legacy);
        EXPECT_EQ(middle(red), QColor(Qt::red)) << legacy;
        EXPECT_EQ(middle(green), QColor(Qt::green)) << legacy;
        EXPECT_EQ(picture(legacy), green) << "nothing changed";
    }
}

// Over a light ground white ink can only lighten, however the canvas is scaled.
TEST_F(NodePictures, WhiteInkHasNoDarkRim)
{
    QTemporaryDir folder;
    QImage ground(16, 16, QImage::Format_RGB32);
    ground.fill(QColor(240, 240, 240));
    const QString path = folder.filePath("ground.png");
    ASSERT_TRUE(ground.save(path));
    ASSERT_TRUE(run("imagePlane -camera perspShape -fileName \"" + path.toStdString() + "\""));
    QImage dots = blankCanvas();
    for (int i = 0; i < 400; ++i) {
        dots.setPixelColor(300 + 20 * (i % 20), 350 + 16 * (i / 20), QColor(255, 255, 255, 55 + i / 2));
    }
    show(dots);
    for (const char* overscan : {"0.37", "1", "1.3"}) {
        run(std::string("setAttr perspShape.overscan ") + overscan);
        const QImage bare = withoutDrawing();
        for (const bool legacy : {false, true}) {
            const QImage shown = picture(legacy);
            int darker = 0;
            for (int y = 0; y < bare.height(); ++y) {
                for (int x = 0; x < bare.width(); ++x) {
                    darker += qRed(shown.pixel(x, y)) < qRed(bare.pixel(x, y)) - 1;
                }
            }
            EXPECT_NE(shown, bare);
            EXPECT_EQ(darker, 0) << "overscan " << overscan << (legacy ? ", legacy" : "");
        }
    }
}

TEST_F(NodePictures, CamerasShownInTurnKeepTheirOwnDrawings)
{
    drawing().insertLayer("top", -1, "Ink");
    drawing().addFrameAtCurrentTime("top");
    drawing().activeLayer("top")->setCurrentImage(sheet(Qt::blue));
    run("setAttr topShape.filmFit 1");
    const kernel::NodePtr cameras[] = {viewport->camera(), session().scene.findOrNull("topShape")};
    const QColor inks[] = {Qt::red, Qt::blue};
    for (const bool legacy : {false, true}) {
        for (const int turn : {0, 1, 0, 0, 1}) {
            viewport->setCamera(cameras[turn]);
            EXPECT_EQ(middle(picture(legacy)), inks[turn]) << legacy << turn;
        }
    }
}

TEST_F(NodePictures, AnInvertedOutlineIsSeenUntilItIsDrawnAgain)
{
    const std::array<QPointF, 4> corners = {{{60.5, 40.5}, {200.5, 40.5}, {200.5, 160.5}, {60.5, 160.5}}};
    M3dView handle = M3dView::active3dView();
    viewport->setLegacy(true);
    viewport->refresh(true);
    const QImage plain = onScreen();
    drawOutline(handle, corners);
    const QImage outlined = onScreen();
    const QRect outer(59, plain.height() - 1 - 161, 143, 123);  // the lines are somewhere within two pixels
    EXPECT_GT(difference(outlined, plain).pixels, 400);
    for (const QRect& part : {outer.adjusted(3, 3, -3, -3), QRect(0, 0, plain.width(), outer.top())}) {
        EXPECT_EQ(outlined.copy(part), plain.copy(part)) << "beside the lines";
    }
    drawOutline(handle, corners);
    EXPECT_EQ(onScreen(), plain) << "drawn again it goes";
    viewport->refresh(true);
    drawOutline(handle, corners);
    EXPECT_EQ(onScreen(), outlined) << "right after a refresh, which Qt holds back";
    viewport->refresh(true);
    EXPECT_EQ(onScreen(), plain) << "a new picture has no lines";

    viewport->setLegacy(false);
    viewport->refresh(true);
    const QImage modern = onScreen();
    drawOutline(handle, corners);
    EXPECT_EQ(onScreen(), modern) << "Viewport 2.0 has its own outline";
}

}  // namespace
