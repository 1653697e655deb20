// Where a stroke of the real pointer lands on the canvas, view by view.

#include "support/QtPrint.h"
#include "support/SceneText.h"
#include "support/ViewStage.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

using support::CameraSetting;
using support::FilmFit;
using support::LiveWorkbench;
using support::ViewStage;

namespace {

const char kProgram[] = LUMISKETCH_BIN "/lumisketch-workbench";
constexpr double kCanvas = 1024;

/// The pixels of a drawing that have ink, canvas pixels.
QVector<QPointF> inkOf(const QByteArray& scene)
{
    QVector<QPointF> ink;
    for (const QImage& picture : support::framePictures(scene)) {
        const QImage image = picture.convertToFormat(QImage::Format_ARGB32);
        for (int y = 0; y < image.height(); ++y) {
            const QRgb* const line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
            for (int x = 0; x < image.width(); ++x) {
                if (qAlpha(line[x]) > 0) {
                    ink << QPointF(x, y);
                }
            }
        }
    }
    return ink;
}

double distance(const QPointF& a, const QPointF& b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

double distanceToSegment(const QPointF& p, const QPointF& a, const QPointF& b)
{
    const QPointF along = b - a;
    const double share = QPointF::dotProduct(p - a, along) / QPointF::dotProduct(along, along);
    return distance(p, a + along * std::min(1.0, std::max(0.0, share)));
}

/// A program with a pencil one pixel wide.
class PointerSession {
public:
    PointerSession()
    {
        QFile preferences(m_folder.filePath("lumisketch2.ini"));
        if (preferences.open(QIODevice::WriteOnly)) {
            preferences.write("[tools]\nactiveTool=0\npencilSize=1\n");
        }
        preferences.close();
        m_host.reset(new LiveWorkbench(kProgram, {"-prefs", m_folder.path(), "-command", "setToolTo `tqLmDrawCtx`"}));
    }

    LiveWorkbench& host() { return *m_host; }

    /// The ink that a stroke leaves; the drawing is empty again afterwards. corner: of the view, on the screen.
    QVector<QPointF> inkOfStroke(QVector<QPoint> path, const QPoint& corner)
    {
        for (QPoint& point : path) {
            point += corner;
        }
        m_host->drag(path, 10, 40);
        const QString scene = m_folder.filePath("stroke.ma");
        m_host->run(QString("file -rename \"%1\"; file -save -type \"mayaAscii\"").arg(scene));
        QFile file(scene);
        const QVector<QPointF> ink = file.open(QIODevice::ReadOnly) ? inkOf(file.readAll()) : QVector<QPointF>();
        m_host->run("undo");
        return ink;
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<LiveWorkbench> m_host;
};

/// A straight drag across the part of the canvas that a view shows, in the view's pixels. All steps are alike, so every
/// point is on the line.
QVector<QPoint> dragAcross(const QRectF& canvas, const QSize& view)
{
    constexpr int kSteps = 12;
    const QPoint middle = (canvas & QRectF(QPointF(0, 0), view)).center().toPoint();
    QVector<QPoint> path;
    for (int i = -kSteps / 2; i <= kSteps / 2; ++i) {
        path << middle + i * QPoint(6, 3);
    }
    return path;
}

/// How ink lies along the line that it should follow; canvas pixels.
struct InkOnLine {
    double fromStart = kCanvas;  ///< of the ink that is nearest to it
    double fromLine = 0;         ///< of the ink that is farthest from it
    double length = 0;           ///< from the start of the line to the farthest ink
};

InkOnLine inkOnLine(const QVector<QPointF>& ink, const QPointF& beforeStart, const QPointF& start, const QPointF& end)
{
    InkOnLine result;
    for (const QPointF& p : ink) {
        const double off = std::min(distanceToSegment(p, beforeStart, start), distanceToSegment(p, start, end));
        result.fromStart = std::min(result.fromStart, distance(p, start));
        result.fromLine = std::max(result.fromLine, off);
        result.length = std::max(result.length, distance(p, start));
    }
    return result;
}

/// Draws across a view and looks for the ink. ratio: view pixels for each of the pointer's.
void expectInkUnderPointer(PointerSession& session, const QString& panel, const CameraSetting& camera, double ratio = 1)
{
    SCOPED_TRACE(QString("%1 through %2, fit %3").arg(panel, camera.camera).arg(int(camera.fit)).toStdString());
    const QRect view = session.host().viewRect(panel);
    ASSERT_FALSE(view.isEmpty()) << session.host().output().toStdString();
    const QRectF canvas = support::literalCanvasRect(camera, view.size());
    const double scale = kCanvas / canvas.width();
    const QVector<QPoint> path = dragAcross(canvas, view.size());
    // The pointer's pixels are counted from (1, 2) at the lower left, which is one to the right and one up.
    const auto onCanvas = [&](const QPointF& p) { return (p + QPointF(ratio, -ratio) - canvas.topLeft()) * scale; };
    const QPointF start = onCanvas(path.first());
    const QPointF end = onCanvas(path.last());

    // A stroke begins with a step of one pixel to the right.
    const InkOnLine ink =
        inkOnLine(session.inkOfStroke(path, view.topLeft()), onCanvas(path.first() - QPointF(ratio, 0)), start, end);
    // Where the pointer's pixels are larger than the view's, it is known to half of one of its own.
    const double tolerance = 1 + (ratio > 1 ? ratio * scale / 2 : 0);
    EXPECT_LE(ink.fromStart, tolerance);
    EXPECT_LE(ink.fromLine, tolerance);
    // The end trails the pointer, by less than the last five samples.
    EXPECT_GT(ink.length, distance(start, end) * 0.6);
}

class ViewPointer : public testing::Test {
protected:
    // Starting the program takes longer than a stroke, so all share one.
    static void SetUpTestSuite()
    {
        s_session = std::make_unique<PointerSession>();
        ASSERT_TRUE(session().host().isRunning()) << session().host().output().toStdString();
    }
    static void TearDownTestSuite() { s_session.reset(); }

    static PointerSession& session() { return *s_session; }

private:
    static std::unique_ptr<PointerSession> s_session;
};

std::unique_ptr<PointerSession> ViewPointer::s_session;

}  // namespace

TEST_F(ViewPointer, DrawsWhereItPointsInEachViewOfTheMainWindowAndInTheOneShownAlone)
{
    LiveWorkbench& host = session().host();
    const auto expectInView = [&](const QString& panel) {
        CameraSetting camera;
        camera.camera = host.run("modelPanel -q -camera " + panel);
        camera.fit = FilmFit::Horizontal;
        expectInkUnderPointer(session(), panel, camera);
    };
    host.run("workbenchView -panes 4; for ($camera in {\"persp\", \"top\", \"front\", \"side\"}) "
             "setAttr ($camera + \"Shape.filmFit\") 1;"
             "setAttr defaultResolution.width 1920; setAttr defaultResolution.height 1080");
    const QStringList panels{"modelPanel1", "modelPanel2", "modelPanel3", "modelPanel4"};
    for (const QString& panel : panels) {
        expectInView(panel);
        const QRect amongFour = host.viewRect(panel);
        host.moveTo(amongFour.center());
        host.key("space");
        EXPECT_GT(host.viewRect(panel).width(), amongFour.width());
        expectInView(panel);
        host.key("space");
        EXPECT_EQ(host.viewRect(panel), amongFour);
    }
    host.run("workbenchView -panes 1");
}

TEST_F(ViewPointer, DrawsWhereItPointsInWideAndTallViewsOfEveryFilmFit)
{
    ViewStage stage(session().host());
    const struct {
        QSize size;
        bool withoutPerspective;  // where the view's proportions change nothing
    } views[] = {{QSize(601, 301), true}, {QSize(301, 501), false}};
    for (const auto& view : views) {
        stage.openSingle(view.size);
        for (const CameraSetting& camera : support::everyFilmFit()) {
            if (view.withoutPerspective || !camera.isOrthographic()) {
                stage.lookThrough(camera);
                expectInkUnderPointer(session(), stage.panel(), camera);
            }
        }
    }
}

TEST_F(ViewPointer, DrawsWhereItPointsInPannedAndZoomedViews)
{
    ViewStage stage(session().host());
    stage.openSingle(QSize(601, 301));
    for (CameraSetting camera : support::everyFilmFit()) {
        camera.panZoom = true;
        camera.zoom = camera.isOrthographic() ? 0.5 : 2;
        camera.pan = QPointF(0.1, -0.06);
        stage.lookThrough(camera);
        expectInkUnderPointer(session(), stage.panel(), camera);
    }
}

TEST_F(ViewPointer, DrawsWhereItPointsInTheLegacyRenderer)
{
    ViewStage stage(session().host());
    stage.openSingle(QSize(601, 301));
    stage.useRenderer("base_OpenGL_Renderer");
    ASSERT_EQ(stage.renderer(), "base_OpenGL_Renderer");
    CameraSetting camera;
    for (const bool isPanned : {false, true}) {
        camera.panZoom = isPanned;
        camera.zoom = 0.6;
        camera.pan = QPointF(-0.1, 0.04);
        stage.lookThrough(camera);
        expectInkUnderPointer(session(), stage.panel(), camera);
    }
}

TEST_F(ViewPointer, DrawsWhereItPointsInEachOfFourViewsOfAWindow)
{
    ViewStage stage(session().host());
    stage.openFour(QSize(901, 701));
    CameraSetting camera;
    for (const QString& panel : stage.panels()) {
        stage.lookThrough(panel, camera);
    }
    for (const QString& panel : stage.panels()) {
        expectInkUnderPointer(session(), panel, camera);
    }
}

TEST(DenseScreen, IsDrawnOnWhereThePointerIs)
{
    for (const double ratio : {1.5, 2.0}) {
        SCOPED_TRACE(ratio);
        qputenv("QT_SCALE_FACTOR", QByteArray::number(ratio));
        PointerSession session;
        qunsetenv("QT_SCALE_FACTOR");
        ViewStage stage(session.host());
        stage.openSingle(QSize(301, 201));
        for (const FilmFit fit : {FilmFit::Fill, FilmFit::Overscan}) {
            CameraSetting camera;
            camera.fit = fit;
            stage.lookThrough(camera);
            expectInkUnderPointer(session, stage.panel(), camera, ratio);
        }
    }
}
