#pragma once

#include "kernel/Session.h"
#include "ui/ScriptWindow.h"

class QSplitter;
class QTextDocument;

namespace app {

class CommandHistory;
class Journal;
class ScriptInput;

/// The window in which scripts are written and run: the journal of all that was executed, and the input below it. It
/// only shows them: a script may close or delete the window it was run from. In all else it is as windows of scripts
/// are.
class ScriptEditor : public ui::ScriptWindow {
    Q_OBJECT

public:
    /// Everything given outlives the window.
    ScriptEditor(ui::UiObjects& ui, Journal& journal, QTextDocument* input, const CommandHistory& history);

    /// Keeps the size of the window and of its parts for the next one.
    void rememberSizes();

signals:
    /// Run was chosen. The text is not empty.
    void RunAsked(const QString& text);

protected:
    void closeEvent(QCloseEvent* event) override;

private slots:
    void Relay(const QString& text);
    void ClearJournal();
    void ClearInput();

private:
    QWidget* makeButtons();
    void recallSizes();

    kernel::Session& m_session;
    Journal& m_journal;
    QSplitter* m_splitter;
    ScriptInput* m_input;
};

}  // namespace app
