// The transform tool as its user has it: every action with a real pointer and real keys in a real view, before, in the
// middle and after; its menu and its help. One picture.
//
//     transform-sheet WORKBENCH FILE

#include "session/Checks.h"
#include "session/sheet/Page.h"
#include "support/DrawingScene.h"
#include "support/PointedPopup.h"
#include "support/PointedTransform.h"
#include "support/ViewStage.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <functional>

using sheet::Ground;
using sheet::Page;
using sheet::Tile;
using support::CameraSetting;
using support::LiveWorkbench;
using support::PointedPopup;
using support::PointedTransform;
using support::ViewStage;

namespace {

constexpr QSize kView(340, 160);
constexpr QSize kMenuView(340, 270);
constexpr int kColumns = 3;
constexpr int kWidth = Page::kLabels + kColumns * kView.width() + (kColumns - 1) * Page::kGap;
constexpr int kCanvas = 1024;
constexpr int kMostSteps = 2;         // of a row
const QRect kBird(24, 30, 110, 100);  // in a view of the rows
const QPoint kElsewhere(196, 36);     // its corner where it is pasted

/// A bird that faces right, in the part of the canvas that kBird shows.
QImage birdDrawing()
{
    QImage canvas(kCanvas, kCanvas, QImage::Format_RGBA8888);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = double(kCanvas) / kView.width();
    painter.translate(kBird.left() * scale, kCanvas / 2.0 + (kBird.top() - kView.height() / 2.0) * scale);
    painter.scale(scale, scale);
    painter.setPen(QPen(QColor(0xfa, 0xcd, 0x6e), 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawPolyline(QPolygonF({{52, 80}, {54, 94}, {64, 94}}));
    painter.drawPolyline(QPolygonF({{64, 78}, {66, 94}, {76, 94}}));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x2f, 0x5d, 0x7c));
    painter.drawPolygon(QPolygonF({{8, 40}, {36, 48}, {32, 62}, {4, 54}}));
    painter.setBrush(QColor(0x6b, 0xa6, 0xc8));
    painter.drawEllipse(QPointF(56, 58), 32, 23);
    painter.drawEllipse(QPointF(80, 32), 17, 17);
    painter.setBrush(QColor(0xfa, 0xcd, 0x6e));
    painter.drawPolygon(QPolygonF({{95, 26}, {107, 34}, {95, 40}}));
    painter.setBrush(QColor(0xf0, 0xd9, 0xb5));
    painter.drawEllipse(QPointF(66, 66), 17, 11);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(85, 29), 5, 5);
    painter.setBrush(QColor(0x2b, 0x38, 0x46));
    painter.drawEllipse(QPointF(86.5, 29), 2.5, 2.5);
    return canvas;
}

/// The rows of the page. Each begins with the bird as it was, and tells whether undo gives it back.
class TransformSheet {
public:
    explicit TransformSheet(LiveWorkbench& host)
        : m_host(host), m_stage(host), m_page(kWidth), m_tool(host, "stageView")
    {
        openView(kView);
        m_page.heading("Transform", "The bird as it was, in the middle of it, and put down.");
    }

    PointedTransform& tool() { return m_tool; }
    void selectBird() { m_tool.select(m_bird.topLeft(), m_bird.bottomRight()); }
    void beginBird() { m_tool.begin(m_bird.topLeft(), m_bird.bottomRight()); }
    void choose(const char* entry) { m_tool.choose(entry, m_bird.center()); }

    using Act = std::function<void()>;
    void addRow(const char* label, const char* during, const Act& begin, const char* after, const Act& end)
    {
        QVector<Tile> row = {shown("before")};
        begin();
        row << shown(during);
        end();
        row << shown(after);
        m_page.row(label, Ground::None, row);
        m_tool.takeUp();
        for (int steps = 0; steps < kMostSteps && shown("").image != row[0].image; ++steps) {
            m_host.run("undo");
        }
        m_check(label, shown("").image == row[0].image);
    }

    /// The outline on what it may be hard to see on.
    void addGrounds(const QDir& folder)
    {
        QVector<Tile> row;
        for (const QColor& colour : {QColor(Qt::white), QColor(Qt::black)}) {
            const QString file = folder.filePath(colour.name().mid(1) + ".png");
            QImage plate(kView, QImage::Format_RGB32);
            plate.fill(colour);
            plate.save(file);
            m_host.run(QString("imagePlane -camera frontShape -fileName \"%1\"; select -clear").arg(file));
            row << floating(colour == Qt::white ? "bright" : "dark");
            m_host.run("delete imagePlane1");
        }
        m_page.row("Grounds", Ground::None, row);
    }

    void addMenus(const QString& scene)
    {
        m_host.run(QString("file -force -open \"%1\"").arg(scene));
        openView(kMenuView);
        QVector<Tile> row = {menu("nothing to paste")};
        selectBird();
        choose("Copy");
        row << menu("after Copy");
        beginBird();
        row << menu("while transforming");
        m_page.section("The right button's menu", "");
        m_page.row("", Ground::None, row);
    }

    void addHelp()
    {
        m_host.run("window -e -widthHeight 1400 860 $gMainWindow");
        m_tool.revert();
        m_page.section("Help line", "");
        m_page.row("Selecting", Ground::None, {help()});
        beginBird();
        m_page.row("Transforming", Ground::None, {help()});
    }

