#include "app/HotKeys.h"

#include "api/Tools.h"
#include "support/QtPrint.h"
#include "view/Viewport.h"
#include "view/Viewports.h"
#include "workbench/app/WindowSession.h"

#include <QDockWidget>
#include <QLineEdit>
#include <QMenuBar>
#include <QTableView>
#include <QTreeView>

#include <maya/MPxContext.h>

namespace {

class LoggingTool : public MPxContext {
public:
    explicit LoggingTool(QStringList& log) : m_log(log) {}
    void abortAction() override { m_log << "abort"; }

private:
    QStringList& m_log;
};

class HotKeys : public testing::Test {
protected:
    HotKeys()
    {
        session().output.addListener([this](kernel::Severity severity, const std::string& text) {
            if (severity == kernel::Severity::Echo) {
                echoed.push_back(text);
            }
        });
    }

    kernel::Session& session() { return m_run.host->session(); }
    app::MainWindow& window() { return *m_run.window; }
    bool run(const std::string& text) { return m_run.host->run(text); }
    std::string value(const std::string& text) { return m_run.value(text); }
    view::Viewport* view() { return window().viewports().active(); }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { pressKey(view(), key, modifiers); }
    void hold(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        pressKey(view(), key, modifiers);
        pressKey(view(), key, modifiers, {}, true);
        pressKey(view(), key, modifiers, {}, true);
    }

    template <class T = QWidget>
    T* find(const char* name)
    {
        return window().findChild<T*>(name);
    }
    void showUnpainted()
    {
        // There is no screen to draw views on.
        view()->hide();
        window().setUpdatesEnabled(false);
        window().resize(1440, 900);
        window().show();
        QApplication::setActiveWindow(&window());
        turnEventLoop();
    }

    QTemporaryDir m_prefs;
    WindowSession m_run{m_prefs.path()};
    std::vector<std::string> echoed;
};

}  // namespace

TEST_F(HotKeys, ChooseTheHostsToolsAndTheLastOther)
{
    press(Qt::Key_Y);
    EXPECT_TRUE(echoed.empty()) << "there was no other tool yet";
    QStringList log;
    api::ToolBox& tools = api::ToolBox::instance();
    const std::string pen = tools.add("penCtx", "", new LoggingTool(log));
    ASSERT_TRUE(run("setToolTo " + pen));

    const struct {
        int key;
        std::string tool;
    } cases[] = {
        {Qt::Key_W, "moveSuperContext"},  {Qt::Key_E, "RotateSuperContext"}, {Qt::Key_Y, pen},
        {Qt::Key_R, "scaleSuperContext"}, {Qt::Key_Q, "selectSuperContext"}, {Qt::Key_Y, pen},
    };
    for (const auto& c : cases) {
        press(c.key);
        EXPECT_EQ(value("currentCtx"), c.tool);
    }
    EXPECT_EQ(echoed.front(), "setToolTo $gMove");
    tools.removeOf("penCtx");
    echoed.clear();
    press(Qt::Key_Y);
    EXPECT_TRUE(echoed.empty()) << "the tool is gone";
}

TEST_F(HotKeys, UndoAndRedoStepByStepWhileHeld)
{
    run("createNode transform -n a");
    run("createNode transform -n b");
    run("createNode transform -n c");
    const auto count = [this] { return value("size(`ls -type transform a b c`)"); };
    const struct {
        int key;
        int modifiers;
        const char* left;
    } cases[] = {
        {Qt::Key_Z, Qt::NoModifier, "2"},      {Qt::Key_Z, Qt::ControlModifier, "1"},
        {Qt::Key_Z, Qt::ShiftModifier, "2"},   {Qt::Key_Z, Qt::ControlModifier, "1"},
        {Qt::Key_Y, Qt::ControlModifier, "2"}, {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, "3"},
    };
    for (const auto& c : cases) {
        press(c.key, Qt::KeyboardModifiers(c.modifiers));
        EXPECT_EQ(count(), c.left);
    }
    EXPECT_EQ(echoed.back(), "redo");
    hold(Qt::Key_Z);
    EXPECT_EQ(count(), "0");
}

