#include "app/CommandField.h"

#include <QKeyEvent>

namespace app {

CommandField::CommandField(CommandHistory& history, std::function<bool(const std::string&)> run, QWidget* parent)
    : QLineEdit(parent), m_run(std::move(run)), m_history(history), m_walk(history, HistoryWalk::Texts::OneLine)
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
    m_history.add(line);
    m_walk.reset();
    clear();
    m_run(line.toStdString());
}

void CommandField::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Up: setText(m_walk.walk(1, text())); break;
    case Qt::Key_Down: setText(m_walk.walk(-1, text())); break;
    case Qt::Key_Escape:
        m_walk.reset();
        clear();
        clearFocus();
        break;
    default: QLineEdit::keyPressEvent(event);
    }
}

}  // namespace app