    QImage finished() const { return m_page.finished(); }
    bool allHold() const { return m_check.allHold(); }

private:
    void openView(const QSize& size)
    {
        m_stage.openSingle(size);
        CameraSetting camera;
        camera.camera = "front";
        camera.fit = support::FilmFit::Horizontal;
        m_stage.lookThrough(camera);
        m_tool.takeUp();
        m_bird = kBird.translated(0, (size.height() - kView.height()) / 2);
    }

    Tile floating(const char* caption)
    {
        beginBird();
        m_tool.turn(15);
        const Tile tile = shown(caption);
        m_tool.revert();
        return tile;
    }

    Tile menu(const char* caption)
    {
        const QRect view = m_host.viewRect(m_stage.panel());
        PointedPopup(m_host, view.topLeft() + QPoint(130, 20)).open();
        const Tile tile = {m_host.screenshot(view), caption};
        m_host.key("Escape");
        return tile;
    }

    Tile help() { return {m_host.screenshot(m_host.controlRect("helpLine"))}; }

    Tile shown(const char* caption)
    {
        m_host.moveTo(QPoint(2, 2));
        return {m_host.screenshot(m_host.viewRect(m_stage.panel())), caption};
    }

    LiveWorkbench& m_host;
    ViewStage m_stage;
    Page m_page;
    PointedTransform m_tool;
    QRect m_bird;  // in the view
    session::Checks m_check;
};

void addActions(TransformSheet& sheet)
{
    PointedTransform& tool = sheet.tool();
    const auto begun = [&](const TransformSheet::Act& act) {
        return [&sheet, act] {
            sheet.beginBird();
            act();
        };
    };
    const auto applied = [&] { tool.apply(); };
    sheet.addRow(
        "Select", "left button", [&] { sheet.selectBird(); }, "Enter: it floats", applied);
    const auto paste = [&](const char* entry) { tool.choose(entry, kElsewhere); };
    sheet.addRow("Move", "left button", begun([&] { tool.move({150, 12}); }), "Enter", applied);
    sheet.addRow("Turn", "Shift + left button", begun([&] { tool.turn(35); }), "Enter", applied);
    sheet.addRow("Turn by 90", "Shift + left button", begun([&] { tool.turn(90); }), "Enter", applied);
    sheet.addRow("Scale", "middle button", begun([&] { tool.scale({100, 0}, 30); }), "Enter", applied);
    sheet.addRow("Scale one side", "Shift + middle button", begun([&] {
                     tool.scale({100, 0}, 40, true);
                 }),
                 "Enter", applied);
    sheet.addRow("Flip", "Flip Horizontal", begun([&] { sheet.choose("Flip Horizontal"); }), "Enter", applied);
    sheet.addRow("Flip", "Flip Vertical", begun([&] { sheet.choose("Flip Vertical"); }), "Enter", applied);
    const auto cut = [&] {
        sheet.selectBird();
        sheet.choose("Cut");
    };
    const auto copy = [&] {
        sheet.selectBird();
        sheet.choose("Copy");
    };
    sheet.addRow("Cut and paste", "Cut", cut, "Paste", [&] { paste("Paste"); });
    sheet.addRow("Copy and paste", "Copy", copy, "Paste", [&] { paste("Paste"); });
    sheet.addRow(
        "Paste and transform", "Paste and Transform", [&] { paste("Paste and Transform"); }, "turned, Enter",
        [&] {
            tool.turn(-25);
            tool.apply();
        });
    sheet.addRow(
        "Transform copy", "Transform Copy, left button",
        [&] {
            sheet.selectBird();
            sheet.choose("Transform Copy");
            tool.move({160, 0});
        },
        "Enter", applied);
    sheet.addRow("Revert", "left button", begun([&] { tool.move({150, 12}); }), "Backspace", [&] { tool.revert(); });
    sheet.addRow("Cancel", "left button", begun([&] { tool.move({150, 12}); }), "Esc", [&] { tool.cancel(); });
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: transform-sheet WORKBENCH FILE\n");
        return 2;
    }
    QTemporaryDir work;
    QFile scene(work.filePath("bird.ma"));
    if (!scene.open(QIODevice::WriteOnly)
        || scene.write(support::drawingScene(QMap<QString, QImage>{{"front", birdDrawing()}})) < 0) {
        return session::failed("The scene cannot be written.");
    }
    scene.close();
    LiveWorkbench host(QDir::current().absoluteFilePath(arguments[1]),
                       {"-prefs", work.path(), "-file", scene.fileName()});
    if (!host.isRunning()) {
        return session::failed("The workbench did not start:\n" + host.output());
    }
    TransformSheet sheet(host);
    addActions(sheet);
    sheet.addGrounds(QDir(work.path()));
    sheet.addMenus(scene.fileName());
    sheet.addHelp();
    if (!sheet.finished().save(arguments[2], "PNG", 0)) {
        return session::failed(arguments[2] + " cannot be written.");
    }
    std::printf("%s\n", qPrintable(arguments[2]));
    return sheet.allHold() ? 0 : 1;
}
