// The demo script as a user sees it: each stage in the real window with the real pointer, with a picture of it, a line
// for whatever must hold, and a few of the pictures together on one page.
//
//     demo-session WORKBENCH SCENE COMMAND SCRIPT FOLDER

#include "session/Checks.h"
#include "support/LiveWorkbench.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>

#include <cstdio>

using support::LiveWorkbench;

namespace {

constexpr int kStageTimeout = 300000;  // ms; a hand takes its time, also on a busy machine
const char* const kStages[] = {"block", "path", "rough", "ghosts", "clean", "timing", "copy", "mistake", "undo", "end"};

// --- the page ------------------------------------------------------------------------------------------------------

constexpr int kShotWidth = 404;
constexpr int kColumns = 3;
constexpr int kGap = 8;
constexpr int kCaption = 22;
const QColor kGround("#444444");
const QColor kText("#d8d8d8");
/// Stages, numbered from 1, that tell the story.
const struct {
    int stage;
    const char* caption;
} kOnPage[] = {{2, "The path of action"},   {4, "Rough keys, with ghosts"}, {5, "Cleaned up on a layer above"},
               {6, "Timed to the accents"}, {8, "A stroke one regrets"},    {9, "Undo"}};

/// The views of the stages above, in rows with captions below them.
QImage page(const QVector<QImage>& views)
{
    const QSize shot = views.first().size().scaled(kShotWidth, 9999, Qt::KeepAspectRatio);
    const int rows = (int(std::size(kOnPage)) + kColumns - 1) / kColumns;
    const QSize cell = shot + QSize(kGap, kCaption + kGap);
    QImage page(kGap + kColumns * cell.width(), kGap + rows * cell.height(), QImage::Format_RGB32);
    page.fill(kGround);
    QPainter painter(&page);
    painter.setPen(kText);
    int place = 0;
    for (const auto& row : kOnPage) {
        const QPoint corner(kGap + place % kColumns * cell.width(), kGap + place / kColumns * cell.height());
        painter.drawImage(corner, views[row.stage - 1].scaled(shot, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        painter.drawText(QRect(corner + QPoint(2, shot.height()), QSize(shot.width(), kCaption)), Qt::AlignVCenter,
                         row.caption);
        ++place;
    }
    return page;
}

// --- what must hold ------------------------------------------------------------------------------------------------

/// The frames of a layer by stepping through them, which ends where it began and is no work to be saved.
QString framesOf(LiveWorkbench& host, int layer)
{
    const QString isModified = host.run("file -q -modified");
    host.run(QString("catchQuiet(`tqLumisketchLayer -e -active %1 persp`); currentTime 1").arg(layer));
    QStringList frames;
    do {
        frames << host.run("currentTime -q");
        host.run("tqLumisketchFrame -stepForward");
    } while (host.run("currentTime -q") != "1" && frames.size() < 99);
    host.run("file -modified " + isModified);
    return frames.join(' ');
}

void checkDrawing(LiveWorkbench& host, session::Checks& check, int stage)
{
    const auto layers = [&] {
        return host.run("stringArrayToString({`tqLumisketchLayer -qn 0 persp`, `tqLumisketchLayer -qn 1 persp`,"
                        "`tqLumisketchLayer -qn 2 persp`}, \" \")");
    };
    const char kTimed[] = "1 7 9 11 15 19 21 25 29 33";
    switch (stage) {
    case 3: check("Rough has its ten drawings on twos", framesOf(host, 1) == "1 3 5 7 9 11 13 15 17 19"); break;
    case 5:
        check("there are three layers", host.run("tqLumisketchLayer -count persp") == "3");
        check("they are Path, Rough and Clean", layers() == "Path Rough Clean");
        check("Rough is hidden", host.run("tqLumisketchLayer -qv 1 persp") == "0");
        break;
    case 6:
        check("Rough lands on the accents 9, 21 and 29", framesOf(host, 1) == kTimed);
        check("so does Clean", framesOf(host, 2) == kTimed);
        break;
    case 10:
        check("there is nothing to save", host.run("file -q -modified") == "0");
        check("the copy is on frame 36", framesOf(host, 2) == QString(kTimed) + " 36");
        break;
    default: break;
    }
}

QString sceneToImport(const QTemporaryDir& folder)
{
    QFile file(folder.filePath("import.ma"));
    file.open(QIODevice::WriteOnly);
    file.write("//Maya ASCII 2019 scene\nrequires maya \"2019\";\ncreateNode transform -n \"imported\";\n");
    return file.fileName();
}

void checkUnsavedWork(LiveWorkbench& host, session::Checks& check, const QString& work)
{
    const auto isRefused = [&] { return host.run("animatorsSession").contains("save it"); };
    host.run("createNode transform -name work");
    check("it leaves unsaved work alone", isRefused() && host.run("objExists work") == "1");
    host.run("file -force -new; string $tool = `currentCtx`; setToolTo $gSelect; setToolTo $tool");
    host.settle();
    check("a new scene with the tool's empty drawing is no work",
          host.run("file -q -modified") == "1" && host.run("animatorsSessionCheck").isEmpty());
    host.run(QString("file -import \"%1\"").arg(work));
    check("an import is", isRefused() && host.run("objExists imported") == "1");
    host.run("file -modified off; animatorsSessionStage(1)");
    check("it can be held again", host.run("tqLumisketchLayer -count persp") == "1");
}

void checkOthersScenes(LiveWorkbench& host, session::Checks& check)
{
    host.run("createNode transform -name work; animatorsSessionStage(4)");
    check("what was added between stages needs saving", host.run("file -q -modified") == "1");
    host.run("file -force -new; createNode transform -name work");
    check("it goes on in no other scene", host.run("animatorsSessionStage(4)").contains("is not open"));
    check("and leaves that to be saved", host.run("file -q -modified") == "1");
    host.run("file -modified off");
}

/// One that is begun again, and whose mouse is taken away in the rest after its first strokes.
void checkRuns(LiveWorkbench& host, session::Checks& check)
{
    const auto waitFor = [&](const char* text, bool isWaiting) {
        const QDeadlineTimer patience(kStageTimeout);
        while (host.run("evalDeferred -list", kStageTimeout).contains(text) != isWaiting) {
            if (patience.hasExpired()) {
                return false;
            }
        }
        return true;
    };
    host.run("$gAnimatorsSessionRun = 100; animatorsSession");
    check("it goes on when it is begun", waitFor("animatorsSessionGoOn 101 2 ", true));
    host.run("animatorsSession");
    check("one run at a time goes on", waitFor("animatorsSessionGoOn 101 ", false));
    check("and it is the last", waitFor("animatorsSessionGoOn 102 3 ", true));
    host.moveTo(QPoint(2, 2));
    check("it stops when the mouse is taken away",
          host.run("size(`evalDeferred -list`)") == "0" && host.run("getLastError").contains("the mouse was moved"));
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 6) {
        std::fprintf(stderr, "usage: demo-session WORKBENCH SCENE COMMAND SCRIPT FOLDER\n");
        return 2;
    }
    const auto absolute = [](const QString& path) { return QDir::current().absoluteFilePath(path); };
    const QDir folder(absolute(arguments[5]));
    QTemporaryDir work;
    LiveWorkbench host(absolute(arguments[1]),
                       {"-prefs", work.path(), "-file", absolute(arguments[2]), "-command", arguments[3]});
    if (!host.isRunning()) {
        return session::failed("The workbench did not start:\n" + host.output());
    }
    host.run(QString("global int $gAnimatorsSessionByHand = 1; source \"%1\"").arg(absolute(arguments[4])));
    session::Checks check;
    QVector<QImage> views;
    for (const char* name : kStages) {
        const int stage = views.size() + 1;
        const QString said = host.run(QString("animatorsSessionStage(%1)").arg(stage), kStageTimeout);
        host.moveTo(QPoint(2, 2));
        const QImage image = host.screenshot();
        const QString file = folder.filePath(QString("demo-%1-%2.png").arg(stage, 2, 10, QChar('0')).arg(name));
        image.save(file);
        views << image.copy(host.viewRect());
        std::printf("%s\n  %s\n", qPrintable(file), qPrintable(said));
        check("the stage shows", stage == 1 || views[stage - 1] != views[stage - 2]);
        if (stage == 9) {
            check("undo gives the picture before the mistake, to the byte", views[8] == views[6]);
        }
        checkDrawing(host, check, stage);
    }
    checkUnsavedWork(host, check, sceneToImport(work));
    checkOthersScenes(host, check);
    checkRuns(host, check);
    const QString pageFile = folder.filePath("animators-session.png");
    page(views).save(pageFile);
    std::printf("%s\n", qPrintable(pageFile));
    if (!check.allHold()) {
        std::fprintf(stderr, "%s\n", qPrintable(host.output()));
    }
    return check.allHold() ? 0 : 1;
}