TEST_F(HotKeys, RepeatTheLastActionButNotWhatStandsBetween)
{
    press(Qt::Key_G);
    EXPECT_TRUE(echoed.empty());
    run("createNode transform -n thing; select thing");
    for (QAction* action : window().findChildren<QAction*>()) {
        if (action->text().remove('&') == "Duplicate") {
            action->trigger();
        }
    }
    EXPECT_EQ(value("objExists thing1"), "1");
    press(Qt::Key_A);
    press(Qt::Key_Period, Qt::AltModifier);
    run("createNode transform -n other");
    run("select thing1");
    press(Qt::Key_G);
    EXPECT_EQ(echoed.back(), "duplicate");
    EXPECT_EQ(value("objExists thing2"), "1");
    hold(Qt::Key_G);
    EXPECT_EQ(value("objExists thing3"), "1");
    EXPECT_EQ(value("objExists thing4"), "0") << "only when pressed anew";
    press(Qt::Key_Z);
    EXPECT_EQ(value("objExists thing3"), "0") << "one step of its own";

    press(Qt::Key_Delete);
    EXPECT_EQ(echoed.back(), "delete") << "of what the last duplicate had left selected";
    run("repeatLast -addCommand \"createNode transform -n again\"");
    run("repeatLast");
    EXPECT_EQ(value("objExists again"), "1");
    EXPECT_TRUE(run("repeatLast -addCommand \"repeatLast\"; repeatLast")) << "not for ever";
    EXPECT_FALSE(run("repeatLast -addCommand \"select noSuchThing\"; repeatLast"));
}

TEST_F(HotKeys, StepThroughTimeAndItsKeysAndPlay)
{
    const int alt = Qt::AltModifier;
    const struct {
        const char* before;
        int key;
        int modifiers;
        const char* query;
        const char* answer;
    } cases[] = {
        {"currentTime 5", Qt::Key_Period, alt, "currentTime -q", "6"},
        {"playbackOptions -by 2", Qt::Key_Comma, alt, "currentTime -q", "4"},
        {"", Qt::Key_Period, 0, "currentTime -q", "4"},  // nothing has a key
        {"createNode transform -n ball; currentTime 3", Qt::Key_S, 0, "keyframe -q -kc ball.tx", "1"},
        {"currentTime 8", Qt::Key_S, 0, "keyframe -q -tc ball.tx", "3 8"},
        {"currentTime 5", Qt::Key_Period, 0, "currentTime -q", "8"},
        {"", Qt::Key_Comma, 0, "currentTime -q", "3"},
        {"select -cl; currentTime 4", Qt::Key_Period, 0, "currentTime -q", "4"},
        {"", Qt::Key_V, alt, "play -q -state", "1"},
        {"", Qt::Key_V, alt, "play -q -state", "0"},
        {"currentTime 20", Qt::Key_V, alt | Qt::ShiftModifier, "currentTime -q", "1"},
    };
    for (const auto& c : cases) {
        run(c.before);
        press(c.key, Qt::KeyboardModifiers(c.modifiers));
        EXPECT_EQ(value(c.query), c.answer) << c.before;
    }
    run("playbackOptions -by 1; currentTime 9");
    hold(Qt::Key_Comma, Qt::AltModifier);
    EXPECT_EQ(value("currentTime -q"), "6") << "a step for each repeat";
    hold(Qt::Key_S);
    EXPECT_EQ(value("undo; keyframe -q -kc ball.tx"), "2") << "once, however long it is held";
}

TEST_F(HotKeys, EscapeStopsPlaybackFirst)
{
    QStringList log;
    api::ToolBox& tools = api::ToolBox::instance();
    tools.setCurrent(tools.add("penCtx", "", new LoggingTool(log)));
    session().events.setCondition("playingBack", true);
    press(Qt::Key_Escape);
    EXPECT_THAT(echoed, testing::ElementsAre("play -state off"));
    EXPECT_TRUE(log.isEmpty());
    session().events.setCondition("playingBack", false);
    press(Qt::Key_Escape);
    EXPECT_EQ(log, QStringList("abort"));
    tools.removeOf("penCtx");
}

TEST_F(HotKeys, FrameTheSelectionOrEverything)
{
    run("file -f -open \"" LUMISKETCH_SAMPLE "\"");
    const auto interest = [this] { return view()->camera()->number("centerOfInterest"); };
    run("select -cl");
    press(Qt::Key_A);
    const double all = interest();
    press(Qt::Key_F);
    EXPECT_DOUBLE_EQ(interest(), all) << "nothing selected: everything";
    run("select ball");
    press(Qt::Key_F);
    EXPECT_LT(interest(), all);
    EXPECT_EQ(echoed.back(), "viewFit");
    EXPECT_FALSE(run("viewFit -fitFactor 0"));
}

