#include "app/CommandField.h"

#include <QKeyEvent>

namespace app {

CommandField::CommandField(std::function<bool(const std::string&)> run, QWidget* parent)
    : QLineEdit(parent), m_run(std::move(run))
{
    setObjectName("commandField");
    setPlaceholderText(tr("Script command"));
    setFixedHeight(22);
    setFocusPolicy(Qt::ClickFocus);
    connect(this, SIGNAL(returnPressed()), this, SLOT(Run()));
}

void CommandField::Run()
{
    const QString line = text().trimmed();
    if (line.isEmpty()) {
        return;
    }
    if (m_history.isEmpty() || m_history.last() != line) {
        m_history << line;
    }
    m_at = m_history.size();
    clear();
    m_run(line.toStdString());
}

void CommandField::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Up: recall(-1); break;
    case Qt::Key_Down: recall(1); break;
    case Qt::Key_Escape:
        clear();
        clearFocus();
        break;
    default: QLineEdit::keyPressEvent(event);
    }
}

void CommandField::recall(int step)
{
    m_at = qBound(0, m_at + step, m_history.size());
    setText(m_history.value(m_at));
}

}  // namespace app
