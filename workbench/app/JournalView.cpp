#include "app/JournalView.h"

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
