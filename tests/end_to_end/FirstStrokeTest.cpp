// The product as its user meets it: a window, a real pointer, undo, save and reopen.

#include "support/LiveWorkbench.h"
#include "support/QtPrint.h"
#include "support/SceneText.h"

#include <QCursor>
#include <QDeadlineTimer>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using support::LiveWorkbench;

namespace {

const char kProgram[] = LUMISKETCH_BIN "/lumisketch-workbench";

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool differs(QRgb a, QRgb b)
{
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b)) > 24;
}

/// Pixels that differ between two pictures of one size.
QVector<QPoint> changedPixels(const QImage& before, const QImage& after)
{
    QVector<QPoint> changed;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (differs(before.pixel(x, y), after.pixel(x, y))) {
                changed << QPoint(x, y);
            }
        }
    }
    return changed;
}

double nearest(const QPoint& to, const QVector<QPoint>& points)
{
    double best = std::numeric_limits<double>::max();
    for (const QPoint& p : points) {
        best = std::min(best, std::hypot(double(p.x() - to.x()), double(p.y() - to.y())));
    }
    return best;
}

double largestDistance(const QVector<QPoint>& from, const QVector<QPoint>& to)
{
    double worst = 0;
    for (const QPoint& p : from) {
        worst = std::max(worst, nearest(p, to));
    }
    return worst;
}

class FirstStroke : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_folder.isValid());
        QFile preferences(m_folder.filePath("lumisketch2.ini"));
        ASSERT_TRUE(preferences.open(QIODevice::WriteOnly));
        preferences.write("[tools]\nactiveTool=0\npencilSize=4\n");
        preferences.close();
        m_host.reset(new LiveWorkbench(kProgram, {"-prefs", m_folder.path(), "-command", "setToolTo `tqLmDrawCtx`"}));
        ASSERT_TRUE(m_host->isRunning()) << m_host->output().toStdString();
        ASSERT_EQ(m_host->run("tqLumisketchNode -exists"), "1") << m_host->output().toStdString();
    }

    LiveWorkbench& host() { return *m_host; }
    QString path(const QString& name) const { return m_folder.filePath(name); }

    /// The view as a picture, the pointer parked where it covers nothing.
    QImage viewPicture(const QString& panel = QString())
    {
        host().moveTo(QPoint(2, 2));
        return host().screenshot(host().viewRect(panel));
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<LiveWorkbench> m_host;
};

QVector<QPoint> arc(const QRect& view)
{
    const QPointF c = view.center();
    return support::curve({c + QPointF(-200, 60), c + QPointF(-100, -60), c + QPointF(40, -70), c + QPointF(180, 50)},
                          2);
}

}  // namespace

TEST_F(FirstStroke, AScriptDrawsLikeAHand)
{
    const QRect view = host().viewRect();
    const QImage empty = viewPicture();
    ASSERT_EQ(host().run("float $way[] = {0.25, 0.6, 0.4, 0.4, 0.6, 0.7}; workbenchHand $way 0.75 0.5"), "");
    const auto at = [&](double x, double y) { return QPointF(x * (view.width() - 1), y * (view.height() - 1)); };
    const QVector<QPoint> way = support::curve({at(0.25, 0.6), at(0.4, 0.4), at(0.6, 0.7), at(0.75, 0.5)}, 2);
    const QVector<QPoint> ink = changedPixels(empty, viewPicture());
    EXPECT_LE(largestDistance(way.mid(0, way.size() - 8), ink), 3.0);
    EXPECT_LE(largestDistance(ink, way), 3.0 + 4.0);
    host().key("ctrl+z");
    EXPECT_EQ(viewPicture(), empty) << "one step";
    EXPECT_EQ(host().run("workbenchHand -pace 1 0.5 0.5 0 0.5 0 0.1 0.5 0.1"), "") << "its curve leaves the view";
    host().key("ctrl+z");
    const QPoint end = view.topLeft() + at(0.5, 0.1).toPoint();
    EXPECT_EQ(host().run("workbenchHand -pace 1 0.3 0.6 0.5 0.1; workbenchHand -query"),
              QString("%1 %2").arg(end.x()).arg(end.y()));
    host().key("ctrl+z");

    const struct {
        const char* text;
        const char* message;
    } refusals[] = {{"workbenchHand", "pairs of numbers"},
                    {"workbenchHand 0.5 0.5 0.5", "pairs of numbers"},
                    {"workbenchHand 0.5 \"up\"", "pairs of numbers"},
                    {"workbenchHand 0.5 0.5 0.5 1.5", "point 2 is not in the view"},
                    {"workbenchHand -pixels 0 100000", "point 1 is not in the view"},
                    {"workbenchHand -pace 0 0.5 0.5", "-pace must be between"},
                    {"workbenchHand -panel nowhere 0.5 0.5", "workbenchHand: Object 'nowhere' not found"}};
    for (const auto& refusal : refusals) {
        EXPECT_TRUE(host().run(refusal.text).contains(refusal.message)) << refusal.text;
    }
    host().hold(view.center(), view.center() + QPoint(30, 0));
    EXPECT_TRUE(host().run("workbenchHand 0.5 0.5").contains("a mouse button is held"));
    host().letGo();
    host().key("ctrl+z");
    EXPECT_EQ(viewPicture(), empty);
}

