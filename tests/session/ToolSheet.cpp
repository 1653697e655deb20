// Every tool as the hand has it: drawn in a real view with a real pointer, and a pen, as one picture.
//
//     tool-sheet WORKBENCH FILE

#include "session/Checks.h"
#include "session/sheet/Page.h"
#include "support/ViewStage.h"

#include <QApplication>
#include <QDir>

#include <cstdio>

using sheet::Ground;
using sheet::Tile;
using support::CameraSetting;
using support::LiveWorkbench;
using support::ViewStage;

namespace {

constexpr int kCells = 6;
constexpr QSize kView(1024, 116);  // as wide as the canvas, so that a pixel of one is a pixel of the other
constexpr int kCellWidth = (kView.width() - (kCells - 1) * sheet::Page::kGap) / kCells;
constexpr int kWidth = kView.width() + sheet::Page::kLabels;
constexpr int kOpacities[] = {100, 50};

enum class Motif { Curve, Span, Word };

struct Tool {
    const char* name;
    const char* flag;
    const char* options;  ///< with %1 for the size and %2 for the opacity
    int sizes[3];
    Motif motif;
    bool isEraser = false;  ///< of a ground that has the opacity
};

const Tool kTools[] = {
    {"Pencil", "-pencilTool", "-pencilOptions %1 %2 0", {2, 10, 30}, Motif::Curve},
    {"Brush", "-brushTool", "-brushOptions %1 %2 50 0", {2, 10, 30}, Motif::Curve},
    {"Eraser", "-eraserTool", "-eraserOptions %1 %2 50 0", {4, 12, 24}, Motif::Curve, true},
    {"Text", "-textTool", "-textOptions %1 %2 \"DejaVu Sans\"", {12, 20, 30}, Motif::Word},
    {"Line", "-lineTool", "-lineOptions %1 %2", {2, 8, 20}, Motif::Span},
    {"Arrow", "-arrowTool", "-arrowOptions %1 %2", {2, 8, 20}, Motif::Span},
    {"Ellipse", "-ellipseTool", "-ellipseOptions %1 %2", {2, 8, 20}, Motif::Span},
    {"Rectangle", "-rectangleTool", "-rectangleOptions %1 %2", {2, 8, 20}, Motif::Span},
};

/// A pen that is pressed harder towards the middle of its way.
struct PenStroke {
    const char* caption;
    const char* tool;
    const char* options;
    bool isEraserEnd;
};

const PenStroke kPenStrokes[] = {
    {"pencil, 4 px", "-pencilTool", "-pencilOptions 4 100 1", false},
    {"pencil, 16 px", "-pencilTool", "-pencilOptions 16 100 1", false},
    {"brush, 16 px", "-brushTool", "-brushOptions 16 100 50 1", false},
    {"brush, 40 px", "-brushTool", "-brushOptions 40 100 50 1", false},
    {"eraser end, 8 px", "-pencilTool", "-eraserOptions 8 100 50 1", true},
    {"eraser end, 24 px", "-brushTool", "-eraserOptions 24 100 50 1", true},
};

QRect cellRect(int index)
{
    return QRect(index * (kCellWidth + sheet::Page::kGap), 0, kCellWidth, kView.height());
}

/// A swing down and up again that stays so far inside that a thick pen fits.
QVector<QPoint> swing(const QRect& cell)
{
    const QRectF area = QRectF(cell).adjusted(28, 28, -28, -28);
    QVector<QPointF> through;
    for (const QPointF& p :
         {QPointF(0, 0.1), QPointF(0.22, 0.85), QPointF(0.5, 0.5), QPointF(0.78, 0.1), QPointF(1, 0.9)}) {
        through << area.topLeft() + QPointF(p.x() * area.width(), p.y() * area.height());
    }
    return support::curve(through, 3);
}

/// The rows of the page. Each is drawn in a frame of its own.
class ToolSheet {
public:
    explicit ToolSheet(LiveWorkbench& host) : m_host(host), m_stage(host), m_page(kWidth)
    {
        m_page.heading("Tools", "Drawn with the pointer in a view; the last row with a pen.");
        m_stage.openSingle(kView);
        CameraSetting camera;
        camera.camera = "front";
        camera.fit = support::FilmFit::Horizontal;
        m_stage.lookThrough(camera);
    }

