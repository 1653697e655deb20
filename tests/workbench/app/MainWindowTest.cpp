#include "app/MainWindow.h"

#include "api/Tools.h"
#include "support/HostFixture.h"
#include "ui/MenuItem.h"
#include "view/Viewport.h"
#include "view/Viewports.h"
#include "workbench/app/WindowSession.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QSpinBox>
#include <QStatusTipEvent>

#include <maya/MPxContext.h>

namespace {

class KeyTool : public MPxContext {
public:
    explicit KeyTool(QStringList& log) : m_log(log) { setHelpString("Press a key."); }
    void completeAction() override { m_log << "complete"; }
    void abortAction() override { m_log << "abort"; }
    void deleteAction() override { m_log << "delete"; }

private:
    QStringList& m_log;
};

class MainWindow : public testing::Test {
protected:
    std::string value(const std::string& text) { return m_run.value(text); }
    QAction* action(const QString& name)
    {
        QCoreApplication::processEvents();
        for (QAction* candidate : window->findChildren<QAction*>()) {
            if (candidate->text().remove('&').startsWith(name)) {
                return candidate;
            }
        }
        return nullptr;
    }
    QString textOf(const char* label) { return window->findChild<QLabel*>(label)->text(); }

    QTemporaryDir m_prefs;
    WindowSession m_run{m_prefs.path()};
    std::unique_ptr<app::Host>& host = m_run.host;
    std::unique_ptr<app::MainWindow>& window = m_run.window;
};

}  // namespace

TEST_F(MainWindow, MenusUndoAndRedoByName)
{
    EXPECT_FALSE(action("Undo")->isEnabled());
    window->runAction("createNode transform -n thing");
    EXPECT_TRUE(action("Undo")->isEnabled());
    EXPECT_EQ(action("Undo")->text(), "&Undo createNode transform -n thing");
    action("Undo")->trigger();
    EXPECT_EQ(value("objExists thing"), "0");
    EXPECT_FALSE(action("Undo")->isEnabled());
    EXPECT_TRUE(action("Redo")->isEnabled());
    action("Redo")->trigger();
    EXPECT_EQ(value("objExists thing"), "1");
    EXPECT_FALSE(action("Redo")->isEnabled());
}

// An entry is one undo step, whatever it does.
TEST_F(MainWindow, MenusMakeSelectAndShowThings)
{
    const struct {
        const char* before;
        const char* entry;
        const char* query;
        const char* after;
    } rows[] = {
        {"", "Box", "size(`ls -type implicitBox`)", "1"},
        {"", "Sphere", "size(`ls -type implicitSphere`)", "1"},
        {"", "Cone", "size(`ls -type implicitCone`)", "1"},
        {"", "Camera", "size(`ls -cameras`)", "5"},
        {"", "Empty Group", "objExists transform1", "1"},
        {"createNode transform -n a; createNode transform -n b; select -clear", "All", "ls -sl", "a b"},
        {"createNode transform -n a", "None", "ls -sl", ""},
        {"createNode transform -n a; createNode transform -n b -p a; select a", "Hierarchy", "ls -sl", "a b"},
        {"createNode transform -n a; setAttr a.t 1 2 3; setAttr a.s 2 2 2", "Reset Transformations",
         "`getAttr a.tx` + `getAttr a.sy`", "1"},
        {"createNode transform -n a", "Hide Selection", "getAttr a.visibility", "0"},
        {"createNode transform -n a; setAttr a.visibility 0", "Show Selection", "getAttr a.visibility", "1"},
        {"createNode transform -n a; createNode transform -n b; select a b", "Parent", "ls -long a", "|b|a"},
        {"createNode transform -n a; createNode transform -n b -p a", "Unparent", "ls -long b", "|b"},
        {"createNode transform -n a", "Delete", "objExists a", "0"},
    };
    for (const auto& row : rows) {
        host->run("file -force -new");
        host->run(row.before);
        const std::string before = value(row.query);
        action(row.entry)->trigger();
        EXPECT_EQ(value(row.query), row.after) << row.entry;
        action("Undo")->trigger();
        EXPECT_EQ(value(row.query), before) << row.entry;
    }
}

