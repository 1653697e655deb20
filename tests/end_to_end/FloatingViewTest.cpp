// A camera panel in a window of its own: what the main window's views can, it can.

#include "support/PointedMenu.h"
#include "support/QtPrint.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>

using support::LiveWorkbench;

namespace {

const char kProgram[] = LUMISKETCH_BIN "/lumisketch-workbench";

class FloatingView : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_folder.isValid());
        m_host.reset(new LiveWorkbench(kProgram, {"-prefs", m_folder.path(), "-command", "setToolTo `tqLmDrawCtx`"}));
        ASSERT_TRUE(m_host->isRunning()) << m_host->output().toStdString();
        const QString made = host().run("window -widthHeight 420 320 -topLeftCorner 140 120 floatWindow;"
                                        "paneLayout floatPanes; modelPanel floatPanel; lookThru floatPanel front;"
                                        "showWindow floatWindow");
        ASSERT_FALSE(made.contains("Error")) << made.toStdString();
        host().settle();
    }

    LiveWorkbench& host() { return *m_host; }
    QImage picture(const QString& panel)
    {
        host().moveTo(QPoint(1430, 890));
        const QString path = m_folder.filePath("view.png");
        host().run("workbenchView -panel " + panel + " -capture \"" + path + "\"");
        return QImage(path);
    }
    void drawIn(const QString& panel)
    {
        const QPoint centre = host().viewRect(panel).center();
        host().drag(support::line(centre - QPoint(80, 50), centre + QPoint(80, 50)));
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<LiveWorkbench> m_host;
};

}  // namespace

TEST_F(FloatingView, ShowsTheSceneAndFollowsIt)
{
    const QImage before = picture("floatPanel");
    ASSERT_FALSE(before.isNull());
    host().run("createNode implicitSphere");
    EXPECT_NE(picture("floatPanel"), before);
    host().run("undo");
    EXPECT_EQ(picture("floatPanel"), before);
    host().run("modelEditor -e -grid 0 -headsUpDisplay 0 floatPanel");
    EXPECT_NE(picture("floatPanel"), before);
}

TEST_F(FloatingView, TakesAStrokeOfItsOwnCameraAndTheUndoKey)
{
    const QImage mainEmpty = picture("modelPanel4");
    const QImage empty = picture("floatPanel");
    drawIn("floatPanel");
    EXPECT_NE(picture("floatPanel"), empty);
    EXPECT_EQ(picture("modelPanel4"), mainEmpty);
    EXPECT_EQ(host().run("getPanel -withFocus"), "floatPanel");
    host().key("ctrl+z");
    EXPECT_EQ(picture("floatPanel"), empty);
}

TEST_F(FloatingView, OfTheMenuLooksThroughItsOwnCameraAndTakesAStrokeAlone)
{
    host().run("deleteUI floatWindow");
    support::PointedMenu menu(host(), "$gTqLmMainMenu");
    ASSERT_TRUE(menu.choose({"View", "Lumisketch View"}));
    host().run("window -e -topLeftCorner 140 120 tqLmFloatingWindow");
    host().settle();
    const QString panel = "tqLumisketchFloatingModelPanel";
    EXPECT_EQ(host().run("modelPanel -q -camera " + panel), "lumisketchCam");

    const QImage mainEmpty = picture("modelPanel4");
    const QImage empty = picture(panel);
    drawIn(panel);
    const QImage drawn = picture(panel);
    EXPECT_NE(drawn, empty);
    EXPECT_EQ(picture("modelPanel4"), mainEmpty);
    host().key("ctrl+z");
    EXPECT_EQ(picture(panel), empty);
    EXPECT_EQ(picture("modelPanel4"), mainEmpty);
    host().run("redo");
    EXPECT_EQ(picture(panel), drawn);
}

TEST_F(FloatingView, OfThePlugInReceivesTheLayersOfTheCameraThatIsNamed)
{
    host().run("deleteUI floatWindow");
    const QImage mainEmpty = picture("modelPanel4");
    drawIn("modelPanel4");
    const QImage mainDrawn = picture("modelPanel4");
    ASSERT_NE(mainDrawn, mainEmpty);
    EXPECT_EQ(host().run("tqLumisketchUtil -fvm \"persp\""), "");
    host().settle();
    const QImage moved = picture("tqLumisketchFloatingModelPanel");
    EXPECT_EQ(picture("modelPanel4"), mainEmpty);
    host().run("undo");
    EXPECT_EQ(picture("modelPanel4"), mainDrawn);
    EXPECT_NE(picture("tqLumisketchFloatingModelPanel"), moved);
}