TEST_F(FirstStroke, WhoTakesTheMouseFromAScriptHasIt)
{
    const QRect view = host().viewRect();
    const QImage empty = viewPicture();
    host().post("workbenchHand -pace 1000 0.3 0.5 0.7 0.5");
    // The hand rests for a second after each place, on whose first one this waits.
    const QPoint beginning(view.left() + int(0.3 * view.width()), view.center().y());
    const QDeadlineTimer patience(20000);
    while ((QCursor::pos() - beginning).manhattanLength() > 8 && !patience.hasExpired()) {
    }
    host().click(view.center() + QPoint(0, 60));
    EXPECT_TRUE(host().run("getLastError").contains("the pointer was moved away"));
    EXPECT_NE(viewPicture(), empty) << "what was drawn stays";
    host().key("ctrl+z");
    host().key("ctrl+z");
    EXPECT_EQ(viewPicture(), empty) << "the stroke and the click are a step each";
    host().drag(arc(view));
    EXPECT_NE(viewPicture(), empty);
}

TEST_F(FirstStroke, LeavesInkAlongTheDraggedPathAndUndoAndRedoGiveTheSamePicturesBack)
{
    const QRect view = host().viewRect();
    ASSERT_GT(view.width(), 400);
    const QImage empty = viewPicture();
    ASSERT_EQ(empty, viewPicture()) << "an unchanged view must paint the same picture";

    const QVector<QPoint> dragged = arc(view);
    host().drag(dragged);
    const QImage drawn = viewPicture();

    QVector<QPoint> inView;
    for (const QPoint& p : dragged) {
        inView << p - view.topLeft();
    }
    const QVector<QPoint> ink = changedPixels(empty, drawn);
    // The stroke's end trails the pointer by its smoothing, so the last few points are left out.
    EXPECT_LE(largestDistance(inView.mid(0, inView.size() - 8), ink), 3.0);
    EXPECT_LE(largestDistance(ink, inView), 3.0 + 4.0);

    host().key("ctrl+z");
    EXPECT_EQ(viewPicture(), empty);
    host().key("ctrl+shift+z");
    EXPECT_EQ(viewPicture(), drawn);
    host().key("ctrl+z");
    EXPECT_EQ(viewPicture(), empty);
}