namespace {

/// The items of the main window's menus, as scripts find them: without dividers and submenus.
std::vector<ui::MenuItem*> menuEntries(ui::UiObjects& ui)
{
    std::vector<ui::MenuItem*> entries;
    for (const ui::UiObject* object : ui.all(only(ui::Kind::MenuItem))) {
        auto* const item = qobject_cast<ui::MenuItem*>(object->object);
        if (item && !item->isSeparator() && !item->subMenu()) {
            entries.push_back(item);
        }
    }
    return entries;
}

}  // namespace

TEST_F(MainWindow, EveryMenuEntryRuns)
{
    for (const char* menu : {"File", "Display"}) {
        QMetaObject::invokeMethod(action(menu)->menu(), "aboutToShow");
    }
    std::vector<std::string> wrong;
    const int listener = host->session().output.addListener([&](kernel::Severity severity, const std::string& text) {
        if (severity == kernel::Severity::Error || severity == kernel::Severity::Warning) {
            wrong.push_back(text);
        }
    });
    EXPECT_GE(menuEntries(host->ui()).size(), 30u);
    for (ui::MenuItem* entry : menuEntries(host->ui())) {
        host->run("file -force -new");
        host->run("createNode transform -n above; createNode transform -n below -parent above;"
                  "createNode transform -n beside; select below beside");
        host->run("currentTime 5");
        host->run("undo");
        wrong.clear();
        EXPECT_FALSE(entry->script.text.empty()) << entry->label().text.toStdString();
        entry->setEnabled(true);
        entry->trigger();
        EXPECT_THAT(wrong, testing::IsEmpty()) << entry->label().text.toStdString();
    }
    host->session().output.removeListener(listener);
}

// A letter that stands for two entries opens neither.
TEST_F(MainWindow, EveryMenuEntryHasALetterAndAShortcutOfItsOwn)
{
    QStringList letters;
    QStringList shortcuts;
    for (const ui::MenuItem* entry : menuEntries(host->ui())) {
        const QString menu = QString::fromStdString(host->ui().of(entry)->parent->name);
        letters << menu + ' ' + entry->label().mnemonic.toLower();
        EXPECT_TRUE(entry->text().contains('&')) << entry->text().toStdString();
        if (!entry->shortcut().isEmpty()) {
            shortcuts << entry->shortcut().toString();
        }
    }
    EXPECT_EQ(letters.removeDuplicates(), 0) << letters.join(", ").toStdString();
    EXPECT_EQ(shortcuts.removeDuplicates(), 0) << shortcuts.join(", ").toStdString();
}

namespace {

/// The menus above a view, as their entries do something.
const struct {
    const char* menu;
    const char* entry;
    const char* query;
    const char* before;
    const char* after;
} kPanelEntries[] = {
    {"panelViewMenu", "front", "lookThru -q modelPanel1", "top", "front"},
    {"panelViewMenu", "Camera Attributes...", "ls -sl", "thing", "topShape"},
    {"panelViewMenu", "Camera Attributes...", "workbenchPanel -q -visible attributeEditor", "0", "1"},
    {"panelViewMenu", "Frame Selection", "getPanel -withFocus", "modelPanel4", "modelPanel1"},
    {"panelViewMenu", "Film Gate", "getAttr topShape.displayFilmGate", "0", "1"},
    {"panelViewMenu", "Resolution Gate", "getAttr topShape.displayResolution", "0", "1"},
    {"panelViewMenu", "2D Pan/Zoom", "getAttr topShape.panZoomEnabled", "0", "1"},
    {"panelViewMenu", "Reset 2D Pan/Zoom", "getAttr topShape.zoom", "0.5", "1"},
    {"panelShadingMenu", "Wireframe", "modelEditor -q -da modelPanel1", "smoothShaded", "wireframe"},
    {"panelShowMenu", "Grid", "modelEditor -q -grid modelPanel1", "1", "0"},
    {"panelShowMenu", "Objects", "modelEditor -q -polymeshes modelPanel1", "1", "0"},
    {"panelShowMenu", "Drawings", "modelEditor -q -pluginShapes modelPanel1", "1", "0"},
    {"panelShowMenu", "Heads-up", "modelEditor -q -headsUpDisplay modelPanel1", "1", "0"},
};

}  // namespace