TEST_F(HotKeys, SpaceShowsTheViewWorkedInAloneAndAllAgain)
{
    const auto panels = [this] { return value("paneLayout -q -childArray $gMainPane"); };
    press(Qt::Key_Space);
    EXPECT_EQ(value("workbenchView -q -panes"), "4") << "four when there was nothing before";
    EXPECT_EQ(panels(), "modelPanel1 modelPanel4 modelPanel2 modelPanel3");
    run("modelEditor -e -activeView modelPanel2");
    press(Qt::Key_Space);
    EXPECT_EQ(value("workbenchView -q -panes"), "1");
    EXPECT_EQ(window().viewports().views().size(), 1u);
    EXPECT_EQ(view()->panelName(), "modelPanel2");
    hold(Qt::Key_Space);
    EXPECT_EQ(value("workbenchView -q -panes"), "4") << "once, however long it is held";
    EXPECT_EQ(panels(), "modelPanel1 modelPanel4 modelPanel2 modelPanel3");
    EXPECT_EQ(view()->panelName(), "modelPanel2");
    EXPECT_EQ(echoed.back(), "workbenchView -swap");
    EXPECT_FALSE(session().undo.canUndo());
}

TEST_F(HotKeys, ControlAndSpaceLeaveTheViewsTheRoomOfThePanels)
{
    auto* const shown = new QDockWidget(&window());
    auto* const closed = new QDockWidget(&window());
    window().addDockWidget(Qt::RightDockWidgetArea, shown);
    window().addDockWidget(Qt::RightDockWidgetArea, closed);
    shown->show();
    closed->hide();
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_TRUE(shown->isHidden());
    EXPECT_EQ(value("workbenchView -panels 0; workbenchView -q -panels"), "0");
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_FALSE(shown->isHidden());
    EXPECT_TRUE(closed->isHidden()) << "as the user had left it";
    press(Qt::Key_Space, Qt::ControlModifier);
    delete shown;
    EXPECT_TRUE(run("workbenchView -panels 1"));
    EXPECT_EQ(value("workbenchView -q -panels"), "1");
}

TEST_F(HotKeys, ATapOfTheBackslashSwitchesPanAndZoomOfTheViewWorkedIn)
{
    const auto isOn = [this](const std::string& camera) { return value("getAttr " + camera + ".panZoomEnabled"); };
    press(Qt::Key_Backslash);
    EXPECT_EQ(isOn("perspShape"), "1");
    EXPECT_THAT(echoed, testing::ElementsAre("setAttr \"perspShape.panZoomEnabled\" 1"));
    press(Qt::Key_Z);
    EXPECT_EQ(isOn("perspShape"), "0");
    run("lookThru top");
    press(Qt::Key_Backslash);
    press(Qt::Key_Backslash);
    EXPECT_EQ(isOn("topShape"), "0");

    QKeyEvent down(QEvent::KeyPress, Qt::Key_Backslash, Qt::NoModifier);
    QApplication::sendEvent(view(), &down);
    EXPECT_TRUE(window().viewports().panZoomKey().isHeld());
    emit qApp->focusWindowChanged(nullptr);
    EXPECT_FALSE(window().viewports().panZoomKey().isHeld()) << "its release would never come";

    QApplication::sendEvent(view(), &down);
    window().viewports().panZoomKey().use();
    echoed.clear();
    QKeyEvent up(QEvent::KeyRelease, Qt::Key_Backslash, Qt::NoModifier);
    QApplication::sendEvent(view(), &up);
    EXPECT_TRUE(echoed.empty()) << "a drag was made with it";
}

