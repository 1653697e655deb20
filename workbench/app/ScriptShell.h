#pragma once

#include "app/CommandHistory.h"
#include "app/Journal.h"
#include "kernel/Session.h"

#include <QObject>
#include <QPointer>

#include <functional>

class QToolButton;

namespace app {

class ScriptEditor;
class ScriptHighlighter;

/// What there is about writing scripts in the program with a window: the journal, the history of what was run, the text
/// being written, and the window that shows them, opened by the command ScriptEditor. All of it is kept in the
/// preferences folder for the next run.
class ScriptShell : public QObject {
    Q_OBJECT

public:
    /// run: executes a text as a user's action. The editor belongs to `window`, which outlives this.
    ScriptShell(kernel::Session& session, QWidget* window, std::function<bool(const std::string&)> run);
    ~ScriptShell() override;

    CommandHistory& history() { return m_history; }
    /// A new button that opens the editor.
    QToolButton* makeButton();

public slots:
    void OpenEditor();

private slots:
    void RunSoon(const QString& text);

private:
    void runNow(const std::string& text);
    void showEditor();
    void load();
    void save();
    void saveInput();
    void write(const char* file, const QVector<KeptText>& texts, int mostBytes);

    kernel::Session& m_session;
    QWidget* const m_window;
    const std::function<bool(const std::string&)> m_run;
    Journal m_journal;
    CommandHistory m_history;
    QTextDocument m_input;
    ScriptHighlighter* m_highlighter;  ///< the document's
    int m_savedRevision = 0;           ///< of the input
    QPointer<ScriptEditor> m_editor;
    unsigned m_callback;
};

}  // namespace app