TEST_F(MainWindow, EveryViewHasMenusForItself)
{
    const auto open = [&](const std::string& menu) {
        auto* const opened = qobject_cast<QMenu*>(host->ui().get("test", "modelPanel1|" + menu).object);
        QMetaObject::invokeMethod(opened, "aboutToShow");
        return opened;
    };
    const auto entry = [&](const std::string& menu, const QString& label) -> QAction* {
        for (QAction* candidate : open(menu)->findChildren<QAction*>()) {
            if (candidate->text() == label && candidate->isVisible()) {
                return candidate;
            }
        }
        return nullptr;
    };
    for (const auto& row : kPanelEntries) {
        host->run("file -force -new; workbenchView -panes 2; lookThru modelPanel1 top; createNode transform -n thing;"
                  "setAttr topShape.zoom 0.5; workbenchPanel -visible 0 attributeEditor; modelEditor -e -activeView "
                  "modelPanel4");
        EXPECT_EQ(value(row.query), row.before) << row.entry;
        QAction* const action = entry(row.menu, row.entry);
        ASSERT_NE(action, nullptr) << row.entry;
        const bool wasMarked = action->isChecked();
        action->trigger();
        EXPECT_EQ(value(row.query), row.after) << row.entry;
        if (action->isCheckable()) {
            EXPECT_NE(entry(row.menu, row.entry)->isChecked(), wasMarked) << row.entry;
        }
        if (std::string(row.query).find("getAttr") == 0) {
            host->run("undo");
            EXPECT_EQ(value(row.query), row.before) << row.entry << " is a step";
        }
    }
    EXPECT_EQ(value("modelEditor -q -grid modelPanel4"), "1") << "its own view alone";
    EXPECT_TRUE(entry("panelRendererMenu", "Viewport 2.0")->isChecked());
    EXPECT_NE(entry("panelRendererMenu", "Legacy Default Viewport"), nullptr);
}

TEST_F(MainWindow, AViewsMenuOutlivesItsCameraAndGoesWithItsPanel)
{
    host->run("camera; rename camera1 shot; lookThru modelPanel4 shot");
    QMenu* const menu = qobject_cast<QMenu*>(host->ui().get("test", "modelPanel4|panelViewMenu").object);
    QMetaObject::invokeMethod(menu, "aboutToShow");
    host->run("delete shot");
    for (QAction* entry : menu->findChildren<QAction*>()) {
        if (entry->text() == "Film Gate") {
            entry->trigger();
        }
    }
    EXPECT_EQ(value("getAttr perspShape.displayFilmGate"), "0") << "it was the other camera's";

    host->run("window tools; paneLayout panes; menu own; modelPanel floating; menuItem mine");
    EXPECT_EQ(value("menu -exists \"floating|panelViewMenu\""), "1");
    EXPECT_EQ(value("menuItem -q -parent mine"), "tools|own") << "a script's own menu goes on";
    host->run("deleteUI floating");
    EXPECT_EQ(value("menu -exists \"floating|panelViewMenu\""), "0");
}

// A dialog must not keep a script, and the undo step it is, open.
TEST_F(MainWindow, CommandsThatMayAskTheUserActWhenTheScriptHasEnded)
{
    host->run("createNode transform -n thing; file -modified false");
    EXPECT_EQ(value("NewScene; objExists thing"), "1");
    QCoreApplication::processEvents();
    EXPECT_EQ(value("objExists thing"), "0");
    const std::string path = m_prefs.filePath("shot.ma").toStdString();
    host->run("createNode transform; file -rename \"" + path + "\"");
    action("Save Scene")->trigger();
    QCoreApplication::processEvents();
    EXPECT_EQ(value("file -q -exists \"" + path + "\""), "1");
    EXPECT_FALSE(host->run("NewScene now"));
}

