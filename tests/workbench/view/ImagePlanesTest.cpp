// Image planes as they arrive on the screen. Needs a display with OpenGL.

#include "view/ImagePlanes.h"

#include "kernel/Session.h"
#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QGuiApplication>
#include <QTemporaryDir>
#include <QWidget>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int kWidth = 300;
constexpr int kHeight = 200;
const QColor kPlate(10, 200, 30);

class ImagePlanes : public testing::Test {
protected:
    void SetUp() override
    {
        if (QGuiApplication::platformName() == "offscreen") {
            GTEST_SKIP() << "no OpenGL on this platform";
        }
        session.batch = false;
        session.output.addListener([this](kernel::Severity severity, const std::string& text) {
            if (severity == kernel::Severity::Warning) {
                warnings.push_back(text);
            }
        });
        window.resize(kWidth, kHeight);
        views = std::make_unique<view::Viewports>(session);
        camera = session.scene.findOrNull("perspShape");
        viewport = views->add("modelPanel4", camera, &window);
        viewport->setGeometry(0, 0, kWidth, kHeight);
        view::ViewOptions options;
        options.grid = options.headsUp = false;
        viewport->setOptions(options);
        window.show();
        empty = picture();
        ASSERT_EQ(empty.size(), QSize(kWidth, kHeight));
        plane = addPlane(camera);
    }

    kernel::NodePtr add(const char* type, const kernel::NodePtr& parent)
    {
        const kernel::NodePtr node = session.scene.makeNode(*session.nodeTypes.find(type), std::string(type) + '#');
        session.scene.attach(node, parent.get());
        return node;
    }
    kernel::NodePtr addPlane(const kernel::NodePtr& cameraShape)
    {
        return add("imagePlane", add("transform", cameraShape->parent()->shared_from_this()));
    }
    static void set(const kernel::NodePtr& node, const char* attribute, kernel::PlugValue value)
    {
        node->setValue(*node->attribute(attribute), std::move(value));
    }
    std::string path(const char* name) const { return folder.filePath(name).toStdString(); }
    std::string write(const char* name, const QColor& colour, const QSize& size) const
    {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(colour);
        EXPECT_TRUE(image.save(folder.filePath(name)));
        return path(name);
    }
    /// The plane shows numbers of plate.####.png from now on; frame n is n * 20 of red.
    void showSequence(std::initializer_list<int> numbers)
    {
        for (const int number : numbers) {
            const QString name = QString("plate.%1.png").arg(number, 4, 10, QLatin1Char('0'));
            write(name.toLatin1().constData(), QColor(number * 20, 0, 0), QSize(30, 20));
        }
        set(plane, "imageName", path("plate.####.png"));
        set(plane, "useFrameExtension", 1.0);
    }
    void goTo(double time) { session.scene.setCurrentTime({time, session.scene.timeUnit()}); }
    QImage picture() { return viewport->grabFramebuffer().convertToFormat(QImage::Format_RGB32); }
    int middleRed() { return picture().pixelColor(kWidth / 2, kHeight / 2).red(); }
    bool isEmpty() { return picture() == empty; }

    /// The pixels that have the plate's colour; empty unless they are all of some rectangle.
    QRect plateRect()
    {
        const QImage image = picture();
        QRect rect;
        int count = 0;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                if (image.pixelColor(x, y) == kPlate) {
                    rect |= QRect(x, y, 1, 1);
                    ++count;
                }
            }
        }
        return count == rect.width() * rect.height() ? rect : QRect();
    }
    /// Where the film gate's lower left and upper right corner are in the picture: what stands there in the scene.
    QRect gateRect()
    {
        const view::Lens lens = view::lensOf(*camera);
        const double x = lens.horizontalAperture * view::unitsPerInch(lens) / 2;
        const double y = lens.verticalAperture * view::unitsPerInch(lens) / 2;
        const kernel::Matrix4 toClip = view::projectionMatrix(view::frustumOf(lens, kWidth, kHeight));
        const auto pixel = [&toClip](double cx, double cy, double cz) {
            double clip[4];
            for (int i = 0; i < 4; ++i) {
                clip[i] = cx * toClip.m[0][i] + cy * toClip.m[1][i] + cz * toClip.m[2][i] + toClip.m[3][i];
            }
            return QPoint(qRound((clip[0] / clip[3] + 1) / 2 * kWidth), qRound((1 - clip[1] / clip[3]) / 2 * kHeight));
        };
        // Anywhere between the clip planes: with perspective the gate widens with the distance.
        const double distance = lens.nearPlane * 3;
        const double scale = lens.orthographic ? 1 : distance / lens.nearPlane;
        const QPoint low = pixel(-x * scale, -y * scale, -distance), high = pixel(x * scale, y * scale, -distance);
        return QRect(QPoint(low.x(), high.y()), QPoint(high.x() - 1, low.y() - 1)).intersected(empty.rect());
    }

    QTemporaryDir folder;
    kernel::Session session;
    QWidget window;
    std::unique_ptr<view::Viewports> views;
    view::Viewport* viewport = nullptr;
    kernel::NodePtr camera;
    kernel::NodePtr plane;
    QImage empty;
    std::vector<std::string> warnings;
};

