// A newcomer's first minutes as a program: opens the workbench with the sample scene and the draw tool, sketches a
// bouncing ball with the real pointer, undoes, redoes, saves, reopens, and leaves numbered pictures.
//
//     first-session WORKBENCH SCENE COMMAND FOLDER

#include "support/LiveWorkbench.h"

#include <QApplication>
#include <QColor>
#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

#include <cmath>
#include <cstdio>

using support::LiveWorkbench;

namespace {

/// A turn and a bit more, as a hand closes a circle.
QVector<QPointF> ellipse(QPointF centre, double rx, double ry, double tilt = 0)
{
    QVector<QPointF> points;
    for (int i = 0; i < 19; ++i) {
        const double a = 2 * M_PI * i / 16 - 0.6;
        const QPointF p(rx * std::cos(a), ry * std::sin(a));
        points << centre
                      + QPointF(p.x() * std::cos(tilt) - p.y() * std::sin(tilt),
                                p.x() * std::sin(tilt) + p.y() * std::cos(tilt));
    }
    return points;
}

/// The strokes of a bouncing ball: ground, two arcs, the ball along them, squashed where it lands. Unit: the view's
/// height.
QVector<QVector<QPoint>> bouncingBall(const QRect& view)
{
    const double h = view.height();
    const auto at = [&](double x, double y) { return QPointF(view.left() + x * h, view.top() + y * h); };
    const double middle = view.width() / h / 2;
    QVector<QVector<QPoint>> strokes;
    strokes << support::curve(
        {at(middle - 0.62, 0.845), at(middle - 0.2, 0.838), at(middle + 0.2, 0.846), at(middle + 0.62, 0.838)}, 4);
    strokes << support::curve(
        {at(middle - 0.56, 0.30), at(middle - 0.46, 0.36), at(middle - 0.36, 0.55), at(middle - 0.31, 0.76)}, 4);
    strokes << support::curve({at(middle - 0.29, 0.76), at(middle - 0.18, 0.46), at(middle - 0.03, 0.34),
                               at(middle + 0.12, 0.46), at(middle + 0.22, 0.76)},
                              4);
    strokes << support::curve(
        {at(middle + 0.25, 0.76), at(middle + 0.33, 0.58), at(middle + 0.43, 0.50), at(middle + 0.53, 0.58)}, 4);
    const double r = 0.055 * h;
    strokes << support::curve(ellipse(at(middle - 0.56, 0.30), r, r), 3);
    strokes << support::curve(ellipse(at(middle - 0.36, 0.55), r * 0.88, r * 1.16, -0.30), 3);
    strokes << support::curve(ellipse(at(middle - 0.30, 0.795), r * 1.35, r * 0.72), 3);
    strokes << support::curve(ellipse(at(middle - 0.18, 0.46), r * 0.9, r * 1.12, 0.45), 3);
    strokes << support::curve(ellipse(at(middle - 0.03, 0.34), r, r), 3);
    strokes << support::curve(ellipse(at(middle + 0.12, 0.46), r * 0.9, r * 1.12, -0.45), 3);
    strokes << support::curve(ellipse(at(middle + 0.23, 0.795), r * 1.3, r * 0.76), 3);
    strokes << support::curve(ellipse(at(middle + 0.43, 0.50), r, r), 3);
    return strokes;
}

/// Preferences a person would have chosen for this drawing: a dark pencil of medium width.
void choosePencil(const QString& preferenceFolder)
{
    QSettings preferences(QDir(preferenceFolder).filePath("lumisketch2.ini"), QSettings::IniFormat);
    preferences.setValue("tools/activeTool", 0);
    preferences.setValue("tools/pencilSize", 4);
    preferences.setValue("tools/activeColor", QColor(250, 205, 110));
}

int s_failures = 0;

void check(const char* what, bool holds)
{
    std::printf("  %-58s %s\n", what, holds ? "yes" : "NO");
    s_failures += holds ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 5) {
        std::fprintf(stderr, "usage: first-session WORKBENCH SCENE COMMAND FOLDER\n");
        return 2;
    }
    const QDir folder(QDir(arguments[4]).absolutePath());
    QTemporaryDir work;
    choosePencil(work.path());
    LiveWorkbench host(
        QDir::current().absoluteFilePath(arguments[1]),
        {"-prefs", work.path(), "-file", QDir::current().absoluteFilePath(arguments[2]), "-command", arguments[3]});
    if (!host.isRunning()) {
        std::fprintf(stderr, "The workbench did not start:\n%s\n", qPrintable(host.output()));
        return 1;
    }
    int number = 0;
    const auto picture = [&](const char* name) {
        host.moveTo(QPoint(2, 2));
        const QImage image = host.screenshot();
        const QString file = folder.filePath(QString("%1-%2.png").arg(++number, 2, 10, QChar('0')).arg(name));
        image.save(file);
        std::printf("%s\n", qPrintable(file));
        return image.copy(host.viewRect());
    };

    const QImage opened = picture("opened");
    const auto strokes = bouncingBall(host.viewRect());
    for (const QVector<QPoint>& stroke : strokes) {
        host.drag(stroke);
    }
    const QImage drawn = picture("drawn");
    check("the drawing shows", drawn != opened);

    for (int i = 0; i < strokes.size(); ++i) {
        host.key("ctrl+z");
    }
    check("undo gives the empty view back, to the byte", picture("undone") == opened);
    for (int i = 0; i < strokes.size(); ++i) {
        host.key("ctrl+shift+z");
    }
    check("redo gives the drawing back, to the byte", picture("redone") == drawn);

    const QString scene = QDir(work.path()).filePath("bouncing-ball.ma");
    host.run(QString("file -rename \"%1\"; file -save -type \"mayaAscii\"").arg(scene));
    host.run("file -f -new");
    picture("new-scene");
    host.run(QString("file -f -open \"%1\"").arg(scene));
    check("after saving and reopening the drawing is there", picture("reopened") == drawn);
    if (s_failures > 0) {
        std::fprintf(stderr, "%s\n", qPrintable(host.output()));
    }
    return s_failures == 0 ? 0 : 1;
}
