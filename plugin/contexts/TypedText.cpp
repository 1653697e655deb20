#include "contexts/TypedText.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace {

bool isControl(QChar c)
{
    return c.category() == QChar::Other_Control && c != QLatin1Char('\n');
}

/// With Ctrl a key is a command. With Ctrl and Alt it is not: so some systems report AltGr.
bool isCommand(const QKeyEvent& key)
{
    return (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == Qt::ControlModifier;
}

}  // namespace

QString typedText(const QKeyEvent& key)
{
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        return QString("\n");
    }
    return isCommand(key) ? QString() : withoutControls(key.text());
}

QString withoutControls(QString text)
{
    text.truncate(int(std::remove_if(text.begin(), text.end(), isControl) - text.begin()));
    return text;
}

void removeLastCharacter(QString& text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.toEnd();
    text.truncate(std::max(finder.toPreviousBoundary(), 0));
}

bool addComposed(QString& text, const QInputMethodEvent& event)
{
    const QString before = text;
    if (event.replacementLength() > 0) {
        const int first = qBound(0, text.size() + event.replacementStart(), text.size());
        text.remove(first, event.replacementLength());
    }
    text += withoutControls(event.commitString());
    return text != before;
}
