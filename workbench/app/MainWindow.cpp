#include "app/MainWindow.h"

#include "api/Tools.h"
#include "app/CommandField.h"
#include "app/CommandPort.h"
#include "app/FileActions.h"
#include "app/HotKeys.h"
#include "app/IdleRunner.h"
#include "app/MessageLine.h"
#include "app/PlaybackRunner.h"
#include "app/ScriptShell.h"
#include "app/TimeField.h"
#include "app/TimeSlider.h"
#include "app/TransportBar.h"
#include "app/ViewLayouts.h"
#include "app/WindowCommands.h"
#include "app/panels/Panels.h"
#include "ui/MenuItem.h"
#include "ui/PaneLayout.h"
#include "ui/StatusLine.h"
#include "ui/ViewPanel.h"
#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QStatusTipEvent>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace app {

namespace {

constexpr int kLongestName = 40;  // of a step in the Edit menu

/// The panels of the window, as the panes of its layout are counted.
const struct {
    const char* panel;
    const char* camera;
} kViews[] = {
    {"modelPanel4", "perspShape"},
    {"modelPanel1", "topShape"},
    {"modelPanel2", "sideShape"},
    {"modelPanel3", "frontShape"},
};

// The tool box tells of changes through a plain function, so the one window is found through this.
MainWindow* s_window = nullptr;

QString stepText(const QString& verb, const std::string& name)
{
    QString text = QString::fromStdString(name).simplified();
    if (text.size() > kLongestName) {
        text = text.left(kLongestName - 1) + QChar(0x2026);
    }
    return text.isEmpty() ? verb : verb + ' ' + text;
}

}  // namespace

MainWindow::MainWindow(Host& host) : m_host(host), m_session(host.session())
{
    s_window = this;
    m_host.ui().setMainWindow(this);
    const auto run = [this](const std::string& text) { return runAction(text); };
    m_scripts = std::make_unique<ScriptShell>(m_host.ui());
    m_hotKeys = std::make_unique<HotKeys>(m_session, run);
    m_files = new FileActions(m_session, this, run);
    buildViews();
    m_playback = std::make_unique<PlaybackRunner>(m_session, m_viewports.get());
    buildLines();
    m_panels = std::make_unique<Panels>(
        *this, PanelContext{m_session, *m_viewports, [this](const std::string& text) { return runAction(text); }});
    buildMenus();
    m_commands = std::make_unique<WindowCommands>(m_session, *this, m_host.ui());
    m_ports = std::make_unique<CommandPorts>(m_session);
    m_idle = std::make_unique<IdleRunner>(m_session);
    listen();
    ShowStatus();
}

MainWindow::~MainWindow()
{
    s_window = nullptr;
    api::ToolBox::instance().setListener(nullptr);
    m_host.setQuitListener(nullptr);
    for (const unsigned id : m_callbacks) {
        m_session.events.remove(id);
    }
    for (const unsigned id : m_watchers) {
        m_session.events.unwatch(id);
    }
    // The views go before what they report to.
    delete takeCentralWidget();
}

// --- parts ---------------------------------------------------------------------------------------------------------

void MainWindow::buildViews()
{
    m_viewports = std::make_unique<view::Viewports>(m_session);
    m_panes = new ui::PaneLayout(this);
    ui::UiObjects& ui = m_host.ui();
    ui.add(ui::Kind::Layout, "paneLayout", "viewPanes", ui.mainWindowObject(), m_panes);
    for (const auto& v : kViews) {
        auto* const panel = new ui::ViewPanel;
        panel->setView(m_viewports->add(v.panel, m_session.scene.findOrNull(v.camera), panel));
        ui.add(ui::Kind::Panel, "modelPanel", v.panel, nullptr, panel);
        m_panes->place(panel);
    }
    auto* const middle = new QWidget;
    auto* const layout = new QVBoxLayout(middle);
    layout->setContentsMargins(4, 4, 4, 0);
    layout->addWidget(m_panes);
    setCentralWidget(middle);
    connect(m_viewports.get(), SIGNAL(SceneTouched()), this, SLOT(ScheduleStatus()));
    m_layouts = std::make_unique<ViewLayouts>(*this, *m_panes);
}

