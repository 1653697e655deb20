// Where views show the canvas: marks of a drawing are looked for in pictures of real views, at the places that follow
// from the camera's numbers and the view's size.

#include "support/DrawingScene.h"
#include "support/QtPrint.h"
#include "support/ViewStage.h"

#include <QFile>
#include <QPainter>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

using support::CameraSetting;
using support::FilmFit;
using support::LiveWorkbench;
using support::ViewStage;

namespace {

const char kProgram[] = LUMISKETCH_BIN "/lumisketch-workbench";
constexpr int kCanvas = 1024;
constexpr int kPitch = 128;  // from mark to mark
constexpr int kMark = 48;    // side of a mark
constexpr int kMarks = kCanvas / kPitch;
constexpr int kFirstShade = 30;
constexpr int kShadeStep = 28;
const QSize kWide(701, 351);
const QSize kTall(451, 651);

// --- the drawing ----------------------------------------------------------------------------------------------------

/// Every mark has a colour that says which one it is; nothing else in a view is as blue.
QColor markColour(int column, int row)
{
    return QColor(kFirstShade + column * kShadeStep, kFirstShade + row * kShadeStep, 255);
}

QPointF markCentre(int column, int row)
{
    return QPointF((column + 0.5) * kPitch, (row + 0.5) * kPitch);
}

/// The canvas covered with square marks, eight by eight.
QImage markedCanvas()
{
    QImage canvas(kCanvas, kCanvas, QImage::Format_RGBA8888);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    for (int row = 0; row < kMarks; ++row) {
        for (int column = 0; column < kMarks; ++column) {
            const QPoint corner = markCentre(column, row).toPoint() - QPoint(kMark, kMark) / 2;
            painter.fillRect(QRect(corner, QSize(kMark, kMark)), markColour(column, row));
        }
    }
    return canvas;
}

QPointF viewPoint(const QRectF& canvas, const QPointF& canvasPoint)
{
    return canvas.topLeft() + canvasPoint * (canvas.width() / kCanvas);
}

/// Whether a square mark and a pixel around it are in the view.
bool isWhollyIn(const QRect& view, const QPointF& centre, double side)
{
    const double reach = side / 2 + 1;
    return QRectF(view).contains(QRectF(centre.x() - reach, centre.y() - reach, 2 * reach, 2 * reach));
}

// --- where it is ----------------------------------------------------------------------------------------------------

/// How much of a pixel a mark covers, 0..1; what lies behind marks is less blue than the limit.
double coverage(QRgb pixel)
{
    constexpr double kLimit = 190;
    return std::max(0.0, (qBlue(pixel) - kLimit) / (255 - kLimit));
}

/// The box of the pixels that each mark covers wholly, row by row; null for one that is not to be seen.
std::vector<QRect> markBoxes(const QImage& picture)
{
    std::vector<QRect> boxes(kMarks * kMarks);
    for (int y = 0; y < picture.height(); ++y) {
        const QRgb* const line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const int column = qRound(double(qRed(line[x]) - kFirstShade) / kShadeStep);
            const int row = qRound(double(qGreen(line[x]) - kFirstShade) / kShadeStep);
            if (qBlue(line[x]) > 248 && column >= 0 && column < kMarks && row >= 0 && row < kMarks) {
                boxes[row * kMarks + column] |= QRect(x, y, 1, 1);
            }
        }
    }
    return boxes;
}

/// Centre of the mark in a box and of the pixels that it covers in part around it.
QPointF centroid(const QImage& picture, const QRect& box)
{
    const QRect around = box.adjusted(-2, -2, 2, 2) & picture.rect();
    QPointF sum;
    double weight = 0;
    for (int y = around.top(); y <= around.bottom(); ++y) {
        for (int x = around.left(); x <= around.right(); ++x) {
            const double share = coverage(picture.pixel(x, y));
            sum += QPointF(x + 0.5, y + 0.5) * share;
            weight += share;
        }
    }
    return sum / weight;
}

// --- the cells ------------------------------------------------------------------------------------------------------

/// Every film fit. Without perspective none of them asks how wide the view is for its height, so that one is looked at
/// in wide views only.
std::vector<CameraSetting> camerasThatTell(const QSize& view)
{
    std::vector<CameraSetting> cameras = support::everyFilmFit();
    if (view.height() > view.width()) {
        cameras.erase(std::remove_if(cameras.begin(), cameras.end(),
                                     [](const CameraSetting& camera) { return camera.isOrthographic(); }),
                      cameras.end());
    }
    return cameras;
}

std::string described(const CameraSetting& camera, const QSize& view)
{
    return QString("%1, fit %2, view %3 x %4, overscan %5, film %6, resolution %7 x %8, zoom %9")
        .arg(camera.camera)
        .arg(int(camera.fit))
        .arg(view.width())
        .arg(view.height())
        .arg(camera.overscan)
        .arg(camera.filmAspect())
        .arg(camera.resolution.width())
        .arg(camera.resolution.height())
        .arg(camera.panZoom ? camera.zoom : 1)
        .toStdString();
}

