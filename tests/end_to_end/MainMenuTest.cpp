// The plug-in's menu in the window's bar, worked with a real pointer.

#include "support/PointedMenu.h"
#include "support/QtPrint.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>

using support::LiveWorkbench;
using support::PointedMenu;

namespace {

const char kProgram[] = LUMISKETCH_BIN "/lumisketch-workbench";

struct Entry {
    QStringList labels;
    const char* command;
    const char* key = nullptr;  ///< answers the dialog it opens
};

const Entry kEntries[] = {
    {{"Draw"}, "tqLumisketchUtil -draw"},
    {{"Transform"}, "tqLumisketchUtil -transform"},
    {{"Draw Tool", "Brush"}, "tqLumisketchUtil -brushTool"},
    {{"Draw Tool", "Eraser"}, "tqLumisketchUtil -eraserTool"},
    {{"Draw Tool", "Text"}, "tqLumisketchUtil -textTool"},
    {{"Draw Tool", "Line"}, "tqLumisketchUtil -lineTool"},
    {{"Draw Tool", "Arrow"}, "tqLumisketchUtil -arrowTool"},
    {{"Draw Tool", "Ellipse"}, "tqLumisketchUtil -ellipseTool"},
    {{"Draw Tool", "Rectangle"}, "tqLumisketchUtil -rectangleTool"},
    {{"Draw Tool", "Pencil"}, "tqLumisketchUtil -pencilTool"},
    {{"Layer", "New Layer..."}, "tqLumisketchUtil -newLayer"},
    {{"Layer", "Layer Properties..."}, "tqLumisketchUtil -layerProperties"},
    {{"Frame", "Duplicate Frame"}, "tqLumisketchFrame -duplicate"},
    {{"Frame", "Insert Frame(s)"}, "tqLumisketchFrame -insert"},
    {{"Frame", "Step Back"}, "tqLumisketchFrame -stepBack"},
    {{"Frame", "Step Forward"}, "tqLumisketchFrame -stepForward"},
    {{"Frame", "Copy Frame(s)"}, "tqLumisketchFrame -copy"},
    {{"Frame", "Paste Frame(s)"}, "tqLumisketchFrame -paste"},
    {{"Frame", "Clear Frame(s)"}, "tqLumisketchFrame -clear"},
    {{"Frame", "Cut Frame(s)"}, "tqLumisketchFrame -cut"},
    {{"Frame", "Delete Frame(s)"}, "tqLumisketchFrame -delete"},
    {{"Ghosting", "Ghost Previous"}, "tqLumisketchUtil -e -ghostPrevious -1"},
    {{"Ghosting", "Ghost Next"}, "tqLumisketchUtil -e -ghostNext -1"},
    {{"Ghosting", "Settings..."}, "tqLumisketchUtil -ghostingSettings"},
    {{"Toolbox..."}, "tqLumisketchUtil -toolbox"},
    {{"Tool Options..."}, "tqLumisketchUtil -toolOptions"},
    {{"Layer Manager..."}, "tqLumisketchUtil -layerManager"},
    {{"Retiming Tool..."}, "tqLumisketchUtil -retimingTool"},
    {{"Display Timeline Frames", "Off"}, "tqLumisketchUtil -e -timelineFrameDisplay 2"},
    {{"Display Timeline Frames", "Selection/Context Active"}, "tqLumisketchUtil -e -timelineFrameDisplay 1"},
    {{"Display Timeline Frames", "Always"}, "tqLumisketchUtil -e -timelineFrameDisplay 0"},
    {{"View", "Lumisketch View"}, "tqLumisketchUtil -fv"},
    {{"View", "Move layers to Lumisketch View"}, "tqLumisketchUtil -fvm \"\"", "Escape"},
    {{"Utilities", "Reset UI"}, "tqLumisketchUtil -resetUI", "Escape"},
    {{"Preferences..."}, "tqLumisketchUtil -preferences"},
    {{"About..."}, "tqLumisketchUtil -about"},
    {{"Cleanup", "Delete Active Layer"}, "tqLmDeleteActiveLayer()"},
    {{"Cleanup", "Delete Active Camera Layers"}, "tqLmDeleteActiveCameraLayers()"},
    {{"Cleanup", "Clear All"}, "tqLmDeleteAllNodes()"},
};

class MainMenu : public testing::Test {
protected:
    void start(const QVariantMap& preferences = {})
    {
        ASSERT_TRUE(m_folder.isValid());
        {
            QSettings file(path("lumisketch2.ini"), QSettings::IniFormat);
            file.setValue("tools/activeTool", 0);
            for (auto value = preferences.begin(); value != preferences.end(); ++value) {
                file.setValue(value.key(), value.value());
            }
        }
        m_host.reset(new LiveWorkbench(kProgram, {"-prefs", m_folder.path()}));
        ASSERT_TRUE(m_host->isRunning()) << m_host->output().toStdString();
        m_menu.reset(new PointedMenu(*m_host, "$gTqLmMainMenu"));
        ASSERT_TRUE(menu().exists()) << m_host->output().toStdString();
        m_host->run("window -e -widthHeight 640 480 $gMainWindow");  // quick to paint
    }

