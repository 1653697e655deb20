#pragma once

#include "support/PointedMenu.h"
#include "support/QtPrint.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>

/// An entry of the main menu: its labels from the submenu's on, and the script text that it runs.
struct MenuEntry {
    QStringList labels;
    const char* command;
    const char* key = nullptr;  ///< answers the dialog it opens
};

/// All of them, in an order in which each finds something to work on.
inline const MenuEntry kMenuEntries[] = {
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

/// The program with its window and the plug-in's menu.
class MenuFixture : public testing::Test {
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
        m_host.reset(new support::LiveWorkbench(LUMISKETCH_BIN "/lumisketch-workbench", {"-prefs", m_folder.path()}));
        ASSERT_TRUE(m_host->isRunning()) << m_host->output().toStdString();
        m_menu.reset(new support::PointedMenu(*m_host, "$gTqLmMainMenu"));
        ASSERT_TRUE(menu().exists()) << m_host->output().toStdString();
        m_host->run("window -e -widthHeight 640 480 $gMainWindow");  // quick to paint
    }

    support::LiveWorkbench& host() { return *m_host; }
    support::PointedMenu& menu() { return *m_menu; }
    QString path(const QString& name) const { return m_folder.filePath(name); }

    void drawALine()
    {
        host().run("setToolTo `tqLmDrawCtx`");
        const QPoint centre = host().viewRect().center();
        host().drag(support::line(centre - QPoint(80, 40), centre + QPoint(80, 40)));
    }

    /// Has the journal say that an entry is tried next.
    void announce(int entry) { host().run(QString("print \"entry %1\\n\"").arg(entry)); }
    /// Ends the program and gives the lines of the journal that it leaves, each behind the letter of its kind.
    QStringList journal()
    {
        host().post("quit -force");
        EXPECT_TRUE(host().waitForEnd());
        QFile file(path("scriptJournal.txt"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split('\n') : QStringList();
    }
    /// The lines between the announcement of an entry and the next.
    static QStringList section(const QStringList& journal, int entry)
    {
        const int from = journal.indexOf(QString("pentry %1").arg(entry));
        const int to = journal.indexOf(QString("pentry %1").arg(entry + 1));
        return from < 0 || to < 0 ? QStringList() : journal.mid(from + 1, to - from - 1);
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<support::LiveWorkbench> m_host;
    std::unique_ptr<support::PointedMenu> m_menu;
};