TEST_F(MainWindow, TitleNamesTheFileAndMarksChanges)
{
    EXPECT_TRUE(window->windowTitle().startsWith("untitled - "));
    host->run("createNode transform");
    action("Undo");
    EXPECT_TRUE(window->windowTitle().startsWith("untitled* - "));
    host->run("file -rename \"" + m_prefs.filePath("shot.ma").toStdString() + "\"; file -save -type \"mayaAscii\"");
    action("Undo");
    EXPECT_TRUE(window->windowTitle().startsWith("shot.ma - ")) << window->windowTitle().toStdString();
}

TEST_F(MainWindow, TimeFieldsFollowAndSetTheTimes)
{
    auto* const field = window->findChild<QSpinBox*>("currentTime");
    host->run("currentTime 12");
    EXPECT_EQ(field->value(), 12);
    host->run("currentTime 12.75");
    EXPECT_EQ(field->value(), 12);
    EXPECT_EQ(value("currentTime -q"), "12.75") << "showing a time must not change it";
    field->setValue(30);
    EXPECT_EQ(value("currentTime -q"), "30");
    action("Undo")->trigger();
    EXPECT_EQ(field->value(), 12);

    auto* const start = window->findChild<QSpinBox*>("playbackStart");
    auto* const end = window->findChild<QSpinBox*>("playbackEnd");
    end->setValue(40);
    EXPECT_EQ(value("playbackOptions -q -max"), "40");
    start->setValue(50);
    EXPECT_EQ(value("playbackOptions -q -min"), "50");
    EXPECT_EQ(end->value(), 51) << "pushed along";
    action("Undo")->trigger();
    EXPECT_EQ(start->value(), 1);
    EXPECT_EQ(end->value(), 40);
}

TEST_F(MainWindow, LinesShowTheLastMessageAndTheToolsHelp)
{
    host->session().output.info("all is well");
    EXPECT_EQ(textOf("messageLine"), "all is well");
    window->runAction("noSuchCommand");
    EXPECT_TRUE(textOf("messageLine").startsWith("Error: ")) << textOf("messageLine").toStdString();
    window->runAction("objExists persp");
    EXPECT_EQ(textOf("messageLine"), "Result: 1");

    QStringList log;
    api::ToolBox& tools = api::ToolBox::instance();
    tools.setCurrent(tools.add("keyToolCtx", "", new KeyTool(log), nullptr));
    EXPECT_EQ(textOf("helpLine"), "Press a key.");
    action("Sphere")->showStatusText(window.get());
    EXPECT_EQ(textOf("helpLine"), "Create a sphere") << "the entry under the pointer";
    QStatusTipEvent leaving{QString()};
    QApplication::sendEvent(window.get(), &leaving);
    EXPECT_EQ(textOf("helpLine"), "Press a key.");
    tools.removeOf("keyToolCtx");
    EXPECT_EQ(textOf("helpLine"), "Select Tool");
}

TEST_F(MainWindow, KeysThatNobodyWantedGoToTheTool)
{
    QStringList log;
    api::ToolBox& tools = api::ToolBox::instance();
    tools.setCurrent(tools.add("keyToolCtx", "", new KeyTool(log), nullptr));
    view::Viewport* const view = window->viewports().active();
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Escape}) {
        pressKey(view, key);
    }
    EXPECT_EQ(log.join(' '), "complete complete delete delete abort");

    // A filter on the window, as modules have them, is asked first.
    struct Filter : QObject {
        bool eventFilter(QObject*, QEvent* event) override { return event->type() == QEvent::KeyPress; }
    } filter;
    window->installEventFilter(&filter);
    pressKey(view, Qt::Key_Escape);
    window->removeEventFilter(&filter);
    EXPECT_EQ(log.size(), 5);
}

