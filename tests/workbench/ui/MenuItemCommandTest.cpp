#include "support/WindowFixture.h"

#include <QActionGroup>
#include <QApplication>
#include <QMouseEvent>

#include <maya/MQtUtil.h>

namespace {

class MenuItemCommandTest : public WindowFixture {
protected:
    MenuItemCommandTest() { run("menu ink"); }

    std::string chosen(const std::string& name)
    {
        forgetLines();
        item(name)->trigger();
        return printed();
    }
    static void click(QWidget* widget, const QPoint& at)
    {
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, at, widget->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(widget, &event);
        }
    }
    /// The copy of a menu that stays open; null when there is none.
    static QMenu* tornOff(const QMenu* menu)
    {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->inherits("QTornOffMenu") && window->isVisible() && window != menu) {
                return qobject_cast<QMenu*>(window);
            }
        }
        return nullptr;
    }
    static QWidget* optionBox(const QMenu* menu)
    {
        const auto boxes = menu->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget* box : boxes) {
            if (box->inherits("ui::OptionBoxMark") && box->isVisible()) {
                return box;
            }
        }
        return nullptr;
    }
};

TEST_F(MenuItemCommandTest, NewItemsGoIntoTheLatestMenuOrSubmenu)
{
    EXPECT_EQ(value("menuItem -label \"A & B\""), "MayaWindow|ink|menuItem1");
    EXPECT_EQ(item("menuItem1")->text(), "A && B");
    EXPECT_EQ(value("menuItem -subMenu true -tearOff true pick"), "MayaWindow|ink|pick");
    EXPECT_EQ(value("menuItem deep"), "MayaWindow|ink|pick|deep");
    EXPECT_TRUE(menu("pick")->isTearOffEnabled());
    EXPECT_EQ(value("menuItem -parent ink beside"), "MayaWindow|ink|beside");
    EXPECT_EQ(menu("pick")->actions(), QList<QAction*>{item("deep")});
    EXPECT_EQ(value("menuItem -q -parent deep"), "MayaWindow|ink|pick");

    EXPECT_EQ(MQtUtil::findMenuItem("pick|deep"), item("deep"));
    EXPECT_EQ(MQtUtil::fullName(item("deep")), MString("MayaWindow|ink|pick|deep"));
    EXPECT_EQ(MQtUtil::findMenuItem("ink"), nullptr);

    EXPECT_EQ(errorOf("menuItem beside -parent ink"), "Object's name 'beside' is not unique.");
    EXPECT_EQ(errorOf("menuItem -parent beside"), "menuItem: Object 'beside' not found.") << "no menu";
    EXPECT_EQ(errorOf("menuItem -e -label x gone"), "menuItem: Object 'gone' not found.");
    EXPECT_EQ(value("menu -q -itemArray ink"), "menuItem1 pick beside");
}

TEST_F(MenuItemCommandTest, AChosenItemIsOneEchoedUndoStep)
{
    run("menuItem -command \"createNode transform -n a; createNode transform -n b\" go;"
        "menuItem -echoCommand false -command \"print(\\\"quiet\\\")\" hush;"
        "menuItem -sourceType python -command \"import x\" snake");
    forgetLines();
    item("go")->trigger();
    ASSERT_FALSE(said(kernel::Severity::Echo).empty());
    EXPECT_THAT(said(kernel::Severity::Echo).front(), testing::HasSubstr("createNode transform -n a"));
    run("undo");
    EXPECT_EQ(value("ls a b"), "");
    EXPECT_EQ(chosen("hush"), "quiet");
    EXPECT_TRUE(said(kernel::Severity::Echo).empty());
    item("snake")->trigger();
    EXPECT_EQ(errors(), std::vector<std::string>{"menuItem: Python scripts cannot be run"});
}

TEST_F(MenuItemCommandTest, AChosenCheckItemHasItsNewStateWhenItsCommandRuns)
{
    run("menuItem -checkBox off -command \"print(\\\"#1:\\\" + `menuItem -q -cb check`)\" check");
    EXPECT_EQ(chosen("check"), "1:1");
    EXPECT_EQ(chosen("check"), "0:0");
    forgetLines();
    run("menuItem -e -checkBox on check");
    EXPECT_EQ(printed(), "") << "an edit is not a choice";
    EXPECT_TRUE(item("check")->isChecked());
}

