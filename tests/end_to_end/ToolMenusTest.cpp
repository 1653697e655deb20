// The menus of the right button while the draw tool is in use, worked with a real pointer.

#include "support/MenuFixture.h"
#include "support/PointedPopup.h"

using support::PointedPopup;

namespace {

class ToolMenus : public MenuFixture {
protected:
    void startDrawing()
    {
        start();
        drawALine();
        host().run("currentTime 5");
    }
    PointedPopup viewMenu() { return PointedPopup(host(), host().viewRect().center()); }
    PointedPopup sliderMenu() { return PointedPopup(host(), host().controlRect("timeControl1").center()); }
};

}  // namespace

// The tools send silently what the main menu's entries run for all to see: it stands in the journal while the host
// echoes all commands.
TEST_F(ToolMenus, EveryEntryGivesTheMainMenusLineInTheJournal)
{
    startDrawing();
    host().run("commandEcho -state 1");
    QStringList commands;
    const auto choose = [&](PointedPopup popup, const QStringList& labels, const char* command) {
        announce(commands.size());
        EXPECT_TRUE(popup.choose(labels)) << command;
        host().letTurn();
        commands << command;
    };
    for (const MenuEntry& entry : kMenuEntries) {
        const QString first = entry.labels.first();
        const QString last = entry.labels.last();
        if (first == "Frame" && !last.startsWith("Step")) {
            choose(sliderMenu(), {last}, entry.command);
        }
        if (!QStringList{"Draw", "Transform", "View", "Utilities", "Preferences...", "About..."}.contains(first)) {
            choose(viewMenu(), entry.labels, entry.command);
        }
    }
    choose(viewMenu(), {"Transform"}, "tqLumisketchUtil -transform");
    EXPECT_EQ(host().run("contextInfo -c `currentCtx`"), "tqLmTransformCtx");
    announce(commands.size());

    const QStringList journal = this->journal();
    for (int i = 0; i < commands.size(); ++i) {
        const QStringList ours = section(journal, i).filter(QRegExp("^etqL"));
        EXPECT_EQ(ours.value(0), "e" + commands[i]) << i;
    }
}

TEST_F(ToolMenus, ALayerIsMadeActiveByItsEntryAndUndoGoesBack)
{
    startDrawing();
    host().run("tqLumisketchLayer -add -n \"Ink & Wash\" persp; tqLumisketchLayer -e -active 0 persp");
    EXPECT_TRUE(viewMenu().choose({"Ink && Wash"}));
    EXPECT_EQ(host().run("tqLumisketchLayer -q -active persp"), "1");
    host().key("ctrl+z");
    EXPECT_EQ(host().run("tqLumisketchLayer -q -active persp"), "0");
}

TEST_F(ToolMenus, AClickBesideAMenuOnlyClosesItAndTheNextStrokeIsDrawn)
{
    startDrawing();
    const QPoint centre = host().viewRect().center();
    for (PointedPopup popup : {viewMenu(), sliderMenu()}) {
        popup.open();
        EXPECT_FALSE(popup.entryRect("Transform").isNull() && popup.entryRect("Clear Frame(s)").isNull());
        host().click(centre - QPoint(120, 0));
        EXPECT_EQ(host().run("undoInfo -q -undoName"), "currentTime 5");
    }
    host().drag(support::line(centre, centre + QPoint(60, 0)));
    EXPECT_EQ(host().run("undoInfo -q -undoName"), "tqLmDrawCtx1");
}