void MainWindow::buildLines()
{
    const auto run = [this](const std::string& text) { return runAction(text); };
    auto* const command = new CommandField(m_scripts->history(), run);
    auto* const messages = new MessageLine(m_session.output);
    m_help = new QLabel;
    m_help->setObjectName("helpLine");
    m_help->setTextFormat(Qt::PlainText);
    m_help->setMinimumSize(80, 22);
    m_help->setContentsMargins(3, 0, 6, 0);  // in line with the text of the field below
    m_help->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* const transport = new TransportBar(m_session, run);
    connect(m_playback.get(), SIGNAL(RateMeasured(double)), transport, SLOT(ShowRate(double)));

    auto* const whole = new QWidget;
    auto* const layout = new QGridLayout(whole);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setHorizontalSpacing(12);
    layout->setVerticalSpacing(4);
    layout->setColumnStretch(0, 1);
    layout->addLayout(makeTimeLine(), 0, 0, 1, 2);
    layout->addWidget(m_help, 1, 0);
    layout->addWidget(transport, 1, 1);
    auto* const lines = new QHBoxLayout;
    lines->setSpacing(4);
    lines->addWidget(command, 2);
    lines->addWidget(messages, 3);
    lines->addWidget(m_scripts->makeButton());
    layout->addLayout(lines, 2, 0, 1, 2);
    // Below what is docked at the sides, too.
    auto* const below = new QToolBar;
    below->setObjectName("lines");
    below->setMovable(false);
    below->addWidget(whole);
    addToolBar(Qt::BottomToolBarArea, below);
}

QLayout* MainWindow::makeTimeLine()
{
    const auto run = [this](const std::string& text) { return runAction(text); };
    auto* const slider = new TimeSlider(m_session, run);
    connect(m_viewports.get(), SIGNAL(SceneTouched()), slider, SLOT(ScheduleKeys()));
    ui::UiObjects& ui = m_host.ui();
    const ui::UiObject& control =
        ui.add(ui::Kind::Control, "timeControl", "timeControl1", ui.mainWindowObject(), slider);
    m_session.script().setGlobalString("gPlayBackSlider", ui::UiObjects::path(control));

    auto* const line = new QHBoxLayout;
    line->setSpacing(4);
    line->addWidget(new TimeField(m_session, TimeField::Shows::RangeStart, run));
    line->addWidget(slider, 1);
    line->addWidget(new TimeField(m_session, TimeField::Shows::RangeEnd, run));
    return line;
}

void MainWindow::buildMenus()
{
    addToolBar(new ui::StatusLine(m_host.ui(), m_host.menuSets()));
    setContextMenuPolicy(Qt::NoContextMenu);  // it would offer to hide the line

    runResource(":/workbench/mainMenus.mel");
    runResource(":/workbench/panelMenus.mel");
    connect(m_host.ui().get("menu", "mainEditMenu").widget(), SIGNAL(aboutToShow()), this, SLOT(ShowStatus()));
    connect(menuBar(), SIGNAL(triggered(QAction*)), this, SLOT(ScheduleStatus()));
}

void MainWindow::runResource(const char* path)
{
    QFile script(path);
    script.open(QIODevice::ReadOnly);
    m_session.script().execute(script.readAll().toStdString(), false, false);
}

void MainWindow::listen()
{
    m_statusTimer.setSingleShot(true);
    m_statusTimer.setInterval(0);
    connect(&m_statusTimer, SIGNAL(timeout()), this, SLOT(ShowStatus()));
    connect(m_scripts.get(), SIGNAL(Ran()), this, SLOT(ScheduleStatus()));
    for (const char* event :
         {"Undo", "Redo", "NewSceneOpened", "SceneOpened", "SceneSaved", "SelectionChanged", "timeChanged"}) {
        m_callbacks.push_back(m_session.events.add(event, [this] { ScheduleStatus(); }));
    }
    for (const char* condition : {"UndoAvailable", "RedoAvailable"}) {
        m_watchers.push_back(m_session.events.watch(condition, [this](bool) { ScheduleStatus(); }));
    }
    api::ToolBox::instance().setListener([] {
        if (s_window) {
            s_window->showTool();
        }
    });
    showTool();
    m_host.setQuitListener([this] { QMetaObject::invokeMethod(this, "QuitAsAsked", Qt::QueuedConnection); });
}

// --- views ---------------------------------------------------------------------------------------------------------

void MainWindow::setPaneCount(int count)
{
    m_layouts->show(count);
}

int MainWindow::paneCount() const
{
    return m_layouts->paneCount();
}

// --- actions -------------------------------------------------------------------------------------------------------

bool MainWindow::runAction(const std::string& text)
{
    const bool ok = m_session.script().execute(text, true, true).ok;
    ScheduleStatus();
    return ok;
}

bool MainWindow::runRepeatable(const std::string& text)
{
    m_session.lastAction = text;
    return runAction(text);
}

