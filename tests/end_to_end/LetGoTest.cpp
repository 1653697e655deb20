// The scene, or the module, changes under a tool while the real button is held.

#include "support/LiveWorkbench.h"
#include "support/QtPrint.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>

using support::LiveWorkbench;

namespace {

const char kProgram[] = LUMISKETCH_BIN "/lumisketch-workbench";

class HeldButton : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_folder.isValid());
        m_host.reset(new LiveWorkbench(kProgram, {"-prefs", m_folder.path(), "-command", "setToolTo `tqLmDrawCtx`"}));
        ASSERT_TRUE(m_host->isRunning()) << m_host->output().toStdString();
        ASSERT_TRUE(exists());
        m_host->run("window -e -widthHeight 640 480 $gMainWindow");  // quick to paint
        ASSERT_GT(m_host->viewRect().height(), 100);
    }
    void TearDown() override
    {
        if (m_host) {
            EXPECT_TRUE(m_host->isRunning()) << m_host->output().toStdString();
        }
    }

    LiveWorkbench& host() { return *m_host; }
    QString path(const QString& name) const { return m_folder.filePath(name); }
    void expectRuns(const QString& text)
    {
        const std::string answer = host().run(text).toStdString();
        EXPECT_EQ(answer.find("Error"), std::string::npos) << answer;
    }

    QPoint centre() { return host().viewRect().center(); }
    void press() { host().hold(centre() - QPoint(50, 30), centre()); }
    void moveOn() { host().moveTo(centre() + QPoint(50, 30)); }
    void stroke()
    {
        press();
        moveOn();
        host().letGo();
    }
    /// The scene as a file would hold it now.
    std::string scene()
    {
        QFile::remove(path("now.ma"));
        host().run(QString("file -rename \"%1\"; file -save -type \"mayaAscii\"").arg(path("now.ma")));
        QFile file(path("now.ma"));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
    }
    /// The same, and what a press changes without being a step (the camera that is current) has been changed.
    std::string sceneAfterAPress()
    {
        stroke();
        host().run("undo");
        return scene();
    }
    bool holdsLayersOf(const char* camera)
    {
        return scene().find(" \"" + std::string(camera) + "\" 1 0") != std::string::npos;
    }
    bool exists() { return host().run("tqLumisketchNode -exists") == "1"; }
    void saveAs(const QString& name)
    {
        scene();
        QFile::remove(path(name));
        ASSERT_TRUE(QFile::copy(path("now.ma"), path(name)));
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<LiveWorkbench> m_host;
};

}  // namespace

TEST_F(HeldButton, ANodeWhoseMakingIsUndoneUnderAStrokeComesBackAsItWasBeforeThePress)
{
    const std::string before = sceneAfterAPress();
    for (const bool moves : {true, false}) {
        press();
        expectRuns("undo");
        EXPECT_FALSE(exists());
        if (moves) {
            moveOn();
        }
        host().letGo();
        expectRuns("redo");
        EXPECT_EQ(scene(), before);
    }
}

TEST_F(HeldButton, AStepDuringAStrokeNeverMeetsTheLayerMadeForIt)
{
    const std::string before = sceneAfterAPress();
    press();
    host().run("tqLumisketchLayer -addLayer -layerState 0 -name \"Mine\" persp");
    host().letGo();
    const std::string layered = scene();
    EXPECT_NE(layered, before);
    EXPECT_TRUE(holdsLayersOf("persp"));
    host().run("undo");
    EXPECT_EQ(scene(), before);
    host().run("redo");
    EXPECT_EQ(scene(), layered);
}

TEST_F(HeldButton, AFileThatIsImportedReferencedOrRemovedLeavesTheStrokeAlone)
{
    stroke();
    saveAs("other.ma");
    expectRuns("file -force -new; setToolTo selectSuperContext; setToolTo tqLmDrawCtx1");
    host().settle();
    ASSERT_TRUE(exists());
    const QString other = path("other.ma");
    press();
    for (const QString& text :
         {QString("file -reference -namespace \"ref\" \"%1\"").arg(other),
          QString("file -removeReference \"%1\"").arg(other), QString("file -import \"%1\"").arg(other)}) {
        expectRuns(text);
        moveOn();
    }
    host().letGo();
    EXPECT_EQ(host().run("tqLumisketchLayer -count persp").toStdString(), "1");
    host().run("undo");
    EXPECT_EQ(host().run("tqLumisketchLayer -count persp").toStdString(), "0");
}

TEST_F(HeldButton, TheModuleCanBeUnloadedUnderAStroke)
{
    press();
    expectRuns("file -force -new; unloadPlugin lumisketch2");
    moveOn();
    host().letGo();
    EXPECT_EQ(host().run("currentCtx").toStdString(), "selectSuperContext");
    EXPECT_EQ(host().run("pluginInfo -q -loaded lumisketch2").toStdString(), "0");
}

TEST_F(HeldButton, ARegionThatFloatsOrIsDraggedIsLetGoWithItsNode)
{
    stroke();
    const std::string before = scene();
    host().run("setToolTo `tqLmTransformCtx`");
    for (const bool held : {false, true}) {
        SCOPED_TRACE(held ? "held" : "floating");
        host().key("Return");
        if (held) {
            press();
        }
        host().run("delete lumisketch");
        if (held) {
            moveOn();
            host().letGo();
        } else {
            host().key("Return");
        }
        host().run("undo");
        EXPECT_EQ(scene(), before);
    }
    host().key("Return");
    stroke();
    host().key("Return");
    EXPECT_NE(scene(), before) << "the tool works on";
    host().run("undo");
    EXPECT_EQ(scene(), before);
}