class ViewMapping : public testing::Test {
protected:
    // Starting the program takes longer than any of the cells, so they share one.
    static void SetUpTestSuite()
    {
        s_folder = std::make_unique<QTemporaryDir>();
        QFile scene(s_folder->filePath("marks.ma"));
        ASSERT_TRUE(scene.open(QIODevice::WriteOnly));
        scene.write(support::drawingScene({{"persp", markedCanvas()}, {"front", markedCanvas()}}));
        scene.close();
        s_host = std::make_unique<LiveWorkbench>(kProgram,
                                                 QStringList{"-prefs", s_folder->path(), "-file", scene.fileName()});
        ASSERT_TRUE(s_host->isRunning()) << s_host->output().toStdString();
        s_stage = std::make_unique<ViewStage>(*s_host);
    }
    static void TearDownTestSuite()
    {
        s_stage.reset();
        s_host.reset();
        s_folder.reset();
    }

    static ViewStage& stage() { return *s_stage; }

    /// Finds the marks of a picture where the camera's numbers put them.
    static void expectMarksInPlace(const QImage& picture, const CameraSetting& camera)
    {
        const QRectF canvas = support::literalCanvasRect(camera, picture.size());
        const std::vector<QRect> boxes = markBoxes(picture);
        int seen = 0;
        for (int i = 0; i < int(boxes.size()); ++i) {
            SCOPED_TRACE(i);
            const QPointF expected = viewPoint(canvas, markCentre(i % kMarks, i / kMarks));
            if (isWhollyIn(picture.rect(), expected, kMark * canvas.width() / kCanvas)) {
                ASSERT_FALSE(boxes[i].isNull());
                const QPointF found = centroid(picture, boxes[i]);
                ASSERT_NEAR(found.x(), expected.x(), 1.0);
                ASSERT_NEAR(found.y(), expected.y(), 1.0);
                ++seen;
            }
        }
        ASSERT_GE(seen, 2) << "one mark does not tell the size";
    }

    static void expectInPlace(const CameraSetting& camera, const QSize& size)
    {
        SCOPED_TRACE(described(camera, size));
        stage().lookThrough(camera);
        const QImage picture = stage().picture();
        ASSERT_EQ(picture.size(), size);
        expectMarksInPlace(picture, camera);
    }

private:
    static std::unique_ptr<QTemporaryDir> s_folder;
    static std::unique_ptr<LiveWorkbench> s_host;
    static std::unique_ptr<ViewStage> s_stage;
};

std::unique_ptr<QTemporaryDir> ViewMapping::s_folder;
std::unique_ptr<LiveWorkbench> ViewMapping::s_host;
std::unique_ptr<ViewStage> ViewMapping::s_stage;

}  // namespace

TEST_F(ViewMapping, FollowsTheFilmFitOfEveryKindOfCameraInWideAndTallViews)
{
    for (const QSize& size : {kWide, kTall}) {
        stage().openSingle(size);
        for (const CameraSetting& camera : support::everyFilmFit()) {
            expectInPlace(camera, size);
        }
    }
}

TEST_F(ViewMapping, FollowsOverscanFilmAndResolutionToTheirExtremes)
{
    const struct {
        double overscan;
        double filmWidth;  // inches; the film's height is 1
        QSize resolution;
    } extremes[] = {
        {0.5, 1.5, {1920, 1080}}, {1.5, 1.5, {1920, 1080}}, {1, 0.5, {1920, 1080}},
        {1, 3, {1920, 1080}},     {1, 1.5, {1920, 800}},    {1, 1.5, {100, 400}},
    };
    for (const QSize& size : {kWide, kTall}) {
        stage().openSingle(size);
        for (const auto& extreme : extremes) {
            for (CameraSetting camera : camerasThatTell(size)) {
                camera.overscan = extreme.overscan;
                camera.horizontalAperture = extreme.filmWidth;
                camera.resolution = extreme.resolution;
                expectInPlace(camera, size);
            }
        }
    }
}

TEST_F(ViewMapping, FollowsTwoDimensionalPanAndZoom)
{
    const struct {
        double zoom;
        QPointF pan;
    } moves[] = {{0.5, {0.03, 0.06}}, {1, {0.2, -0.1}}, {2, {-0.4, 0.3}}};
    for (const QSize& size : {kWide, kTall}) {
        stage().openSingle(size);
        for (const auto& move : moves) {
            for (CameraSetting camera : camerasThatTell(size)) {
                camera.panZoom = true;
                camera.zoom = move.zoom;
                camera.pan = move.pan;
                expectInPlace(camera, size);
            }
        }
    }
}

TEST_F(ViewMapping, IsTheSameInTheLegacyRenderer)
{
    stage().openSingle(kWide);
    stage().useRenderer("base_OpenGL_Renderer");
    ASSERT_EQ(stage().renderer(), "base_OpenGL_Renderer");
    for (CameraSetting camera : support::everyFilmFit()) {
        expectInPlace(camera, kWide);
        camera.panZoom = true;
        camera.zoom = 1.5;
        camera.pan = QPointF(0.1, 0.05);
        expectInPlace(camera, kWide);
    }
}

TEST_F(ViewMapping, IsEachViewsOwnAmongFour)
{
    stage().openFour(QSize(1000, 700));
    CameraSetting persp;
    persp.fit = FilmFit::Overscan;
    CameraSetting front;
    front.camera = "front";
    front.fit = FilmFit::Vertical;
    const QStringList panels = stage().panels();
    for (int i = 0; i < panels.size(); ++i) {
        stage().lookThrough(panels[i], i % 2 ? front : persp);
    }
    for (int i = 0; i < panels.size(); ++i) {
        SCOPED_TRACE(panels[i].toStdString());
        expectMarksInPlace(stage().picture(panels[i]), i % 2 ? front : persp);
    }
}