TEST_F(HotKeys, AreNotForFields)
{
    showUnpainted();
    run("createNode transform -n ball; select ball; workbenchPanel -visible 1 outliner;"
        "workbenchPanel -visible 1 attributeEditor; workbenchPanel -visible 1 renderSettings");
    turnEventLoop();
    auto* const channels = find<QTableView>("channels");
    auto* const tree = find<QTreeView>("outlinerTree");
    const auto editorOf = [](QAbstractItemView* view, const QModelIndex& index) {
        view->window()->findChild<QDockWidget*>(view->parentWidget()->parentWidget()->objectName())->raise();
        turnEventLoop();
        view->setCurrentIndex(index);
        view->edit(index);
        return view->indexWidget(index);
    };
    const auto lineOf = [this](const char* dock, const char* field) {
        find<QDockWidget>(dock)->raise();
        turnEventLoop();
        return find(field)->findChild<QLineEdit*>();
    };
    const std::function<QWidget*()> fields[] = {
        [&] { return find("commandField"); },
        [&] { return find("currentTime"); },
        [&] { return find("playbackStart"); },
        [&] { return editorOf(channels, channels->model()->index(1, 1)); },
        [&] { return editorOf(tree, tree->model()->index(4, 0)); },
        [&] { return lineOf("attributeEditor", "translateX"); },
        [&] { return lineOf("renderSettings", "resolution_width"); },
    };
    const std::string before = value("currentTime -q") + value("getAttr ball.t") + value("playbackOptions -q -min");
    echoed.clear();
    for (const auto& make : fields) {
        QWidget* const field = make();
        ASSERT_TRUE(field);
        const std::string name = field->metaObject()->className() + (' ' + field->objectName().toStdString());
        field->setFocus();
        ASSERT_EQ(QApplication::focusWidget(), field) << name;
        type(field, "was 4.,\\");
        pressKey(field, Qt::Key_Period, Qt::AltModifier);
        pressKey(field, Qt::Key_Space, Qt::ControlModifier);
        EXPECT_THAT(echoed, testing::IsEmpty()) << name;
        pressKey(QApplication::focusWidget(), Qt::Key_Escape);
        turnEventLoop();
        EXPECT_THAT(echoed, testing::IsEmpty()) << name << " takes what was given up";
        QWidget* const left = QApplication::focusWidget();
        pressKey(left ? left : &window(), Qt::Key_W);
        EXPECT_EQ(value("currentCtx"), "moveSuperContext") << name << " keeps the keys";
        run("setToolTo $gSelect");
        echoed.clear();
    }
    EXPECT_EQ(value("currentTime -q") + value("getAttr ball.t") + value("playbackOptions -q -min"), before);
    auto* const time = find("currentTime");
    time->setFocus();
    session().playback.start();
    pressKey(time, Qt::Key_Escape);
    EXPECT_FALSE(session().playback.isPlaying()) << "this key is for everywhere";
}

TEST_F(HotKeys, GoOnFromRowsThatAreNotTypedIn)
{
    showUnpainted();
    run("createNode transform -n ball; select ball; workbenchPanel -visible 1 outliner");
    turnEventLoop();
    for (const char* name : {"channels", "outlinerTree"}) {
        auto* const rows = find<QAbstractItemView>(name);
        const QModelIndex cells[] = {rows->model()->index(0, 0), rows->model()->index(4, 0),
                                     rows->model()->index(4, rows->model()->columnCount() - 1)};
        for (const QModelIndex& cell : cells) {
            rows->setCurrentIndex(cell);
            for (const char* time : {" at first", " and coming back"}) {
                run("setToolTo $gSelect");
                rows->setFocus();
                pressKey(rows, Qt::Key_W, Qt::NoModifier, "w");
                EXPECT_EQ(value("currentCtx"), "moveSuperContext")
                    << name << time << " at " << cell.row() << ", " << cell.column();
                rows->clearFocus();
            }
        }
    }
}

TEST_F(HotKeys, LeaveAFilterOnTheWindowTheFirstWord)
{
    struct Filter : QObject {
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
                const auto* const key = static_cast<QKeyEvent*>(event);
                seen << QString("%1%2").arg(key->type() == QEvent::KeyPress ? "press" : "release",
                                            key->isAutoRepeat() ? "*" : "");
                return eats;
            }
            return false;
        }
        QStringList seen;
        bool eats = true;
    } filter;
    window().installEventFilter(&filter);
    hold(Qt::Key_W);
    EXPECT_EQ(filter.seen.join(' '), "press release press* release* press* release*");
    EXPECT_EQ(value("currentCtx"), "selectSuperContext") << "the filter kept it";
    filter.eats = false;
    press(Qt::Key_W);
    EXPECT_EQ(value("currentCtx"), "moveSuperContext");
    window().removeEventFilter(&filter);

    const auto isClaimed = [this](int key, Qt::KeyboardModifiers modifiers) {
        QKeyEvent event(QEvent::ShortcutOverride, key, modifiers);
        event.ignore();
        QApplication::sendEvent(view(), &event);
        return event.isAccepted();
    };
    EXPECT_TRUE(isClaimed(Qt::Key_Z, Qt::ControlModifier)) << "or the menu would take it from the filter";
    EXPECT_FALSE(isClaimed(Qt::Key_S, Qt::ControlModifier));
    EXPECT_FALSE(isClaimed(Qt::Key_P, Qt::NoModifier));
}
