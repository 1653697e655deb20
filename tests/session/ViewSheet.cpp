// Where the drawing sits in every kind of view, as one picture: a frame that touches the resolution gate, with its
// diagonals and a circle, seen through every film fit, panned and zoomed, in four views and by both renderers.
//
//     view-sheet WORKBENCH SCENE FILE

#include "session/Checks.h"
#include "session/sheet/Page.h"
#include "support/DrawingScene.h"
#include "support/ViewStage.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <cstdio>

using sheet::Ground;
using sheet::Tile;
using support::CameraSetting;
using support::FilmFit;
using support::LiveWorkbench;
using support::ViewStage;

namespace {

constexpr int kWidth = 1536;
constexpr double kOverscan = 1.15;         // so that the gate's edge is in the view
constexpr double kOverscanForNames = 1.4;  // and the camera's name below it

/// The width of each of so many equal views in a row of the page.
constexpr int share(int count)
{
    return (kWidth - sheet::Page::kLabels - (count - 1) * sheet::Page::kGap) / count;
}

constexpr QSize kWideCell(share(4), share(4) / 2);
constexpr QSize kTallCell(share(8), share(8) * 3 / 2);
constexpr QSize kFourViews(share(1), share(1) * 2 / 5);
const char* const kFitNames[] = {"Fill", "Horizontal", "Vertical", "Overscan"};

/// Everything that the resolution gate holds, to its edge. The gate is as wide as the canvas.
QImage gateDrawing(const QSize& resolution)
{
    QImage canvas(1024, 1024, QImage::Format_RGBA8888);
    canvas.fill(Qt::transparent);
    const double height = 1024.0 * resolution.height() / resolution.width();
    const QRectF gate(0, 512 - height / 2, 1024, height);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x8f, 0xc1, 0xcf), 4));
    painter.drawLine(gate.topLeft(), gate.bottomRight());
    painter.drawLine(gate.bottomLeft(), gate.topRight());
    painter.setPen(QPen(QColor(0xe8, 0x6a, 0x4e), 8));
    painter.drawEllipse(gate.center(), height / 2 - 4, height / 2 - 4);
    painter.setPen(QPen(QColor(0xfa, 0xcd, 0x6e), 8, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(gate.adjusted(4, 4, -4, -4));
    return canvas;
}

CameraSetting cameraOf(const char* name, FilmFit fit)
{
    CameraSetting camera;
    camera.camera = name;
    camera.fit = fit;
    camera.overscan = kOverscan;
    return camera;
}

/// The rows of the page, each seen in a window of the program's own that is as large as the row's pictures.
class ViewSheet {
public:
    explicit ViewSheet(LiveWorkbench& host) : m_host(host), m_stage(host), m_page(kWidth)
    {
        m_page.heading("Views", "A frame along the edge of the resolution gate, its diagonals and a circle.");
    }

    void addFits()
    {
        m_page.section("Film fit", "The film is 3:2, the picture 16:9.");
        m_page.row("Perspective", Ground::None, fits("persp", kWideCell));
        m_page.row("Orthographic", Ground::None, fits("front", kWideCell));
        m_page.row("Tall views: perspective, then orthographic", Ground::None,
                   fits("persp", kTallCell) + fits("front", kTallCell));
    }

    void addPanAndZoom()
    {
        m_page.section("2D pan and zoom", "The drawing keeps to the picture.");
        m_page.row("Perspective", Ground::None, panAndZoom("persp"));
        m_page.row("Orthographic", Ground::None, panAndZoom("front"));
    }

    void addGates()
    {
        const struct {
            const char* caption;
            const char* attribute;
            FilmFit fit;
        } cells[] = {{"Resolution gate, fill", "displayResolution", FilmFit::Fill},
                     {"Resolution gate, overscan", "displayResolution", FilmFit::Overscan},
                     {"Film gate, fill", "displayFilmGate", FilmFit::Fill},
                     {"Film gate, overscan", "displayFilmGate", FilmFit::Overscan}};
        m_stage.openSingle(kWideCell);
        QVector<Tile> row;
        for (const auto& cell : cells) {
            m_host.run(QString("setAttr perspShape.%1 1").arg(cell.attribute));
            row << shown(cell.caption, cameraOf("persp", cell.fit));
            m_host.run(QString("setAttr perspShape.%1 0").arg(cell.attribute));
        }
        m_page.section("Gates", "The view's own guides over the drawing.");
        m_page.row("Perspective", Ground::None, row);
    }

    void addRenderers()
    {
        const struct {
            const char* caption;
            const char* name;
        } renderers[] = {{"Viewport 2.0", "vp2Renderer"}, {"Legacy renderer", "base_OpenGL_Renderer"}};
        m_stage.openSingle(kWideCell);
        QVector<Tile> row;
        for (const char* camera : {"persp", "front"}) {
            for (const auto& renderer : renderers) {
                m_stage.useRenderer(renderer.name);
                row << shown(renderer.caption, cameraOf(camera, FilmFit::Horizontal));
            }
        }
        m_page.section("Renderers", "The same drawing in either.");
        m_page.row("Perspective, orthographic", Ground::None, row);
    }

    void addFourViews()
    {
        m_stage.openFour(kFourViews);
        const char* const cameras[] = {"top", "persp", "side", "front"};
        QRect window;
        for (int i = 0; i < 4; ++i) {
            const QString panel = m_stage.panels()[i];
            CameraSetting camera = cameraOf(cameras[i], FilmFit::Vertical);
            camera.overscan = kOverscanForNames;
            m_stage.lookThrough(panel, camera);
            m_host.run("modelEditor -edit -headsUpDisplay 1 " + panel);  // has the camera's name
            window |= m_host.viewRect(panel);
        }
        m_host.moveTo(QPoint(2, 2));
        m_page.section("Four views", "Each camera has a drawing of its own.");
        m_page.row("Top, perspective, front, side", Ground::None, {{m_host.screenshot(window)}});
    }

    QImage finished() const { return m_page.finished(); }

private:
    Tile shown(const QString& caption, const CameraSetting& camera)
    {
        m_stage.lookThrough(camera);
        return {m_stage.picture(), caption};
    }

    QVector<Tile> fits(const char* name, const QSize& size)
    {
        m_stage.openSingle(size);
        QVector<Tile> row;
        for (const FilmFit fit : {FilmFit::Fill, FilmFit::Horizontal, FilmFit::Vertical, FilmFit::Overscan}) {
            row << shown(kFitNames[int(fit)], cameraOf(name, fit));
        }
        return row;
    }

    QVector<Tile> panAndZoom(const char* name)
    {
        const struct {
            const char* caption;
            double zoom;
            QPointF pan;
        } cells[] = {{"Zoom 0.5", 0.5, {}},
                     {"Zoom 2", 2, {}},
                     {"Pan to the right and up", 1, {0.35, 0.15}},
                     {"Zoom 0.5 at the upper left corner", 0.5, {-0.75, 0.42}}};
        m_stage.openSingle(kWideCell);
        QVector<Tile> row;
        for (const auto& cell : cells) {
            CameraSetting camera = cameraOf(name, FilmFit::Horizontal);
            camera.panZoom = true;
            camera.zoom = cell.zoom;
            camera.pan = cell.pan;
            row << shown(cell.caption, camera);
        }
        return row;
    }

    LiveWorkbench& m_host;
    ViewStage m_stage;
    sheet::Page m_page;
};

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 4) {
        std::fprintf(stderr, "usage: view-sheet WORKBENCH SCENE FILE\n");
        return 2;
    }
    QTemporaryDir work;
    QFile drawing(work.filePath("drawing.ma"));
    const QImage picture = gateDrawing(CameraSetting().resolution);
    if (!drawing.open(QIODevice::WriteOnly)
        || drawing.write(
               support::drawingScene({{"persp", picture}, {"top", picture}, {"front", picture}, {"side", picture}}))
               < 0) {
        return session::failed(drawing.fileName() + " cannot be written.");
    }
    drawing.close();
    LiveWorkbench host(QDir::current().absoluteFilePath(arguments[1]),
                       {"-prefs", work.path(), "-file", QDir::current().absoluteFilePath(arguments[2])});
    if (!host.isRunning()) {
        return session::failed("The workbench did not start:\n" + host.output());
    }
    const QString imported = host.run(QString("file -import -type \"mayaAscii\" \"%1\"").arg(drawing.fileName()));
    if (imported.startsWith("Error")) {
        return session::failed(imported);
    }
    ViewSheet sheet(host);
    sheet.addFits();
    sheet.addPanAndZoom();
    sheet.addGates();
    sheet.addRenderers();
    sheet.addFourViews();
    if (!sheet.finished().save(arguments[3], "PNG", 0)) {
        return session::failed(arguments[3] + " cannot be written.");
    }
    std::printf("%s\n", qPrintable(arguments[3]));
    return 0;
}
