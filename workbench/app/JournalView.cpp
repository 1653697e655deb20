#include "app/JournalView.h"

#include <QKeyEvent>
#include <QScrollBar>

namespace app {

JournalView::JournalView(QTextDocument* journal, QWidget* parent) : QPlainTextEdit(parent)
{
    setObjectName("scriptJournal");
    setDocument(journal);
    setFont(journal->defaultFont());
    setReadOnly(true);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    connect(verticalScrollBar(), SIGNAL(valueChanged(int)), this, SLOT(NoteValue(int)));
    connect(verticalScrollBar(), SIGNAL(rangeChanged(int, int)), this, SLOT(FollowEnd()));
}

void JournalView::keyPressEvent(QKeyEvent* event)
{
    QPlainTextEdit::keyPressEvent(event);
    // What is typed into a text by mistake is not meant for the scene: hot keys, and above all the one that deletes.
    const bool isChord = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (!isChord && (!event->text().isEmpty() || event->key() == Qt::Key_Delete)) {
        event->accept();
    }
}

void JournalView::NoteValue(int value)
{
    m_follows = value == verticalScrollBar()->maximum();
}

void JournalView::FollowEnd()
{
    if (m_follows) {
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    }
}

}  // namespace app
