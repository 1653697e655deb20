// The menus of the right button while the draw tool is in use, worked with a real pointer.

#include "support/PointedMenu.h"
#include "support/PointedPopup.h"
#include "support/QtPrint.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>

using support::LiveWorkbench;
using support::PointedMenu;
using support::PointedPopup;

namespace {

const char kProgram[] = LUMISKETCH_BIN "/lumisketch-workbench";

// In an order in which each finds something to work on.
const QStringList kViewEntries[] = {
    {"Draw Tool", "Brush"},
    {"Draw Tool", "Eraser"},
    {"Draw Tool", "Text"},
    {"Draw Tool", "Line"},
    {"Draw Tool", "Arrow"},
    {"Draw Tool", "Ellipse"},
    {"Draw Tool", "Rectangle"},
    {"Draw Tool", "Pencil"},
    {"Layer", "New Layer..."},
    {"Layer", "Layer Properties..."},
    {"Frame", "Duplicate Frame"},
    {"Frame", "Insert Frame(s)"},
    {"Frame", "Step Back"},
    {"Frame", "Step Forward"},
    {"Frame", "Copy Frame(s)"},
    {"Frame", "Paste Frame(s)"},
    {"Frame", "Clear Frame(s)"},
    {"Frame", "Cut Frame(s)"},
    {"Frame", "Delete Frame(s)"},
    {"Ghosting", "Ghost Previous"},
    {"Ghosting", "Ghost Next"},
    {"Ghosting", "Settings..."},
    {"Toolbox..."},
    {"Tool Options..."},
    {"Layer Manager..."},
    {"Retiming Tool..."},
    {"Display Timeline Frames", "Off"},
    {"Display Timeline Frames", "Selection/Context Active"},
    {"Display Timeline Frames", "Always"},
    {"Cleanup", "Delete Active Layer"},
    {"Cleanup", "Delete Active Camera Layers"},
    {"Cleanup", "Clear All"},
};
const QString kSliderEntries[] = {"Insert Frame(s)", "Duplicate Frame", "Delete Frame(s)", "Cut Frame(s)",
                                  "Copy Frame(s)",   "Paste Frame(s)",  "Clear Frame(s)"};

class ToolMenus : public testing::Test {
protected:
    void start(const QVariantMap& preferences = {})
    {
        ASSERT_TRUE(m_folder.isValid());
        {
            QSettings file(m_folder.filePath("lumisketch2.ini"), QSettings::IniFormat);
            for (auto value = preferences.begin(); value != preferences.end(); ++value) {
                file.setValue(value.key(), value.value());
            }
        }
        m_host.reset(new LiveWorkbench(kProgram, {"-prefs", m_folder.path()}));
        ASSERT_TRUE(m_host->isRunning()) << m_host->output().toStdString();
        host().run("window -e -widthHeight 640 480 $gMainWindow");  // quick to paint
        host().run("setToolTo `tqLmDrawCtx`");
        m_inView = host().viewRect().center();
        host().drag(support::line(m_inView - QPoint(80, 40), m_inView + QPoint(80, 40)));
    }

    LiveWorkbench& host() { return *m_host; }
    PointedPopup viewMenu() { return PointedPopup(host(), m_inView); }
    PointedPopup sliderMenu() { return PointedPopup(host(), host().controlRect("timeControl1").center()); }

    /// Has the journal say what comes next.
    void announce(const QString& what) { host().run(QString("print \"next: %1\\n\"").arg(what)); }

    /// Ends the program and gives, for each announcement, the first command of ours that was run after it.
    QHash<QString, QString> commands()
    {
        host().post("quit -force");
        EXPECT_TRUE(host().waitForEnd());
        QFile file(m_folder.filePath("scriptJournal.txt"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        QHash<QString, QString> commands;
        QString announced;
        for (const QString& line : QString::fromUtf8(file.readAll()).split('\n')) {
            if (line.startsWith("pnext: ")) {
                announced = line.mid(7);
            } else if (line.startsWith("etqL") && !commands.contains(announced)) {
                commands.insert(announced, line.mid(1));
            }
        }
        return commands;
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<LiveWorkbench> m_host;
    QPoint m_inView;
};

}  // namespace

// What an entry of the main menu runs is what the journal then shows. The tools send it silently, so that it stands in
// the journal only while the host echoes all commands.
TEST_F(ToolMenus, EveryEntryGivesTheMainMenusLineInTheJournal)
{
    start();
    PointedMenu mainMenu(host(), "$gTqLmMainMenu");
    host().run("currentTime 5; commandEcho -state 1");
    QStringList expected;
    const auto choose = [&](PointedPopup popup, const QStringList& entry, const QStringList& inMainMenu) {
        announce(QString::number(expected.size()));
        EXPECT_TRUE(popup.choose(entry)) << entry.join(" > ").toStdString();
        host().letTurn();
        expected << host().run(QString("menuItem -q -command \"%1\"").arg(mainMenu.item(inMainMenu)));
        EXPECT_TRUE(expected.last().startsWith("tqL")) << entry.join(" > ").toStdString();
    };
    for (const QString& entry : kSliderEntries) {
        choose(sliderMenu(), {entry}, {"Frame", entry});
    }
    for (const QStringList& entry : kViewEntries) {
        choose(viewMenu(), entry, entry);
    }
    choose(viewMenu(), {"Transform"}, {"Transform"});
    EXPECT_EQ(host().run("contextInfo -c `currentCtx`"), "tqLmTransformCtx");

    const QHash<QString, QString> commands = this->commands();
    for (int i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(commands.value(QString::number(i)), expected[i]);
    }
}

TEST_F(ToolMenus, ALayerIsMadeActiveByItsEntryAndUndoGoesBack)
{
    start();
    host().run("tqLumisketchLayer -add -n \"Ink & Wash\" persp; tqLumisketchLayer -e -active 0 persp");
    EXPECT_TRUE(viewMenu().choose({"Ink && Wash"}));
    EXPECT_EQ(host().run("tqLumisketchLayer -q -active persp"), "1");
    host().key("ctrl+z");
    EXPECT_EQ(host().run("tqLumisketchLayer -q -active persp"), "0");
}

TEST_F(ToolMenus, AClickBesideAMenuOnlyClosesItAndTheNextStrokeIsDrawn)
{
    start();
    const QPoint centre = host().viewRect().center();
    host().run("currentTime 5");
    for (PointedPopup popup : {viewMenu(), sliderMenu()}) {
        popup.open();
        EXPECT_FALSE(popup.entryRect("Transform").isNull() && popup.entryRect("Clear Frame(s)").isNull());
        host().click(centre - QPoint(120, 0));
        EXPECT_EQ(host().run("undoInfo -q -undoName"), "currentTime 5");
    }
    host().drag(support::line(centre - QPoint(60, 0), centre + QPoint(60, 0)));
    EXPECT_EQ(host().run("undoInfo -q -undoName"), "tqLmDrawCtx1");
}