    LiveWorkbench& host() { return *m_host; }
    PointedMenu& menu() { return *m_menu; }
    QString path(const QString& name) const { return m_folder.filePath(name); }

    void drawALine()
    {
        host().run("setToolTo `tqLmDrawCtx`");
        const QPoint centre = host().viewRect().center();
        host().drag(support::line(centre - QPoint(80, 40), centre + QPoint(80, 40)));
    }

    /// Ends the program and gives the lines of the journal that it leaves, each behind the letter of its kind.
    QStringList journal()
    {
        host().post("quit -force");
        EXPECT_TRUE(host().waitForEnd());
        QFile file(path("scriptJournal.txt"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split('\n') : QStringList();
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<LiveWorkbench> m_host;
    std::unique_ptr<PointedMenu> m_menu;
};

/// The lines between one printed mark and the next.
QStringList section(const QStringList& journal, int number)
{
    const int from = journal.indexOf(QString("pentry %1").arg(number));
    const int to = journal.indexOf(QString("pentry %1").arg(number + 1));
    return from < 0 || to < 0 ? QStringList() : journal.mid(from + 1, to - from - 1);
}

}  // namespace

TEST_F(MainMenu, EveryEntryIsChosenWithThePointerAndItsCommandStandsInTheJournal)
{
    start();
    drawALine();
    host().run("currentTime 5");
    int number = 0;
    for (const Entry& entry : kEntries) {
        host().run(QString("print \"entry %1\\n\"").arg(number++));
        EXPECT_TRUE(menu().choose(entry.labels)) << entry.command;
        if (entry.key) {
            host().key(entry.key);
        }
    }
    host().run(QString("print \"entry %1\\n\"").arg(number));

    const QStringList journal = this->journal();
    number = 0;
    for (const Entry& entry : kEntries) {
        const QStringList lines = section(journal, number++);
        EXPECT_TRUE(lines.contains(QString("e") + entry.command)) << entry.command << ":\n"
                                                                  << lines.join('\n').toStdString();
        EXPECT_TRUE(lines.filter(QRegExp("^[xw]")).isEmpty()) << entry.command << ":\n"
                                                              << lines.join('\n').toStdString();
    }
}

TEST_F(MainMenu, MarksFollowTheSettingsHoweverTheyAreChanged)
{
    start({{"tools/ghostPrev", true}, {"tools/activeTool", 4}, {"preferences/timelineFrameDisplay", 1}});
    EXPECT_EQ(menu().marked(), (QStringList{"Line", "Ghost Previous", "Selection/Context Active"}));
    const struct {
        const char* command;  // without one the item is chosen
        QStringList item;
        QStringList marked;
    } changes[] = {
        {"tqLumisketchUtil -brushTool", {}, {"Brush", "Ghost Previous", "Selection/Context Active"}},
        {nullptr, {"Draw Tool", "Rectangle"}, {"Rectangle", "Ghost Previous", "Selection/Context Active"}},
        {nullptr, {"Draw Tool", "Rectangle"}, {"Rectangle", "Ghost Previous", "Selection/Context Active"}},
        {"tqLumisketchUtil -e -ghostNext 1",
         {},
         {"Rectangle", "Ghost Previous", "Ghost Next", "Selection/Context Active"}},
        {nullptr, {"Ghosting", "Ghost Previous"}, {"Rectangle", "Ghost Next", "Selection/Context Active"}},
        {"tqLumisketchUtil -e -ghostPrevious -1",
         {},
         {"Rectangle", "Ghost Previous", "Ghost Next", "Selection/Context Active"}},
        {nullptr, {"Ghosting", "Ghost Next"}, {"Rectangle", "Ghost Previous", "Selection/Context Active"}},
        {"tqLumisketchUtil -e -timelineFrameDisplay 2", {}, {"Rectangle", "Ghost Previous", "Off"}},
        {nullptr, {"Display Timeline Frames", "Always"}, {"Rectangle", "Ghost Previous", "Always"}},
        {"undo", {}, {"Rectangle", "Ghost Previous", "Always"}},
    };
    for (const auto& change : changes) {
        if (change.command) {
            host().run(change.command);
        } else {
            EXPECT_TRUE(menu().choose(change.item)) << change.item.join(" > ").toStdString();
        }
        EXPECT_EQ(menu().marked(), change.marked)
            << (change.command ? change.command : change.item.join(" > ").toStdString());
    }
}

TEST_F(MainMenu, EntriesOfATornOffCopyWorkWhenTheMenuIsClosed)
{
    start();
    ASSERT_TRUE(menu().tearOff());
    EXPECT_FALSE(host().controlRect(menu().item({"Draw"})).isNull()) << "the copy stays on the screen";
    for (const char* tool : {"Brush", "Eraser"}) {
        EXPECT_TRUE(menu().click({"Draw Tool"}));
        EXPECT_TRUE(menu().click({"Draw Tool", tool}));
        EXPECT_EQ(menu().marked().value(0), tool);
        EXPECT_TRUE(host().controlRect(menu().item({"Draw Tool", tool})).isNull()) << "only the copy itself stays";
    }
    EXPECT_TRUE(menu().click({"Draw"}));
    EXPECT_EQ(host().run("contextInfo -c `currentCtx`"), "tqLmDrawCtx");
}

TEST_F(MainMenu, IsShownByTheAnimationSetAloneWhenThatIsPreferred)
{
    start({{"preferences/showMainMenuInAnimationSet", true}});
    const auto chooseSet = [this](const QStringList& keys) {
        host().click(host().controlRect("menuSetBox").center());
        for (const QString& key : keys) {
            host().key(key);
        }
        host().key("Return");
    };
    EXPECT_TRUE(host().controlRect(menu().name()).isNull());
    EXPECT_EQ(host().run("menuSet -q -currentMenuSet"), "modelingMenuSet");
    for (int round = 0; round < 2; ++round) {
        chooseSet({"Home", "Down", "Down"});
        EXPECT_EQ(host().run("menuSet -q -currentMenuSet"), "animationMenuSet");
        EXPECT_TRUE(menu().choose({"Draw Tool", round ? "Text" : "Line"}));
        EXPECT_EQ(menu().marked().value(0), round ? "Text" : "Line");
        chooseSet({"Home"});
        EXPECT_EQ(host().run("menuSet -q -currentMenuSet"), "modelingMenuSet");
        EXPECT_TRUE(host().controlRect(menu().name()).isNull());
    }
}

TEST_F(MainMenu, CarriesTheNameThatIsPreferred)
{
    const QString name = QString::fromUtf8("Mein \"Men\u00fc\" & \u7d75\u30b3\u30f3\u30c6 'x'");
    start({{"main/mainMenuName", name}});
    EXPECT_EQ(host().run("menu -q -label $gTqLmMainMenu"), name);
    EXPECT_TRUE(menu().choose({"Draw Tool", "Text"}));
    EXPECT_EQ(menu().marked().value(0), "Text");
}

TEST_F(MainMenu, NothingIsLeftOfAModuleThatIsUnloadedAndAllIsThereWhenItIsLoadedAgain)
{
    start();
    const QString module = host().run("pluginInfo -q -path lumisketch2");
    const QString jobs = host().run("size(`scriptJob -listJobs`)");
    const QString name = menu().name();
    for (int round = 0; round < 5; ++round) {
        drawALine();
        EXPECT_EQ(host().run("size(`ls -type tqLumisketch`)"), "1");
        EXPECT_EQ(host().run("file -f -new; flushUndo; unloadPlugin lumisketch2"), "lumisketch2");
        EXPECT_EQ(host().run("pluginInfo -q -loaded lumisketch2"), "0");
        EXPECT_EQ(host().run(QString("menu -exists \"%1\"").arg(name)), "0");
        EXPECT_EQ(host().run("exists tqLumisketchUtil"), "0");
        EXPECT_FALSE(host().run(QString("loadPlugin \"%1\"").arg(module)).startsWith("Error"));
        EXPECT_TRUE(menu().choose({"Draw Tool", "Pencil"}));
    }
    EXPECT_EQ(host().run("size(`scriptJob -listJobs`)"), jobs);
    drawALine();
    EXPECT_EQ(host().run("size(`ls -type tqLumisketch`)"), "1");
    EXPECT_EQ(journal().filter(QRegExp("^x")), QStringList());
}