TEST_F(MainWindow, ShowsOneTwoOrFourViewsAndLooksThroughCameras)
{
    EXPECT_EQ(value("workbenchView -q -panes"), "1");
    EXPECT_EQ(value("getPanel -type modelPanel"), "modelPanel4 modelPanel1 modelPanel2 modelPanel3");
    EXPECT_EQ(window->viewports().views().size(), 1u) << "the others wait for a pane";
    EXPECT_EQ(value("lookThru -q modelPanel4"), "persp");
    action("Two Views")->trigger();
    EXPECT_EQ(value("workbenchView -q -panes"), "2");
    EXPECT_EQ(value("modelPanel -q -camera modelPanel1"), "top");
    EXPECT_EQ(window->viewports().views().size(), 2u);
    EXPECT_EQ(value("size(`workbenchView -q -screenRect -panel modelPanel1`)"), "4");

    EXPECT_TRUE(host->run("lookThru modelPanel1 side; lookThru frontShape modelPanel4"));
    EXPECT_EQ(value("lookThru -q modelPanel1"), "side");
    EXPECT_EQ(value("modelEditor -q -camera modelPanel4"), "front");
    EXPECT_TRUE(host->run("lookThru top"));
    EXPECT_EQ(value("lookThru -q"), "top") << "without a panel, the view worked in";
    EXPECT_TRUE(host->run("modelPanel -e -camera persp modelPanel4"));
    EXPECT_EQ(value("lookThru -q"), "persp");

    for (const char* wrong : {"lookThru noSuchCamera", "lookThru modelPanel9 persp", "lookThru time1",
                              "workbenchView -q -screenRect -panel modelPanel9", "workbenchView -panes 3",
                              "modelPanel -q -camera modelPanel9", "workbenchPen -pressure 2", "workbenchPen"}) {
        EXPECT_FALSE(host->run(wrong)) << wrong;
    }
    EXPECT_EQ(value("workbenchView -q -panes"), "2");
}

TEST_F(MainWindow, ScriptsArrangeItsPanes)
{
    EXPECT_EQ(value("$panes = $gMainPane"), "viewPanes");
    EXPECT_EQ(value("paneLayout -q -childArray $gMainPane"), "modelPanel4 modelPanel1 modelPanel2 modelPanel3");
    EXPECT_EQ(value("modelPanel -q -control modelPanel4"), "MayaWindow|viewPanes|modelPanel4");
    EXPECT_EQ(host->ui().findControl("MayaWindow|viewPanes|modelPanel4"), host->ui().findControl("modelPanel4"));
    EXPECT_EQ(host->ui().findControl("MayaWindow|otherPanes|modelPanel4"), nullptr);
    host->run("paneLayout -e -configuration quad $gMainPane");
    EXPECT_EQ(window->viewports().views().size(), 4u);
    EXPECT_EQ(value("workbenchView -q -panes"), "4");
    EXPECT_EQ(value("lookThru -q modelPanel3"), "front");
    host->run("paneLayout -e -configuration single -setPane modelPanel2 1 $gMainPane");
    EXPECT_EQ(value("getPanel -withFocus"), "modelPanel2");
    host->run("deleteUI modelPanel2");
    EXPECT_EQ(value("getPanel -withFocus"), "modelPanel1") << "the next one has the pane";
}

// Scripts leave windows open when the program ends.
TEST_F(MainWindow, WindowsOfScriptsGoWithIt)
{
    host->run("window tools; paneLayout panes; modelPanel floating; window other; columnLayout; colorSliderGrp ink;"
              "modelPanel -parent MayaWindow unseen");
    const QPointer<QWidget> tools = host->ui().findWindow("tools");
    const QPointer<QWidget> unseen = host->ui().findControl("unseen");
    host->shutDown();
    window.reset();
    EXPECT_TRUE(tools.isNull());
    EXPECT_TRUE(unseen.isNull());
    EXPECT_EQ(host->ui().find("floating"), nullptr);
    EXPECT_FALSE(host->ui().isAvailable());
}

TEST_F(MainWindow, TheCommandFieldRunsALineAndRemembersIt)
{
    auto* const field = window->findChild<QLineEdit*>("commandField");
    field->setText("createNode transform -n typed");
    pressKey(field, Qt::Key_Return);
    EXPECT_EQ(value("objExists typed"), "1");
    EXPECT_EQ(field->text(), "");
    pressKey(field, Qt::Key_Up);
    EXPECT_EQ(field->text(), "createNode transform -n typed");
}