bool isNear(const QRect& a, const QRect& b)
{
    return std::abs(a.left() - b.left()) <= 1 && std::abs(a.right() - b.right()) <= 1
        && std::abs(a.top() - b.top()) <= 1 && std::abs(a.bottom() - b.bottom()) <= 1;
}

std::string text(const QRect& r)
{
    return QString("%1 %2 %3 %4").arg(r.left()).arg(r.top()).arg(r.right()).arg(r.bottom()).toStdString();
}

}  // namespace

TEST_F(ImagePlanes, FineDetailStaysEvenInAViewThatGetsSmall)
{
    QImage stripes(500, 330, QImage::Format_RGB32);
    stripes.fill(Qt::black);
    for (int x = 2; x < stripes.width(); x += 5) {
        for (int y = 0; y < stripes.height(); ++y) {
            stripes.setPixelColor(x, y, Qt::white);
        }
    }
    ASSERT_TRUE(stripes.save(folder.filePath("stripes.png")));
    set(plane, "imageName", path("stripes.png"));
    picture();
    viewport->resize(90, 60);
    const QImage small = picture();
    for (int x = 20; x < 70; ++x) {
        EXPECT_LT(small.pixelColor(x, 30).red(), 130) << x;
    }
}

TEST_F(ImagePlanes, FillTheFilmGateWhateverTheViewShowsOfIt)
{
    set(plane, "imageName", write("plate.png", kPlate, QSize(1500, 1000)));  // as the film gate
    const struct {
        const char* what;
        std::vector<std::pair<const char*, double>> values;
    } cases[] = {
        {"as it is", {}},
        {"overscan", {{"overscan", 1.5}}},
        {"gate inside the port", {{"verticalFilmAperture", 1.5}, {"filmFit", 3}, {"overscan", 1.2}, {"fit", 4}}},
        {"horizontal", {{"verticalFilmAperture", 0.6}, {"filmFit", 1}, {"overscan", 1}, {"fit", 4}}},
        {"vertical", {{"verticalFilmAperture", 1.2}, {"filmFit", 2}, {"fit", 4}}},
        {"pan and zoom",
         {{"panZoomEnabled", 1}, {"zoom", 1.3}, {"horizontalPan", 0.2}, {"verticalPan", -0.1}, {"filmFit", 3}}},
        {"orthographic", {{"orthographic", 1}, {"orthographicWidth", 17}}},
        {"long lens", {{"orthographic", 0}, {"focalLength", 135}, {"panZoomEnabled", 0}, {"overscan", 1.1}}},
    };
    for (const auto& c : cases) {
        for (const auto& value : c.values) {
            set(std::string(value.first) == "fit" ? plane : camera, value.first, value.second);
        }
        set(plane, "sizeX", camera->number("horizontalFilmAperture"));
        set(plane, "sizeY", camera->number("verticalFilmAperture"));
        EXPECT_TRUE(isNear(plateRect(), gateRect())) << c.what << ": " << text(plateRect()) << ", " << text(gateRect());
    }
}

TEST_F(ImagePlanes, KeepTheProportionOfThePictureUnlessSized)
{
    set(camera, "overscan", 2.0);
    set(plane, "imageName", write("square.png", kPlate, QSize(500, 500)));
    const QRect gate = gateRect();
    const double height = gate.height(), width = gate.width();
    const struct {
        double fit;
        double width, height;
    } cases[] = {{0, width, width}, {1, height, height}, {2, width, width}, {3, height, height}, {4, width, height}};
    for (const auto& c : cases) {
        set(plane, "fit", c.fit);
        EXPECT_NEAR(plateRect().width(), c.width, 1.5) << "fit " << c.fit;
        EXPECT_NEAR(plateRect().height(), c.height, 1.5) << "fit " << c.fit;
        EXPECT_NEAR(plateRect().center().x(), kWidth / 2, 1) << "fit " << c.fit;
    }
    set(plane, "offsetX", camera->number("horizontalFilmAperture") / 2);
    set(plane, "offsetY", camera->number("verticalFilmAperture") / 2);
    EXPECT_NEAR(plateRect().center().x(), gate.right(), 1.5);
    EXPECT_NEAR(plateRect().center().y(), gate.top(), 1.5) << "up";
}

