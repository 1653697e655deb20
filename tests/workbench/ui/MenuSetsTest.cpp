#include "support/WindowFixture.h"
#include "ui/MenuSetBox.h"

#include <QMenuBar>

namespace {

class MenuSetsTest : public WindowFixture {
protected:
    MenuSetsTest()
    {
        run("menuSet -label Common commonMenuSet; menuSet -label Modeling modelingMenuSet;"
            "menuSet -label Animation animationMenuSet; menuSet -cms modelingMenuSet;"
            "menu -helpMenu true help; menu ink; menu edit; menu file; menu keys; menu mesh;"
            "menuSet -am file commonMenuSet; menuSet -am edit commonMenuSet;"
            "menuSet -am mesh; menuSet -am \"MayaWindow|keys\" animationMenuSet");
    }
    std::string bar()
    {
        QStringList shown;
        for (const QAction* action : window.menuBar()->actions()) {
            if (action->isVisible()) {
                shown << action->text();
            }
        }
        return shown.join(' ').toStdString();
    }
};

TEST_F(MenuSetsTest, ShowsTheCommonMenusThoseOfTheCurrentSetAndThoseOfNone)
{
    EXPECT_EQ(bar(), "file edit mesh ink help");
    run("menuSet -currentMenuSet animationMenuSet");
    EXPECT_EQ(bar(), "file edit keys ink help");
    run("menu late; menuSet -am ink");
    EXPECT_EQ(bar(), "file edit keys ink late help");
    run("setMenuMode modelingMenuSet");
    EXPECT_EQ(bar(), "file edit mesh late help") << "a menu of a set shows with it only";
    run("menuSet -am ink");
    EXPECT_EQ(bar(), "file edit mesh ink late help") << "or with any of several";
    ui().destroy(ui().get("test", "mesh"));
    EXPECT_EQ(value("menuSet -q -menuArray"), "ink");
    EXPECT_EQ(bar(), "file edit ink late help");
}

// "Set, add, restore": how a script adds its menu to one set.
TEST_F(MenuSetsTest, MenusDeletedJustNowHaveNoPlaceInASet)
{
    run("menu gone; menu stays; menuSet -label S -am gone s; menuSet -am stays s; deleteUI gone;"
        "menu last; menuSet -im last 1 s");
    EXPECT_EQ(value("menuSet -q -ma s"), "stays last");
}

TEST_F(MenuSetsTest, ScriptsFindSetsAndMenusByTheirLabels)
{
    EXPECT_EQ(value("findMenuSetFromLabel(\"Animation\")"), "animationMenuSet");
    EXPECT_EQ(value("findMenuSetFromLabel(\"Cooking\")"), "");
    EXPECT_EQ(value("findMenuFromMenuSet(\"commonMenuSet\", \"edit\")"), "edit");
    EXPECT_EQ(value("findMenuFromMenuSet(\"commonMenuSet\", \"keys\")"), "");
    run("string $set = `menuSet -q -cms`; menuSet -cms (findMenuSetFromLabel(\"Animation\"));"
        "menuSet -am ink; evalDeferred(\"menuSet -cms \" + $set)");
    EXPECT_EQ(value("setMenuMode()"), "modelingMenuSet");
    EXPECT_EQ(bar(), "file edit mesh help");
    EXPECT_EQ(value("workingMode(\"animationMenuSet\")"), "animationMenuSet");
    EXPECT_EQ(bar(), "file edit keys ink help");
}

TEST_F(MenuSetsTest, TheBoxFollowsTheSetAndChoosesIt)
{
    ui::MenuSetBox box(ui(), host().menuSets());
    EXPECT_EQ(box.count(), 2) << "the common menus always show";
    EXPECT_EQ(box.currentText(), "Modeling");
    run("setMenuMode animationMenuSet; menuSet -label \"My Set\" mySet");
    EXPECT_EQ(box.currentText(), "Animation");
    ASSERT_EQ(box.count(), 3);
    EXPECT_EQ(box.itemText(2), "My Set");
    forgetLines();
    QMetaObject::invokeMethod(&box, "activated", Q_ARG(int, 2));
    EXPECT_EQ(value("menuSet -q -cms"), "mySet");
    EXPECT_FALSE(said(kernel::Severity::Echo).empty());
}

}  // namespace
