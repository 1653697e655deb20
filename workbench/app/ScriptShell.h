#pragma once

#include "app/CommandHistory.h"
#include "app/Journal.h"
#include "kernel/Session.h"

#include <QObject>
#include <QPointer>

class QToolButton;

namespace ui {
class UiObjects;
}

namespace app {

class ScriptEditor;
class ScriptHighlighter;

/// What there is about writing scripts in the program with a window: the journal, the history of what was run, the text
/// being written, and the window that shows them, opened by the command ScriptEditor. All of it is kept in the
/// preferences folder for the next run.
class ScriptShell : public QObject {
    Q_OBJECT

public:
    /// The editor belongs to the main window, which outlives this.
    explicit ScriptShell(ui::UiObjects& ui);
    ~ScriptShell() override;

    CommandHistory& history() { return m_history; }
    /// A new button that opens the editor.
    QToolButton* makeButton();

signals:
    /// A text of the editor has come to its end.
    void Ran();

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
    /// False, and said, when it cannot be written.
    bool write(const char* file, const QVector<KeptText>& texts, int mostBytes);

    ui::UiObjects& m_ui;
    kernel::Session& m_session;
    Journal m_journal;
    CommandHistory m_history;
    QTextDocument m_input;
    ScriptHighlighter* m_highlighter;  ///< the document's
    int m_savedRevision = 0;           ///< of the input
    QPointer<ScriptEditor> m_editor;
    unsigned m_callback;
};

}  // namespace app
