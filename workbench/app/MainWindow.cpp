#include "app/MainWindow.h"

#include "api/Tools.h"
#include "app/CommandField.h"
#include "app/CommandPort.h"
#include "app/FileActions.h"
#include "app/IdleRunner.h"
#include "app/MessageLine.h"
#include "app/TimeField.h"
#include "app/WindowCommands.h"
#include "mel/builtins/Quoting.h"
#include "ui/PaneLayout.h"
#include "ui/ViewPanel.h"
#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTextEdit>

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
    m_host.ui().setMainWindow(this);
    m_files = new FileActions(m_session, this, [this](const std::string& text) { return runAction(text); });
    buildViews();
    buildLines();
    buildMenus();
    m_commands = std::make_unique<WindowCommands>(m_session, *this);
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
    connect(m_viewports.get(), SIGNAL(SceneTouched()), this, SLOT(ScheduleStatus()));
    setPaneCount(1);
}

void MainWindow::buildLines()
{
    const auto run = [this](const std::string& text) { return runAction(text); };
    m_command = new CommandField(run);
    m_messages = new MessageLine(m_session.output);
    m_help = new QLabel;
    m_help->setObjectName("helpLine");
    m_help->setTextFormat(Qt::PlainText);
    m_help->setMinimumSize(80, 22);
    m_help->setContentsMargins(6, 0, 6, 0);  // in line with the text of the field below
    m_help->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_time = new TimeField(m_session, run);
    ui::UiObjects& ui = m_host.ui();
    const ui::UiObject& slider =
        ui.add(ui::Kind::Control, "timeControl", "timeControl1", ui.mainWindowObject(), m_time);
    m_session.script().setGlobalString("gPlayBackSlider", ui::UiObjects::path(slider));

    auto* const whole = new QWidget;
    auto* const layout = new QGridLayout(whole);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setHorizontalSpacing(12);
    layout->setVerticalSpacing(4);
    layout->addWidget(m_panes, 0, 0, 1, 2);
    layout->setRowStretch(0, 1);
    layout->setColumnStretch(0, 1);
    layout->addWidget(m_help, 1, 0);
    layout->addWidget(m_time, 1, 1);
    auto* const lines = new QHBoxLayout;
    lines->setSpacing(4);
    lines->addWidget(m_command, 2);
    lines->addWidget(m_messages, 3);
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
    m_panes->setConfiguration(count == 1 ? "single" : "vertical2");
    if (m_onePanel) {
        m_onePanel->setChecked(count == 1);
        m_twoPanels->setChecked(count == 2);
    }
}

int MainWindow::paneCount() const
{
    return m_panes->paneCount();
}

void MainWindow::ShowOnePanel()
{
    runAction("workbenchView -panes 1");
}

void MainWindow::ShowTwoPanels()
{
    runAction("workbenchView -panes 2");
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
        runAction("lookThru " + view->panelName() + " " + mel::quoted(camera->text().toStdString()));
    }
}

// --- actions -------------------------------------------------------------------------------------------------------

bool MainWindow::runAction(const std::string& text)
{
    const bool ok = m_session.script().execute(text, true, true).ok;
    ScheduleStatus();
    return ok;
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
    runAction("duplicate");
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
    return QMainWindow::event(event);
}

void MainWindow::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
    case Qt::Key_Escape:
        // A field hands on the keys it has no use for; they are still not meant for the tool.
        if (!isTyping()) {
            finishTool(event->key());
        }
        break;
    default: QMainWindow::keyPressEvent(event);
    }
}

bool MainWindow::isTyping() const
{
    const QWidget* const focus = QApplication::focusWidget();
    return qobject_cast<const QLineEdit*>(focus) || qobject_cast<const QAbstractSpinBox*>(focus)
        || qobject_cast<const QTextEdit*>(focus) || qobject_cast<const QPlainTextEdit*>(focus);
}

void MainWindow::finishTool(int key)
{
    api::ToolBox& tools = api::ToolBox::instance();
    switch (key) {
    case Qt::Key_Escape: tools.abort(); break;
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
        // The select tool, which is the host's own, deletes what it selected.
        if (tools.current()) {
            tools.deleteAction();
        } else if (!m_session.scene.selection().empty()) {
            runAction("delete");
        }
        break;
    default: tools.complete();
    }
    ScheduleStatus();
}

}  // namespace app
