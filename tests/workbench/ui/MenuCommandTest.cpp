#include "support/WindowFixture.h"

#include <QMenuBar>

namespace {

class MenuCommandTest : public WindowFixture {
protected:
    static void open(QMenu* menu) { QMetaObject::invokeMethod(menu, "aboutToShow"); }
};

TEST_F(MenuCommandTest, PutsANamedMenuIntoTheBarOfItsWindow)
{
    EXPECT_EQ(value("menu -label \"Ink & Co\" -mnemonic \"C\" -parent MayaWindow -tearOff true ink"), "MayaWindow|ink");
    EXPECT_EQ(menu("ink")->title(), "Ink && &Co");
    EXPECT_EQ(menu("ink")->windowTitle(), "Ink & Co");
    EXPECT_TRUE(menu("ink")->isTearOffEnabled());
    EXPECT_EQ(value("menu -q -label ink"), "Ink & Co");
    EXPECT_EQ(window.menuBar()->actions(), QList<QAction*>{menu("ink")->menuAction()});

    EXPECT_EQ(value("menu"), "MayaWindow|menu1") << "without a parent, the main window";
    EXPECT_EQ(menu("menu1")->title(), "menu1") << "without a label, the name";
    EXPECT_EQ(value("menu -exists ink"), "1");
    EXPECT_EQ(value("menu -q -parent ink"), "MayaWindow");

    EXPECT_EQ(errorOf("menu ink"), "Object's name 'ink' is not unique.");
    EXPECT_EQ(errorOf("menu -e -label x nowhere"), "menu: Object 'nowhere' not found.");
    EXPECT_EQ(errorOf("menu -parent nowhere"), "menu: Object 'nowhere' not found.");
    EXPECT_EQ(window.menuBar()->actions().size(), 2) << "what failed left nothing behind";
}

TEST_F(MenuCommandTest, HelpMenusStandLastAndHiddenOnesStayAway)
{
    run("menu -helpMenu true help; menu first; menu second; menu -e -visible false first");
    QStringList shown;
    for (const QAction* action : window.menuBar()->actions()) {
        if (action->isVisible()) {
            shown << action->text();
        }
    }
    EXPECT_EQ(shown, (QStringList{"second", "help"}));
    EXPECT_EQ(value("menu -q -visible first"), "0");
    run("menu -e -visible true -enable false first");
    EXPECT_TRUE(menu("first")->menuAction()->isVisible());
    EXPECT_FALSE(menu("first")->menuAction()->isEnabled());
}

TEST_F(MenuCommandTest, ListsItemsFromTopToBottom)
{
    run("menu ink; menuItem b; menuItem -optionBox true bBox; menuItem -divider true line; menuItem d");
    EXPECT_EQ(value("menuItem -insertAfter \"b\" c"), "MayaWindow|ink|c");
    run("menuItem -insertAfter \"\" a");
    EXPECT_EQ(value("menu -q -itemArray ink"), "a b bBox c line d");
    EXPECT_EQ(value("menu -q -numberOfItems ink"), "6");
    EXPECT_EQ(errorOf("menuItem -insertAfter elsewhere x"), "menuItem: Object 'MayaWindow|ink|elsewhere' not found.");

    run("menu -e -deleteAllItems ink; menuItem -parent ink a");
    EXPECT_EQ(value("menu -q -itemArray ink"), "a") << "the names are free again at once";
    deliverDeletions();
    EXPECT_EQ(menu("ink")->actions().size(), 1);
}

TEST_F(MenuCommandTest, FillsItselfWhenItIsAboutToOpen)
{
    run("global proc fill() { menu -e -dai ink; menuItem -parent ink; print(\"f\"); }"
        "menu -postMenuCommand fill ink; menu -pmc \"print(\\\"once\\\")\" -pmo true twice");
    forgetLines();
    for (QMenu* opened : {menu("ink"), menu("ink"), menu("twice"), menu("twice")}) {
        open(opened);
    }
    EXPECT_EQ(printed(), "ffonce");
    EXPECT_TRUE(said(kernel::Severity::Echo).empty()) << "opening a menu is nothing for the journal";
    EXPECT_EQ(value("menu -q -numberOfItems ink"), "1");
    run("menu -e -pmc \"print(\\\"new\\\")\" twice");
    forgetLines();
    open(menu("twice"));
    EXPECT_EQ(printed(), "new");
}

TEST_F(MenuCommandTest, TheCurrentMenuGoesUpAndDown)
{
    run("menu ink; menuItem one; menuItem -subMenu true pick; menuItem deep; window tools");
    EXPECT_EQ(value("setParent -q -menu"), "MayaWindow|ink|pick");
    EXPECT_EQ(value("setParent -menu .."), "MayaWindow|ink");
    EXPECT_EQ(errorOf("setParent -menu .."), "setParent: There is nothing above the current parent.");
    EXPECT_EQ(value("setParent -menu pick; setParent -menu -topLevel"), "MayaWindow|ink");
    for (const char* noMenu : {"one", "tools", "MayaWindow"}) {
        EXPECT_EQ(errorOf(std::string("setParent -menu ") + noMenu),
                  std::string("setParent: Object '") + noMenu + "' not found.");
    }
    EXPECT_EQ(value("setParent -q -menu"), "MayaWindow|ink");
    EXPECT_EQ(value("setParent -q"), "tools") << "layouts have a parent of their own";
}

TEST_F(MenuCommandTest, DeletedMenusAndSubmenusGoWithAllThatIsInThem)
{
    run("menu ink; menuItem one; menuItem -subMenu true pick; menuItem deep");
    run("menuItem -e -visible 0 pick; menu -e -label Pick pick");
    EXPECT_FALSE(item("pick")->isVisible()) << "shown only when asked to be";
    EXPECT_EQ(errorOf("deleteUI -menu one"), "deleteUI: Object 'one' not found.") << "no menu";
    EXPECT_TRUE(run("deleteUI -menu pick"));
    EXPECT_EQ(value("menu -exists pick"), "0");
    EXPECT_EQ(value("menuItem -exists deep"), "0");
    EXPECT_EQ(value("setParent -q -menu"), "");
    EXPECT_EQ(errorOf("menuItem lost"), "menuItem: There is no current menu");
    deliverDeletions();
    EXPECT_EQ(menu("ink")->actions(), QList<QAction*>{item("one")});

    EXPECT_TRUE(run("setParent -menu ink; deleteUI -menu ink; menu ink"));
    deliverDeletions();
    EXPECT_EQ(window.menuBar()->actions(), QList<QAction*>{menu("ink")->menuAction()});
    EXPECT_TRUE(run("menuItem -subMenu true pick; deleteUI pick ink"));
    deliverDeletions();
    EXPECT_TRUE(window.menuBar()->actions().isEmpty());
}

}  // namespace