TEST_F(ImagePlanes, StandUprightBehindTheSceneInTheirOwnCameraOnly)
{
    QImage halves(30, 20, QImage::Format_RGB32);
    halves.fill(Qt::blue);
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 15; ++x) {
            halves.setPixelColor(x, y, Qt::red);
        }
    }
    halves.save(folder.filePath("halves.png"));
    set(plane, "imageName", path("halves.png"));
    QImage image = picture();
    EXPECT_EQ(image.pixelColor(40, 40), QColor(Qt::red)) << "top left";
    EXPECT_EQ(image.pixelColor(260, 40), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(40, 160), QColor(Qt::blue));

    const kernel::NodePtr ball = add("implicitSphere", add("transform", nullptr));
    set(ball, "radius", 3.0);
    image = picture();
    EXPECT_NE(image.pixelColor(160, 110), QColor(Qt::blue)) << "the ball is in front";
    EXPECT_EQ(image.pixelColor(260, 40), QColor(Qt::blue));
    set(ball, "visibility", 0.0);

    const kernel::NodePtr rig = add("transform", camera->parent()->shared_from_this());
    const kernel::NodePtr second = add("camera", rig);
    viewport->setCamera(second);
    const QImage other = picture();
    EXPECT_EQ(other.pixelColor(40, 40), empty.pixelColor(40, 40)) << "not in another camera";
    set(addPlane(second), "imageName", write("plate.png", kPlate, QSize(1500, 1000)));
    EXPECT_EQ(picture().pixelColor(40, 40), kPlate);
    viewport->setCamera(camera);
    EXPECT_EQ(picture().pixelColor(40, 40), QColor(Qt::red)) << "nor that of a camera further below";
    view::ViewOptions options = viewport->options();
    options.imagePlanes = false;
    viewport->setOptions(options);
    EXPECT_TRUE(isEmpty());
}

TEST_F(ImagePlanes, BlendByTheirGainAndTheAlphaOfThePicture)
{
    QColor half = kPlate;
    half.setAlpha(0);
    set(plane, "imageName", write("clear.png", half, QSize(30, 20)));
    EXPECT_TRUE(isEmpty());
    set(plane, "displayMode", 2.0);
    EXPECT_EQ(picture().pixelColor(40, 40), kPlate) << "RGB leaves the alpha aside";
    set(plane, "alphaGain", 0.5);
    const int background = empty.pixelColor(40, 40).green();
    EXPECT_NEAR(picture().pixelColor(40, 40).green(), (200 + background) / 2, 2);
    set(plane, "displayMode", 0.0);
    EXPECT_TRUE(isEmpty());
    set(plane, "displayMode", 1.0);
    set(camera, "overscan", 1.5);
    const QRect gate = gateRect();
    EXPECT_NE(picture().pixelColor(gate.left(), kHeight / 2), empty.pixelColor(gate.left(), kHeight / 2));
    EXPECT_EQ(picture().pixelColor(kWidth / 2, kHeight / 2), empty.pixelColor(kWidth / 2, kHeight / 2));
    set(plane, "displayMode", 3.0);
    set(plane, "visibility", 0.0);
    EXPECT_TRUE(isEmpty());
}

TEST_F(ImagePlanes, StandingShowTheTrueFrameAndNothingForAMissingNumber)
{
    showSequence({1, 2, 4, 5});
    for (const int time : {5, 1, 4, 2}) {
        goTo(time);
        EXPECT_EQ(middleRed(), time * 20);
    }
    goTo(3);
    EXPECT_TRUE(isEmpty());
    set(plane, "frameOffset", 2.0);
    EXPECT_EQ(middleRed(), 100);
}

TEST_F(ImagePlanes, PlayingShowTheLastFrameThatIsReadyAndStoppedTheTrueOne)
{
    showSequence({1, 2, 3, 4, 5, 6});
    session.scene.setPlaybackRange({1, 6});
    goTo(1);
    EXPECT_EQ(middleRed(), 20);
    session.playback.start();
    session.playback.advance();
    picture();
    view::PictureStore::instance().finish();
    EXPECT_EQ(middleRed(), 40);
    for (int time = 3; time <= 6; ++time) {
        session.playback.advance();
        EXPECT_EQ(middleRed(), time * 20) << "decoded ahead";
    }
    view::PictureStore::instance().clear();
    goTo(5);
    EXPECT_THAT(middleRed(), testing::AnyOf(120, 100)) << "what was there last, unless it is ready";
    session.playback.stop();
    EXPECT_EQ(middleRed(), 100);
    session.playback.options.speed = 0;
    session.playback.start();
    for (int time = 2; time <= 6; ++time) {
        view::PictureStore::instance().clear();
        goTo(time);
        EXPECT_EQ(middleRed(), time * 20) << "every frame";
    }
    session.playback.stop();
}

TEST_F(ImagePlanes, WarnOnceAboutWhatCannotBeShown)
{
    showSequence({1});
    QFile text(folder.filePath("plate.0002.png"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no picture");
    text.close();
    for (int round = 0; round < 2; ++round) {
        for (const int time : {1, 2, 3, 4}) {
            goTo(time);
            picture();
            picture();
        }
    }
    EXPECT_THAT(warnings, ElementsAre(plane->name() + ": The image \"" + path("plate.0002.png")
                                          + "\" could not be read as a picture.",
                                      plane->name() + ": The image \"" + path("plate.0003.png") + "\" was not found."));
    warnings.clear();
    set(plane, "imageName", std::string());
    picture();
    EXPECT_THAT(warnings, IsEmpty()) << "a plane without a file is no fault";
}
