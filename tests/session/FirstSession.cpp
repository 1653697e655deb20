// A newcomer's first minutes as a program: opens the workbench with the sample scene and the draw tool, sketches a
// bouncing ball with the real pointer, undoes, redoes, saves, reopens, and leaves numbered pictures.
//
//     first-session WORKBENCH SCENE COMMAND FOLDER

#include "session/BouncingBall.h"
#include "session/Checks.h"
#include "support/LiveWorkbench.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <cstdio>

using support::LiveWorkbench;

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
    session::choosePencil(work.path());
    LiveWorkbench host(
        QDir::current().absoluteFilePath(arguments[1]),
        {"-prefs", work.path(), "-file", QDir::current().absoluteFilePath(arguments[2]), "-command", arguments[3]});
    if (!host.isRunning()) {
        return session::failed("The workbench did not start:\n" + host.output());
    }
    session::Checks check;
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
    const auto strokes = session::bouncingBall(host.viewRect());
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
    if (!check.allHold()) {
        std::fprintf(stderr, "%s\n", qPrintable(host.output()));
    }
    return check.allHold() ? 0 : 1;
}
