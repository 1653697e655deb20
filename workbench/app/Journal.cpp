#include "app/Journal.h"

#include "app/MessageText.h"
#include "app/Theme.h"

#include <QFontDatabase>
#include <QPlainTextDocumentLayout>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>
#include <climits>

namespace app {

namespace {

constexpr int kMostLines = 200000;
constexpr int kMostCharacters = 16 << 20;
constexpr int kLongestLine = 2000;      // a line without an end would stop the view
constexpr int kPieceSize = 1 << 13;     // characters that go into the document at once
constexpr int kPieceAtATime = 1 << 15;  // between two turns of the event loop

struct Mark {
    kernel::Severity severity;
    char letter;
};
const Mark kMarks[] = {
    {kernel::Severity::Plain, 'p'}, {kernel::Severity::Echo, 'e'},    {kernel::Severity::Result, 'r'},
    {kernel::Severity::Info, 'i'},  {kernel::Severity::Warning, 'w'}, {kernel::Severity::Error, 'x'},
};

char markOf(int severity)
{
    for (const Mark& mark : kMarks) {
        if (int(mark.severity) == severity) {
            return mark.letter;
        }
    }
    return kMarks[0].letter;
}

kernel::Severity severityOf(char letter)
{
    for (const Mark& mark : kMarks) {
        if (mark.letter == letter) {
            return mark.severity;
        }
    }
    return kernel::Severity::Plain;
}

/// The format carries the severity, which is not to be guessed from the text when the line is kept.
QTextCharFormat formatOf(kernel::Severity severity)
{
    QTextCharFormat format;
    format.setProperty(QTextFormat::UserProperty, int(severity));
    format.setForeground(messageTextColour(severity));
    return format;
}

}  // namespace

Journal::Journal(kernel::Output& output, QObject* parent) : QObject(parent), m_output(output)
{
    m_document.setDocumentLayout(new QPlainTextDocumentLayout(&m_document));
    m_document.setDefaultFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_document.setUndoRedoEnabled(false);
    m_document.setMaximumBlockCount(kMostLines);
    m_timer.setSingleShot(true);
    m_timer.setInterval(0);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(AppendSome()));
    m_listener =
        m_output.addListener([this](kernel::Severity severity, const std::string& text) { take(severity, text); });
}

Journal::~Journal()
{
    m_output.removeListener(m_listener);
}

void Journal::clear()
{
    m_waiting.clear();
    m_waitingSize = 0;
    m_column = 0;
    m_document.clear();
}

// --- what is said --------------------------------------------------------------------------------------------------

void Journal::take(kernel::Severity severity, const std::string& text)
{
    const QString bare = QString::fromStdString(text);
    if (severity == kernel::Severity::Plain) {  // print: its line ends are its own
        wait(severity, bare);
        return;
    }
    QString line = severity == kernel::Severity::Echo ? bare : "// " + messageText(severity, bare) + " //";
    if (m_column > 0) {
        line.prepend('\n');
    }
    wait(severity, line.endsWith('\n') ? line : line + '\n');
}

void Journal::wait(kernel::Severity severity, const QString& text)
{
    const QString lines = folded(text);
    if (m_waiting.empty() || m_waiting.back().severity != severity || m_waiting.back().text.size() > kPieceSize) {
        m_waiting.push_back({severity, {}});
    }
    m_waiting.back().text += lines;
    m_waitingSize += lines.size();
    while (m_waitingSize > kMostCharacters && m_waiting.size() > 1) {
        m_waitingSize -= m_waiting.front().text.size();
        m_waiting.pop_front();
    }
    if (!m_timer.isActive()) {
        m_timer.start();
    }
}

QString Journal::folded(const QString& text)
{
    QString lines;
    lines.reserve(text.size());
    for (const QChar c : text) {
        if (c == '\n') {
            m_column = 0;
        } else if (++m_column > kLongestLine && !c.isLowSurrogate()) {
            lines += '\n';
            m_column = 1;
        }
        lines += c;
    }
    return lines;
}

// --- the document --------------------------------------------------------------------------------------------------

void Journal::AppendSome()
{
    append(kPieceAtATime);
    if (!m_waiting.empty()) {
        m_timer.start();
    }
}

void Journal::append(int mostCharacters)
{
    QTextCursor cursor(&m_document);
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    for (int appended = 0; !m_waiting.empty() && appended < mostCharacters;) {
        const Piece piece = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_waitingSize -= piece.text.size();
        appended += piece.text.size();
        cursor.insertText(piece.text, formatOf(piece.severity));
    }
    cursor.endEditBlock();
    trim();
}

void Journal::trim()
{
    const int excess = m_document.characterCount() - kMostCharacters;
    if (excess <= 0) {
        return;
    }
    QTextCursor cursor(&m_document);
    cursor.setPosition(m_document.findBlock(excess).next().position(), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

// --- from run to run -----------------------------------------------------------------------------------------------

QVector<KeptText> Journal::lastLines(int mostBytes)
{
    append(INT_MAX);
    QVector<KeptText> lines;
    QTextBlock block = m_document.lastBlock();
    if (block.length() == 1) {
        block = block.previous();  // the last line is complete
    }
    for (int size = block.length(); block.isValid() && size < mostBytes; size += block.length() + 1) {
        const QTextBlock::iterator first = block.begin();
        const int severity = first.atEnd() ? 0 : first.fragment().charFormat().intProperty(QTextFormat::UserProperty);
        lines.append({markOf(severity), block.text()});
        block = block.previous();
    }
    std::reverse(lines.begin(), lines.end());
    return lines;
}

void Journal::restore(const QVector<KeptText>& lines)
{
    QTextCursor cursor(&m_document);
    cursor.beginEditBlock();
    for (const KeptText& line : lines) {
        cursor.insertText(line.text + '\n', formatOf(severityOf(line.mark)));
    }
    cursor.endEditBlock();
}

}  // namespace app
