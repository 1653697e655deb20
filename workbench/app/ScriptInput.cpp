#include "app/ScriptInput.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>

namespace app {

namespace {

constexpr int kTabColumns = 4;
constexpr int kMarginPadding = 6;
constexpr int kFewestDigits = 3;  // so that the text does not jump at line 10

QString indentOf(const QString& line)
{
    int end = 0;
    while (end < line.size() && (line[end] == ' ' || line[end] == '\t')) {
        ++end;
    }
    return line.left(end);
}

/// How much of a line's beginning is one step of indentation.
int indentStep(const QString& line)
{
    if (line.startsWith('\t')) {
        return 1;
    }
    return qMin(indentOf(line).size(), kTabColumns);
}

}  // namespace

ScriptInput::ScriptInput(QTextDocument* text, const CommandHistory& history, QWidget* parent)
    : QPlainTextEdit(parent), m_margin(new QWidget(this)), m_walk(history, HistoryWalk::Texts::All)
{
    setObjectName("scriptInput");
    setDocument(text);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabStopDistance(kTabColumns * fontMetrics().horizontalAdvance(' '));
    m_margin->installEventFilter(this);
    connect(this, SIGNAL(blockCountChanged(int)), this, SLOT(UpdateMargin()));
    connect(this, SIGNAL(updateRequest(QRect, int)), this, SLOT(ScrollMargin(QRect, int)));
    UpdateMargin();
}

QString ScriptInput::textToRun() const
{
    return textCursor().hasSelection() ? textCursor().selection().toPlainText() : toPlainText();
}

void ScriptInput::replaceText(const QString& text)
{
    QTextCursor cursor(document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(text);
    setTextCursor(cursor);
}

void ScriptInput::AskForRun()
{
    m_walk.reset();
    emit RunAsked(textToRun());
}

// --- keys ----------------------------------------------------------------------------------------------------------

void ScriptInput::keyPressEvent(QKeyEvent* event)
{
    const bool control = event->modifiers() & Qt::ControlModifier;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: control ? AskForRun() : breakLine(); return;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (control) {
            replaceText(m_walk.walk(event->key() == Qt::Key_Up ? 1 : -1, toPlainText()));
            return;
        }
        break;
    case Qt::Key_Tab:
        if (selectsLines()) {
            indentLines(true);
            return;
        }
        break;
    case Qt::Key_Backtab: indentLines(false); return;
    case Qt::Key_Y:
        // The main window redoes with it on every platform, too.
        if (control) {
            redo();
            return;
        }
        break;
    default: break;
    }
    QPlainTextEdit::keyPressEvent(event);
}

bool ScriptInput::selectsLines() const
{
    const QTextCursor cursor = textCursor();
    return document()->findBlock(cursor.selectionStart()) != document()->findBlock(cursor.selectionEnd());
}

void ScriptInput::breakLine()
{
    QTextCursor cursor = textCursor();
    const QString before = cursor.block().text().left(cursor.positionInBlock());
    cursor.insertText('\n' + indentOf(before));
    setTextCursor(cursor);
}

void ScriptInput::indentLines(bool more)
{
    QTextCursor cursor = textCursor();
    const int end =
        qMax(cursor.selectionStart(), cursor.selectionEnd() - 1);  // not a line touched by its beginning only
    QTextBlock block = document()->findBlock(cursor.selectionStart());
    const QTextBlock last = document()->findBlock(end);
    cursor.beginEditBlock();
    for (bool done = false; !done; block = block.next()) {
        done = block == last;
        QTextCursor start(block);
        if (more) {
            start.insertText("\t");
        } else {
            start.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor, indentStep(block.text()));
            start.removeSelectedText();
        }
    }
    cursor.endEditBlock();
}

// --- line numbers --------------------------------------------------------------------------------------------------

int ScriptInput::marginWidth() const
{
    const int digits = qMax(kFewestDigits, QString::number(blockCount()).size());
    return 2 * kMarginPadding + digits * fontMetrics().horizontalAdvance('9');
}

void ScriptInput::UpdateMargin()
{
    setViewportMargins(marginWidth(), 0, 0, 0);
    const QRect inside = contentsRect();
    m_margin->setGeometry(inside.left(), inside.top(), marginWidth(), inside.height());
}

void ScriptInput::ScrollMargin(const QRect& area, int by)
{
    if (by != 0) {
        m_margin->scroll(0, by);
    } else {
        m_margin->update(0, area.y(), m_margin->width(), area.height());
    }
}

void ScriptInput::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    UpdateMargin();
}

bool ScriptInput::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_margin && event->type() == QEvent::Paint) {
        paintMargin();
        return true;
    }
    return QPlainTextEdit::eventFilter(watched, event);
}

void ScriptInput::paintMargin()
{
    QPainter painter(m_margin);
    painter.fillRect(m_margin->rect(), palette().color(QPalette::AlternateBase));
    painter.setFont(font());
    painter.setPen(QColor("#9a9a9a"));
    QTextBlock block = firstVisibleBlock();
    for (; block.isValid(); block = block.next()) {
        const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
        if (place.top() > m_margin->height()) {
            return;
        }
        painter.drawText(QRectF(0, place.top(), m_margin->width() - kMarginPadding, place.height()), Qt::AlignRight,
                         QString::number(block.blockNumber() + 1));
    }
}

}  // namespace app
