#pragma once

#include "app/CommandHistory.h"

#include <QPlainTextEdit>

namespace app {

/// Where scripts are written: numbered lines, indentation by Tab. Ctrl+Enter asks for a run of the selection or,
/// without one, of everything; Ctrl+Up and Ctrl+Down bring earlier texts back.
class ScriptInput : public QPlainTextEdit {
    Q_OBJECT

public:
    /// The document and the history outlive the editor.
    ScriptInput(QTextDocument* text, const CommandHistory& history, QWidget* parent = nullptr);

    /// The selection; without one the whole text.
    QString textToRun() const;
    /// Puts a text in the place of all there is; the editor's own undo brings that back.
    void replaceText(const QString& text);

signals:
    void RunAsked(const QString& text);

public slots:
    void AskForRun();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void UpdateMargin();
    void ScrollMargin(const QRect& area, int by);

private:
    int marginWidth() const;
    void paintMargin();
    bool selectsLines() const;
    void breakLine();
    void indentLines(bool more);

    QWidget* m_margin;
    HistoryWalk m_walk;
};

}  // namespace app
