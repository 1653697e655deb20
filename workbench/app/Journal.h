#pragma once

#include "app/KeptTexts.h"
#include "kernel/Output.h"

#include <QObject>
#include <QTextDocument>
#include <QTimer>

#include <deque>

namespace app {

/// Everything the host has said, as a document of lines: executed texts as they are, "// Result: 1 //",
/// "// Error: ... //". It is bounded: the oldest lines fall off. What is said reaches the document when the event loop
/// turns, a part at a time, so that the windows stay alive after a script that prints much.
class Journal : public QObject {
    Q_OBJECT

public:
    explicit Journal(kernel::Output& output, QObject* parent = nullptr);
    ~Journal() override;

    QTextDocument* document() { return &m_document; }
    void clear();

    /// The last lines for the next run, at most about that many bytes of them, and their way back in front of all
    /// others.
    QVector<KeptText> lastLines(int mostBytes);
    void restore(const QVector<KeptText>& lines);

private slots:
    void AppendSome();

private:
    struct Piece {
        kernel::Severity severity;
        QString text;
    };
    void take(kernel::Severity severity, const std::string& text);
    void wait(kernel::Severity severity, const QString& text);
    QString folded(const QString& text);
    void append(int mostCharacters);
    void trim();

    kernel::Output& m_output;
    int m_listener;
    QTextDocument m_document;
    std::deque<Piece> m_waiting;
    int m_waitingSize = 0;  ///< characters
    int m_column = 0;       ///< characters in the last line taken
    QTimer m_timer;
};

}  // namespace app