TEST_F(MenuItemCommandTest, RadioItemsOfACollectionExcludeEachOther)
{
    run("radioMenuItemCollection first; menuItem -rb on -c \"print(\\\"one#1\\\")\" one; menuItem -rb off two;"
        "radioMenuItemCollection; menuItem -rb on other; menuItem -rb off -collection first three");
    const auto states = [this] {
        return value("menuItem -q -rb one") + value("menuItem -q -rb two") + value("menuItem -q -rb three")
             + value("menuItem -q -rb other");
    };
    EXPECT_EQ(states(), "1001");
    forgetLines();
    run("menuItem -e -rb 1 two");
    EXPECT_EQ(states(), "0101");
    EXPECT_EQ(printed(), "");
    EXPECT_EQ(chosen("one"), "one1");
    EXPECT_EQ(chosen("one"), "one1") << "the item that is on is chosen again";
    EXPECT_EQ(states(), "1001");
    item("three")->trigger();
    EXPECT_EQ(states(), "0011");
    EXPECT_EQ(errorOf("menuItem -rb on -collection nowhere"), "menuItem: Object 'nowhere' not found.");
}

TEST_F(MenuItemCommandTest, ShortcutsAreMadeOfAKeyAndModifiers)
{
    run("menuItem -keyEquivalent \"S\" -ctrlModifier true -shiftModifier true save");
    EXPECT_EQ(item("save")->shortcut(), QKeySequence("Ctrl+Shift+S"));
    run("menuItem -e -ke \"F2\" -alt true save");
    EXPECT_EQ(item("save")->shortcut(), QKeySequence("Alt+F2"));
}

TEST_F(MenuItemCommandTest, AnOptionBoxStandsAtTheEndOfTheRowBefore)
{
    EXPECT_EQ(errorOf("menuItem -optionBox true"), "menuItem: There is no item for the option box");
    run("menu -tearOff true ink2; menuItem -c \"print(\\\"draw\\\")\" draw;"
        "menuItem -optionBox true -c \"print(\\\"options\\\")\" box; menuItem last");
    QMenu* const ink = menu("ink2");
    ink->popup(QPoint(0, 0));
    QWidget* box = optionBox(ink);
    ASSERT_NE(box, nullptr);
    const QRect row = ink->actionGeometry(item("draw"));
    EXPECT_EQ(box->geometry().top(), row.top());
    EXPECT_GT(box->geometry().left(), row.right());
    EXPECT_EQ(ink->actionGeometry(item("last")).top(), row.bottom() + 1) << "it takes no row of its own";
    run("menuItem -e -enable off box");
    forgetLines();
    click(box, box->rect().center());
    EXPECT_EQ(printed(), "");
    EXPECT_TRUE(ink->isVisible()) << "nothing was chosen";
    run("menuItem -e -enable on box");
    click(box, box->rect().center());
    EXPECT_EQ(printed(), "options");
    EXPECT_FALSE(ink->isVisible());

    ink->showTearOffMenu(QPoint(100, 100));
    QMenu* const copy = tornOff(ink);
    ASSERT_NE(copy, nullptr);
    box = optionBox(copy);
    ASSERT_NE(box, nullptr);
    forgetLines();
    click(box, box->rect().center());
    EXPECT_EQ(printed(), "options");
    EXPECT_TRUE(copy->isVisible());
}

// From the menu itself and from a copy of it that was torn off and is open.
TEST_F(MenuItemCommandTest, ACommandMayDeleteItsOwnMenu)
{
    const std::string make = "menu -tearOff true own; menuItem -c \"menu -e -dai own; print(\\\"done\\\")\" suicide";
    run(make);
    EXPECT_EQ(chosen("suicide"), "done");
    EXPECT_FALSE(ui().find("suicide"));
    deliverDeletions();
    EXPECT_TRUE(menu("own")->actions().isEmpty());

    ui().destroy(ui().get("test", "own"));
    EXPECT_TRUE(run(make)) << "the name is free again";
    menu("own")->showTearOffMenu(QPoint(0, 0));
    const QPointer<QMenu> copy = tornOff(menu("own"));
    ASSERT_TRUE(copy);
    QObject::connect(item("suicide"), &QAction::triggered, [this] { ui().destroy(ui().get("test", "own")); });
    forgetLines();
    click(copy, copy->actionGeometry(item("suicide")).center());
    EXPECT_EQ(printed(), "done");
    EXPECT_FALSE(ui().find("own"));
    deliverDeletions();
    EXPECT_TRUE(!copy || !copy->isVisible());
}

}  // namespace