    void addTool(const Tool& tool)
    {
        beginRow();
        QStringList captions;
        for (const int opacity : kOpacities) {
            for (const int size : tool.sizes) {
                const QRect cell = onScreen(cellRect(captions.size()));
                if (tool.isEraser) {
                    paintGround(cell, opacity);
                }
                m_host.run(QString("tqLumisketchUtil %1; tqLumisketchUtil ").arg(tool.flag)
                           + QString(tool.options).arg(size).arg(opacity));
                draw(tool.motif, cell, size);
                captions << QString(tool.isEraser ? "%1 %2, from %3 %" : "%1 %2, %3 %")
                                .arg(size)
                                .arg(tool.motif == Motif::Word ? "pt" : "px")
                                .arg(opacity);
            }
        }
        endRow(tool.name, captions);
    }

    void addPen()
    {
        beginRow();
        QStringList captions;
        for (const PenStroke& stroke : kPenStrokes) {
            const QRect cell = onScreen(cellRect(captions.size()));
            if (stroke.isEraserEnd) {
                paintGround(cell, 100);
            }
            m_host.run(QString("tqLumisketchUtil %1; tqLumisketchUtil %2").arg(stroke.tool, stroke.options));
            drawWithPen(swing(cell), stroke.isEraserEnd);
            captions << stroke.caption;
        }
        endRow("Pen, light to firm to light", captions);
    }

    QImage finished() const { return m_page.finished(); }

private:
    QRect onScreen(const QRect& cell) { return cell.translated(m_host.viewRect(m_stage.panel()).topLeft()); }

    void beginRow() { m_host.run(QString("currentTime %1").arg(++m_rows)); }

    void endRow(const QString& label, const QStringList& captions)
    {
        m_host.moveTo(QPoint(2, 2));
        const QImage picture = m_stage.picture();
        QVector<Tile> row;
        for (const QString& caption : captions) {
            row << Tile{picture.copy(cellRect(row.size())), caption};
        }
        m_page.row(label, Ground::None, row);
    }

    void draw(Motif motif, const QRect& cell, int size)
    {
        switch (motif) {
        case Motif::Curve: m_host.drag(swing(cell), 8, 60); return;
        case Motif::Span: {
            const int margin = 18 + size / 2;
            const QRect area = cell.adjusted(margin, margin, -margin, -margin);
            m_host.drag(support::line(area.bottomLeft(), area.topRight(), 12), 8, 60);
            return;
        }
        case Motif::Word:
            m_host.click(cell.topLeft() + QPoint(14, 14));
            for (const char* key : {"shift+k", "e", "y", "Return", "1", "2", "Escape"}) {
                m_host.key(key);
            }
        }
    }

    /// Something to erase from.
    void paintGround(const QRect& cell, int opacity)
    {
        m_host.run(QString("tqLumisketchUtil -pencilTool; tqLumisketchUtil -pencilOptions 80 %1 0").arg(opacity));
        m_host.drag(support::line(cell.center() - QPoint(36, 0), cell.center() + QPoint(36, 0), 8), 8, 60);
    }

    void drawWithPen(const QVector<QPoint>& path, bool isEraserEnd)
    {
        const auto press = [&](int step) {
            const double along = double(step) / path.size();
            m_host.run(
                QString("workbenchPen -pressure %1 -eraser %2").arg(0.1 + 3.6 * along * (1 - along)).arg(isEraserEnd));
        };
        m_host.moveTo(path.first());
        press(0);
        m_host.hold(path.first(), path.first());
        for (int i = 1; i < path.size(); ++i) {
            press(i);
            m_host.moveTo(path[i]);
        }
        m_host.run("workbenchPen -release");
        m_host.letGo();
    }

    LiveWorkbench& m_host;
    ViewStage m_stage;
    sheet::Page m_page;
    int m_rows = 0;
};

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: tool-sheet WORKBENCH FILE\n");
        return 2;
    }
    QTemporaryDir work;
    LiveWorkbench host(QDir::current().absoluteFilePath(arguments[1]),
                       {"-prefs", work.path(), "-command", "setToolTo `tqLmDrawCtx`"});
    if (!host.isRunning()) {
        return session::failed("The workbench did not start:\n" + host.output());
    }
    host.run("tqLumisketchUtil -e -drawColor 250 205 110");
    ToolSheet sheet(host);
    for (const Tool& tool : kTools) {
        sheet.addTool(tool);
    }
    sheet.addPen();
    if (!sheet.finished().save(arguments[2], "PNG", 0)) {
        return session::failed(arguments[2] + " cannot be written.");
    }
    std::printf("%s\n", qPrintable(arguments[2]));
    return 0;
}
