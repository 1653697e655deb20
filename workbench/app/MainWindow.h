#pragma once

#include "app/Host.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <memory>
#include <vector>

class QLabel;
class QLayout;

namespace ui {
class PaneLayout;
}

namespace view {
class Viewports;
}  // namespace view

namespace app {

class CommandPorts;
class FileActions;
class HotKeys;
class IdleRunner;
class Panels;
class PlaybackRunner;
class ScriptShell;
class ViewLayouts;
class WindowCommands;

/// The program's window: menus, camera views with panels at their sides, and below them the command field, messages,
/// the tool's help and the time.
/// What its menus do is script text run in the session, so that all of it stands in the journal.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(Host& host);
    ~MainWindow() override;

    view::Viewports& viewports() { return *m_viewports; }
    ViewLayouts& layouts() { return *m_layouts; }
    /// 1, 2 or 4 views: modelPanel4 alone, with modelPanel1 to its right, or all of them.
    void setPaneCount(int count);
    int paneCount() const;  ///< up to 4 when a script arranged the panes, 0 when it deleted them
    /// Runs a text as a user's action: echoed, and one undo step.
    bool runAction(const std::string& text);
    /// The same for what the user may want again at once: it is then what is repeated.
    bool runRepeatable(const std::string& text);
    /// Exit code for the program: what a script that quit asked for.
    int exitCode() const { return m_exitCode; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private slots:
    void ScheduleStatus();
    void ShowStatus();
    void QuitAsAsked();

private:
    void buildMenus();
    void runResource(const char* path);
    void buildViews();
    void buildLines();
    QLayout* makeTimeLine();
    void listen();
    void showTool();
    void showHelp(const QString& text);
    void showUndoState();
    bool finishTool(int key);
    void deleteSelected();
    bool isTyping() const;

    Host& m_host;
    kernel::Session& m_session;
    std::unique_ptr<view::Viewports> m_viewports;
    std::unique_ptr<ScriptShell> m_scripts;
    std::unique_ptr<HotKeys> m_hotKeys;
    std::unique_ptr<WindowCommands> m_commands;
    std::unique_ptr<CommandPorts> m_ports;
    std::unique_ptr<IdleRunner> m_idle;
    std::unique_ptr<PlaybackRunner> m_playback;
    std::unique_ptr<Panels> m_panels;
    FileActions* m_files = nullptr;
    QPointer<ui::PaneLayout> m_panes;  ///< null once a script deleted them
    std::unique_ptr<ViewLayouts> m_layouts;
    QLabel* m_help = nullptr;
    QTimer m_statusTimer;
    std::vector<unsigned> m_callbacks;
    std::vector<unsigned> m_watchers;
    int m_exitCode = 0;
};

}  // namespace app