TEST_F(FirstStroke, IsSavedWithTheSceneAndThereAgainAfterReopening)
{
    host().drag(arc(host().viewRect()));
    const QImage drawn = viewPicture();
    const QString scene = path("first.ma");

    ASSERT_FALSE(
        host().run(QString("file -rename \"%1\"; file -save -type \"mayaAscii\"").arg(scene)).startsWith("Error"));
    const QByteArray saved = fileBytes(scene);
    const auto frames = support::framePictures(saved);
    ASSERT_EQ(frames.size(), 1);
    EXPECT_GT(support::inkPixels(frames[0]), 500);

    host().run("file -f -new");
    EXPECT_NE(viewPicture(), drawn);
    ASSERT_FALSE(host().run(QString("file -f -open \"%1\"").arg(scene)).startsWith("Error"));
    EXPECT_EQ(viewPicture(), drawn);
    ASSERT_FALSE(host().run("file -save").startsWith("Error"));
    EXPECT_EQ(fileBytes(scene), saved);

    // The scene is in the host's own form.
    EXPECT_TRUE(saved.startsWith("//Maya ASCII 2019 scene\n"));
    for (const char* part : {"requires maya \"2019\";", "requires -nodeType \"tqLumisketch\" -dataType \"tqLayerData\"",
                             "createNode tqLumisketch -n \"lumisketchShape\" -p \"lumisketch\";",
                             "setAttr \".ld\" -type \"tqLayerData\" "}) {
        EXPECT_TRUE(saved.contains(part)) << part;
    }
}

TEST_F(FirstStroke, AClickWithoutMovementLeavesAMark)
{
    const QRect view = host().viewRect();
    const QImage empty = viewPicture();
    host().click(view.center());
    const QVector<QPoint> ink = changedPixels(empty, viewPicture());
    ASSERT_FALSE(ink.isEmpty());
    EXPECT_LE(largestDistance(ink, {view.center() - view.topLeft()}), 8.0);
}

TEST_F(FirstStroke, APressOnASecondCamerasViewDrawsOnlyThere)
{
    host().run("workbenchView -panes 2");
    const QImage firstEmpty = viewPicture("modelPanel4");
    const QImage secondEmpty = viewPicture("modelPanel1");
    const QPoint centre = host().viewRect("modelPanel1").center();
    host().drag(support::line(centre - QPoint(80, 30), centre + QPoint(80, 30)));
    EXPECT_EQ(viewPicture("modelPanel4"), firstEmpty);
    EXPECT_NE(viewPicture("modelPanel1"), secondEmpty);

    const QPoint first = host().viewRect("modelPanel4").center();
    const QImage secondDrawn = viewPicture("modelPanel1");
    host().drag(support::line(first - QPoint(60, 60), first + QPoint(60, 60)));
    EXPECT_NE(viewPicture("modelPanel4"), firstEmpty);
    EXPECT_EQ(viewPicture("modelPanel1"), secondDrawn);

    // Both strokes are steps of one queue, each undone on the camera it was drawn on.
    host().key("ctrl+z");
    EXPECT_EQ(viewPicture("modelPanel4"), firstEmpty);
    EXPECT_EQ(viewPicture("modelPanel1"), secondDrawn);
    host().key("ctrl+z");
    EXPECT_EQ(viewPicture("modelPanel1"), secondEmpty);
}

TEST_F(FirstStroke, IsTheSameWhenTheMainLoopStallsFromItsFirstStepsToLongAfterItsEnd)
{
    const QPoint c = host().viewRect().center();
    QVector<QPoint> way;
    for (int tooth = 0; tooth < 4; ++tooth) {
        const QPoint from = c + QPoint(-180 + 50 * tooth, tooth % 2 ? 40 : -40);
        way += support::line(from, from + QPoint(50, tooth % 2 ? -80 : 80), 2);
    }
    const QVector<QPoint> away = support::line(way.last(), way.last() + QPoint(150, 0), 2);
    const QImage empty = viewPicture();
    host().drag(way);
    const QVector<QPoint> calm = changedPixels(empty, viewPicture());
    host().key("ctrl+z");

    host().hold(way[0], way[1]);
    host().post("float $start = `timerX`; while (`timerX -st $start` < 4) ;");
    host().strokeUnheard(way, away);
    const QVector<QPoint> stalled = changedPixels(empty, viewPicture());
    EXPECT_LE(largestDistance(calm, stalled), 4.0) << "samples were lost";
    EXPECT_LE(largestDistance(stalled, calm), 4.0) << "it went on after the release";
}
