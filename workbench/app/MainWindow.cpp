#include "app/MainWindow.h"

#include "api/Tools.h"
#include "app/CommandField.h"
#include "app/CommandPort.h"
#include "app/FileActions.h"
#include "app/HotKeys.h"
#include "app/IdleRunner.h"
#include "app/MessageLine.h"
#include "app/ScriptShell.h"
#include "app/TimeField.h"
#include "app/ViewPanel.h"
#include "app/WindowCommands.h"
#include "mel/builtins/Quoting.h"
#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QSplitter>
#include <QToolButton>

namespace app {

namespace {

constexpr int kLongestName = 40;  // of a step in the Edit menu

/// The views of the window, left to right.
const struct {
    const char* panel;
    const char* camera;
} kViews[] = {
    {"modelPanel4", "perspShape"},
    {"modelPanel1", "topShape"},
};

const char* const kStandardCameras[] = {"persp", "top", "front", "side"};

// The tool box tells of changes through a plain function, so the one window is found through this.
MainWindow* s_window = nullptr;

QString stepText(const QString& verb, const std::string& name)
{
    QString text = QString::fromStdString(name).simplified();
    if (text.size() > kLongestName) {
        text = text.left(kLongestName - 1) + QChar(0x2026);
    }
    return text.isEmpty() ? verb : verb + ' ' + text.replace('&', "&&");
}

}  // namespace

MainWindow::MainWindow(Host& host) : m_host(host), m_session(host.session())
{
    s_window = this;
    setObjectName("MayaWindow");
    m_session.script().setGlobalString("gMainWindow", "MayaWindow");
    const auto run = [this](const std::string& text) { return runAction(text); };
    m_scripts = std::make_unique<ScriptShell>(m_session, this, run);
    m_hotKeys = std::make_unique<HotKeys>(m_session, run);
    m_files = new FileActions(m_session, this, run);
    buildViews();
    buildLines();
    buildMenus();
    m_commands = std::make_unique<WindowCommands>(m_session, *this);
    m_ports = std::make_unique<CommandPorts>(m_session);
    m_idle = std::make_unique<IdleRunner>(m_session);
    listen();
    ShowActiveView();
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
    m_viewports = std::make_unique<view::Viewports>(m_session, this);
    m_splitter = new QSplitter(Qt::Horizontal);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setHandleWidth(4);
    for (const auto& v : kViews) {
        auto* const panel = new ViewPanel;
        panel->setView(m_viewports->add(v.panel, m_session.scene.findOrNull(v.camera), panel));
        m_splitter->addWidget(panel);
        m_panels.push_back(panel);
    }
    connect(m_viewports.get(), SIGNAL(ActiveChanged()), this, SLOT(ShowActiveView()));
    connect(m_viewports.get(), SIGNAL(SceneTouched()), this, SLOT(ScheduleStatus()));
    setPaneCount(1);
}

void MainWindow::buildLines()
{
    const auto run = [this](const std::string& text) { return runAction(text); };
    m_command = new CommandField(m_scripts->history(), run);
    m_messages = new MessageLine(m_session.output);
    m_help = new QLabel;
    m_help->setObjectName("helpLine");
    m_help->setTextFormat(Qt::PlainText);
    m_help->setMinimumSize(80, 22);
    m_help->setContentsMargins(6, 0, 6, 0);  // in line with the text of the field below
    m_help->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_time = new TimeField(m_session, run);
    m_time->setObjectName("timeControl1");
    m_session.script().setGlobalString("gPlayBackSlider", "timeControl1");

    auto* const whole = new QWidget;
    auto* const layout = new QGridLayout(whole);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setHorizontalSpacing(12);
    layout->setVerticalSpacing(4);
    layout->addWidget(m_splitter, 0, 0, 1, 2);
    layout->setRowStretch(0, 1);
    layout->setColumnStretch(0, 1);
    layout->addWidget(m_help, 1, 0);
    layout->addWidget(m_time, 1, 1);
    auto* const lines = new QHBoxLayout;
    lines->setSpacing(4);
    lines->addWidget(m_command, 2);
    lines->addWidget(m_messages, 3);
    lines->addWidget(m_scripts->makeButton());
    layout->addLayout(lines, 2, 0, 1, 2);
    setCentralWidget(whole);
}

void MainWindow::buildMenus()
{
    m_files->fill(menuBar()->addMenu(tr("&File")));

    QMenu* const edit = menuBar()->addMenu(tr("&Edit"));
    m_undo = edit->addAction(tr("&Undo"), this, SLOT(Undo()), QKeySequence(Qt::CTRL + Qt::Key_Z));
    m_redo = edit->addAction(tr("&Redo"), this, SLOT(Redo()), QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_Z));
    edit->addSeparator();
    edit->addAction(tr("&Duplicate"), this, SLOT(Duplicate()), QKeySequence(Qt::CTRL + Qt::Key_D));
    connect(edit, SIGNAL(aboutToShow()), this, SLOT(ShowStatus()));