void MainWindow::QuitAsAsked()
{
    const Host::QuitRequest* const request = m_host.quitRequest();
    if (!request) {
        return;
    }
    m_exitCode = request->exitCode;
    if (request->force) {
        m_session.scene.setModified(false);
    }
    close();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (m_files->mayDiscardScene()) {
        event->accept();
        QCoreApplication::exit(m_exitCode);
    } else {
        m_host.forgetQuitRequest();
        m_exitCode = 0;
        event->ignore();
    }
}

// --- state ---------------------------------------------------------------------------------------------------------

void MainWindow::ScheduleStatus()
{
    m_statusTimer.start();
}

void MainWindow::ShowStatus()
{
    m_statusTimer.stop();
    const QString file = QFileInfo(QString::fromStdString(m_session.scene.fileName())).fileName();
    setWindowTitle(QString("%1%2 - Lumisketch Workbench")
                       .arg(file.isEmpty() ? tr("untitled") : file, m_session.scene.isModified() ? "*" : ""));
    showUndoState();
}

void MainWindow::showUndoState()
{
    const kernel::UndoQueue& queue = m_session.undo;
    const struct {
        const char* item;
        QString verb;
        bool isAvailable;
        std::string step;
    } rows[] = {
        {"mainEditMenu|undoItem", tr("Undo"), queue.canUndo(), queue.canUndo() ? queue.undoName() : std::string()},
        {"mainEditMenu|redoItem", tr("Redo"), queue.canRedo(), queue.canRedo() ? queue.redoName() : std::string()},
    };
    for (const auto& row : rows) {
        // A script may have taken the item away.
        if (auto* const item = qobject_cast<ui::MenuItem*>(m_host.ui().findMenuItem(row.item))) {
            item->setEnabled(row.isAvailable);
            item->setLabel({stepText(row.verb, row.step), item->label().mnemonic});
        }
    }
}

void MainWindow::showTool()
{
    showHelp(QString::fromStdString(api::ToolBox::instance().helpString()));
    m_viewports->setCursor(api::ToolBox::instance().cursor());
}

void MainWindow::showHelp(const QString& text)
{
    m_help->setText(text);
    m_help->setToolTip(text);
}

// --- keys ----------------------------------------------------------------------------------------------------------

bool MainWindow::event(QEvent* event)
{
    // A key is about to be compared with the shortcuts: those of Undo and Redo must know the latest step.
    if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::WindowActivate) {
        ShowStatus();
    }
    // A hot key comes as a key press, also where a menu shows it, so that filters on the window are asked first.
    if (event->type() == QEvent::ShortcutOverride && !isTyping()
        && HotKeys::isHotKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::StatusTip) {
        const QString tip = static_cast<QStatusTipEvent*>(event)->tip();
        showHelp(tip.isEmpty() ? QString::fromStdString(api::ToolBox::instance().helpString()) : tip);
        return true;
    }
    return QMainWindow::event(event);
}

void MainWindow::keyPressEvent(QKeyEvent* event)
{
    // While it plays, that is what the user wants to end, wherever the keys go.
    if (event->key() == Qt::Key_Escape && m_session.playback.isPlaying()) {
        runAction("play -state off");
        return;
    }
    // A field hands on the keys it has no use for; they are still not meant for the tool.
    if (event->key() == Qt::Key_Escape && isTyping()) {
        QApplication::focusWidget()->clearFocus();
    } else if (isTyping() || !(finishTool(event->key()) || m_hotKeys->press(*event))) {
        QMainWindow::keyPressEvent(event);
    }
}

void MainWindow::keyReleaseEvent(QKeyEvent* event)
{
    if (!m_hotKeys->release(*event)) {
        QMainWindow::keyReleaseEvent(event);
    }
}

bool MainWindow::isTyping() const
{
    // Fields that are written in have it, fields that only show a text do not.
    const QWidget* const focus = QApplication::focusWidget();
    return focus && focus->testAttribute(Qt::WA_InputMethodEnabled);
}

bool MainWindow::finishTool(int key)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter: api::ToolBox::instance().complete(); break;
    case Qt::Key_Escape: api::ToolBox::instance().abort(); break;
    case Qt::Key_Backspace:
    case Qt::Key_Delete: deleteSelected(); break;
    default: return false;
    }
    ScheduleStatus();
    return true;
}

void MainWindow::deleteSelected()
{
    // The select tool, which is the host's own, deletes what it selected.
    api::ToolBox& tools = api::ToolBox::instance();
    if (tools.current()) {
        tools.deleteAction();
    } else if (!m_session.scene.selection().empty()) {
        runRepeatable("delete");
    }
}

}  // namespace app
