#include "app/MessageLine.h"

#include "app/MessageText.h"
#include "app/Theme.h"

#include <QPainter>

namespace app {

MessageLine::MessageLine(kernel::Output& output, QWidget* parent) : QLabel(parent), m_output(output)
{
    setObjectName("messageLine");
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::NoTextInteraction);
    setFixedHeight(22);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // a long message must not widen the window
    m_listener =
        m_output.addListener([this](kernel::Severity severity, const std::string& text) { show(severity, text); });
}

MessageLine::~MessageLine()
{
    m_output.removeListener(m_listener);
}

QSize MessageLine::minimumSizeHint() const
{
    return QSize(80, 22);
}

void MessageLine::show(kernel::Severity severity, const std::string& text)
{
    const QString line = QString::fromStdString(text).trimmed().section('\n', -1);
    if (severity == kernel::Severity::Echo || line.isEmpty()) {
        return;
    }
    m_severity = severity;
    const QString message = messageText(severity, line);
    setText(message);
    setToolTip(message);
}

void MessageLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool isError = m_severity == kernel::Severity::Error;
    // The error colour alone would be hard to read as text on any of the window's grounds.
    painter.fillRect(rect(), isError ? messageColour(m_severity) : palette().color(QPalette::Base));
    painter.setPen(isError ? QColor(Qt::black) : messageColour(m_severity));
    const QRect inside = rect().adjusted(6, 0, -6, 0);
    painter.drawText(inside, Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(text(), Qt::ElideRight, inside.width()));
}

}  // namespace app