    QMenu* const view = menuBar()->addMenu(tr("&View"));
    m_cameras = view->addMenu(tr("Look Through"));
    connect(m_cameras, SIGNAL(aboutToShow()), this, SLOT(FillCameraMenu()));
    connect(m_cameras, SIGNAL(triggered(QAction*)), this, SLOT(LookThrough(QAction*)));
    view->addSeparator();
    m_onePanel = view->addAction(tr("One Pane"), this, SLOT(ShowOnePanel()));
    m_twoPanels = view->addAction(tr("Two Panes"), this, SLOT(ShowTwoPanels()));
    auto* const panes = new QActionGroup(this);
    for (QAction* action : {m_onePanel, m_twoPanels}) {
        action->setCheckable(true);
        panes->addAction(action);
    }
    m_onePanel->setChecked(paneCount() == 1);
    m_twoPanels->setChecked(paneCount() == 2);

    menuBar()->addMenu(tr("&Windows"))->addAction(tr("&Script Editor"), m_scripts.get(), SLOT(OpenEditor()));
}

void MainWindow::listen()
{
    m_statusTimer.setSingleShot(true);
    m_statusTimer.setInterval(0);
    connect(&m_statusTimer, SIGNAL(timeout()), this, SLOT(ShowStatus()));
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
    for (int i = 0; i < int(m_panels.size()); ++i) {
        m_panels[i]->setVisible(i < count);
        m_viewports->setShown(m_panels[i]->view(), i < count);
    }
    if (m_onePanel) {
        m_onePanel->setChecked(count == 1);
        m_twoPanels->setChecked(count == 2);
    }
    const int half = m_splitter->width() / 2;
    m_splitter->setSizes({half, half});
    ShowActiveView();
}

int MainWindow::paneCount() const
{
    return int(m_viewports->views().size());
}

void MainWindow::ShowOnePanel()
{
    runRepeatable("workbenchView -panes 1");
}

void MainWindow::ShowTwoPanels()
{
    runRepeatable("workbenchView -panes 2");
}

void MainWindow::FillCameraMenu()
{
    m_cameras->clear();
    const view::Viewport* const view = m_viewports->active();
    const kernel::NodePtr shown = view ? view->camera() : nullptr;
    const auto add = [&](const kernel::NodePtr& shape) {
        const kernel::Node& node = shape->parent() ? *shape->parent() : *shape;
        QAction* const action = m_cameras->addAction(QString::fromStdString(m_session.scene.partialPath(node)));
        action->setCheckable(true);
        action->setChecked(shape == shown);
    };
    for (const char* name : kStandardCameras) {
        if (const kernel::NodePtr shape = m_session.scene.findOrNull(std::string(name) + "Shape")) {
            add(shape);
        }
    }
    m_cameras->addSeparator();
    for (const kernel::NodePtr& shape : m_session.scene.cameras()) {
        if (!shape->startup) {
            add(shape);
        }
    }
}

void MainWindow::LookThrough(QAction* camera)
{
    if (const view::Viewport* const view = m_viewports->active()) {
        runRepeatable("lookThru " + view->panelName() + " " + mel::quoted(camera->text().toStdString()));
    }
}

void MainWindow::ShowActiveView()
{
    const int shown = paneCount();
    for (ViewPanel* panel : m_panels) {
        panel->setActive(shown > 1 && panel->view() == m_viewports->active());
    }
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

void MainWindow::Undo()
{
    runAction("undo");
}

void MainWindow::Redo()
{
    runAction("redo");
}

void MainWindow::Duplicate()
{
    runRepeatable("duplicate");
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
    m_undo->setEnabled(queue.canUndo());
    m_undo->setText(stepText(tr("&Undo"), queue.canUndo() ? queue.undoName() : std::string()));
    m_redo->setEnabled(queue.canRedo());
    m_redo->setText(stepText(tr("&Redo"), queue.canRedo() ? queue.redoName() : std::string()));
}

void MainWindow::showTool()
{
    m_help->setText(QString::fromStdString(api::ToolBox::instance().helpString()));
    m_help->setToolTip(m_help->text());
    m_viewports->setCursor(api::ToolBox::instance().cursor());
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
    return QMainWindow::event(event);
}

void MainWindow::keyPressEvent(QKeyEvent* event)
{
    // A field hands on the keys it has no use for; they are still not meant for the tool.
    if (isTyping() || !(finishTool(event->key()) || m_hotKeys->press(*event))) {
        QMainWindow::keyPressEvent(event);
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
    case Qt::Key_Escape: abortTool(); break;
    case Qt::Key_Backspace:
    case Qt::Key_Delete: deleteSelected(); break;
    default: return false;
    }
    ScheduleStatus();
    return true;
}

void MainWindow::abortTool()
{
    // While it plays, that is what the user wants to end.
    if (m_session.events.condition("playingBack")) {
        runAction("play -state off");
    } else {
        api::ToolBox::instance().abort();
    }
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
