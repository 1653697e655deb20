// An image sequence playing behind a camera, with a drawing over it that follows the ball, as one picture of the
// window.
//
//     playback-session WORKBENCH FOLDER

#include "session/Checks.h"
#include "session/Plates.h"
#include "support/DrawingScene.h"
#include "support/LiveWorkbench.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <cstdio>

namespace {

constexpr int kCanvas = 1024;            // as wide as the plates, and with the same middle
constexpr unsigned long kPlayed = 3000;  // ms

/// A ring round the ball of a frame and the way it came, on the canvas.
QImage notes(int frameNumber)
{
    QImage canvas(kCanvas, kCanvas, QImage::Format_RGBA8888);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(kCanvas / 2.0, kCanvas / 2.0);
    painter.scale(kCanvas / 1280.0, kCanvas / 1280.0);
    painter.translate(-1280 / 2.0, -720 / 2.0);
    painter.setPen(QPen(QColor(0xfa, 0xcd, 0x6e), 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (int number = 1; number < frameNumber; ++number) {
        painter.drawPoint(session::ballAt(number));
    }
    painter.drawEllipse(session::ballAt(frameNumber), 92.0, 92.0);
    return canvas;
}

support::Sheets allNotes()
{
    support::Sheets sheets;
    for (int number = 1; number <= session::kPlateCount; ++number) {
        sheets[number] = notes(number);
    }
    return sheets;
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: playback-session WORKBENCH FOLDER\n");
        return 2;
    }
    QTemporaryDir work;
    QFile scene(work.filePath("notes.ma"));
    const QMap<QString, support::Sheets> cameras = {{"persp", allNotes()}};
    if (!session::writePlates(QDir(work.path())) || !scene.open(QIODevice::WriteOnly)
        || scene.write(support::drawingScene(cameras)) < 0) {
        return session::failed("The scene cannot be written.");
    }
    scene.close();
    support::LiveWorkbench host(QDir::current().absoluteFilePath(arguments[1]), {"-prefs", work.path()});
    if (!host.isRunning()) {
        return session::failed("The workbench did not start:\n" + host.output());
    }
    // The film has the shape of the plates, and so has what is drawn on.
    const QString answer =
        host.run(QString("file -import -type \"mayaAscii\" \"%1\"; imagePlane -camera perspShape -fileName \"%2\"; "
                         "setAttr imagePlaneShape1.useFrameExtension 1; setAttr perspShape.verticalFilmAperture 0.797; "
                         "setAttr perspShape.filmFit 1; select -clear; modelEditor -edit -grid 0 modelPanel4; "
                         "playbackOptions -min 1 -max %3; play -state on")
                     .arg(scene.fileName(), work.filePath("plate.0001.png"))
                     .arg(session::kPlateCount));
    if (answer.startsWith("Error")) {
        return session::failed(answer);
    }
    QThread::msleep(kPlayed);
    const QString file = QDir(arguments[2]).filePath("playback.png");
    if (!host.screenshot().save(file)) {
        return session::failed(file + " cannot be written.");
    }
    std::printf("%s\n", qPrintable(file));
    return 0;
}
