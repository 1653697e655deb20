#include "support/HostFixture.h"

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include <maya/MQtUtil.h>

namespace {

using ui::Kind;
using ui::UiObject;

class UiObjectsTest : public HostFixture {
protected:
    ui::UiObjects& ui() { return host().ui(); }
    UiObject& addControl(const char* name, UiObject* parent)
    {
        return ui().add(Kind::Control, "button", name, parent, new QWidget(parent->widget()));
    }
    static void deliverDeletions() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    QMainWindow m_window;
};

TEST_F(UiObjectsTest, WithoutAMainWindowNothingCanBeMadeOrFound)
{
    EXPECT_FALSE(ui().isAvailable());
    EXPECT_THROW(ui().requireAvailable("menu"), kernel::CommandError);
    EXPECT_EQ(MQtUtil::mainWindow(), nullptr);
    EXPECT_EQ(MQtUtil::findControl("anything"), nullptr);
}

TEST_F(UiObjectsTest, FindsByShortNameAndByPath)
{
    ui().setMainWindow(&m_window);
    UiObject* const main = ui().mainWindowObject();
    QWidget* const column = new QWidget(&m_window);
    UiObject& layout = ui().add(Kind::Layout, "columnLayout", "column", main, column);
    UiObject& below = addControl("ok", &layout);
    UiObject& beside = addControl("ok", main);

    EXPECT_EQ(ui::UiObjects::path(below), "MayaWindow|column|ok");
    EXPECT_EQ(ui().find("column|ok"), &below);
    EXPECT_EQ(ui().find("MayaWindow|ok"), &beside);
    EXPECT_EQ(ui().find("nowhere|ok"), nullptr);
    EXPECT_EQ(ui().find("ok", ui::only(Kind::Menu)), nullptr);
    EXPECT_THROW(ui().get("button", "none"), kernel::CommandError);
    EXPECT_EQ(ui().add(Kind::Control, "button", "", main, new QWidget(&m_window)).name, "button1");

    EXPECT_EQ(MQtUtil::mainWindow(), &m_window);
    EXPECT_EQ(MQtUtil::findControl("column|ok"), below.widget());
    EXPECT_EQ(MQtUtil::findLayout("column"), column);
    EXPECT_EQ(MQtUtil::findLayout("ok"), nullptr);
    EXPECT_EQ(MQtUtil::findWindow("MayaWindow"), &m_window);
    EXPECT_EQ(MQtUtil::fullName(below.object), MString("MayaWindow|column|ok"));
}

TEST_F(UiObjectsTest, SiblingsAndWindowsHaveNamesOfTheirOwn)
{
    ui().setMainWindow(&m_window);
    addControl("ok", ui().mainWindowObject());
    QWidget widget;
    EXPECT_THROW(ui().add(Kind::Control, "button", "ok", ui().mainWindowObject(), &widget), kernel::CommandError);
    EXPECT_THROW(ui().add(Kind::Window, "window", "MayaWindow", nullptr, &widget), kernel::CommandError);
    EXPECT_EQ(ui().of(&widget), nullptr);
}

// Whatever destroys a widget, a script or the toolkit, its name and those below it go with it.
TEST_F(UiObjectsTest, NamesGoWithTheirObjects)
{
    ui().setMainWindow(&m_window);
    auto* const window = new QWidget;
    UiObject& object = ui().add(Kind::Window, "window", "tools", nullptr, window);
    addControl("deep", &object);
    ui().setLayoutParent(&object);
    delete window;
    EXPECT_EQ(ui().find("tools"), nullptr);
    EXPECT_EQ(ui().find("deep"), nullptr);
    EXPECT_EQ(ui().layoutParent(), nullptr);

    QMenu menu;
    UiObject& menuObject = ui().add(Kind::Menu, "menu", "ink", ui().mainWindowObject(), &menu);
    QPointer<QAction> action = menu.addAction("Go");
    UiObject* const item = &ui().add(Kind::MenuItem, "menuItem", "go", &menuObject, action);
    QObject::connect(action.data(), &QAction::triggered, [&] { ui().destroy(*item); });
    action->trigger();  // the item deletes itself
    EXPECT_EQ(ui().find("go"), nullptr);
    EXPECT_FALSE(action.isNull());
    deliverDeletions();
    EXPECT_TRUE(action.isNull());
    EXPECT_TRUE(ui().children(menuObject).empty());

    auto* const bar = m_window.menuBar()->addMenu("Bar");
    ui().destroy(ui().add(Kind::Menu, "menu", "bar", ui().mainWindowObject(), bar));
    EXPECT_FALSE(bar->menuAction()->isVisible()) << "its title leaves the menu bar at once";
}

}  // namespace
