#pragma once

#include "kernel/Output.h"

#include <QLabel>

namespace app {

/// Shows the host's last message in its colour; an error fills the line. A message too long for the line is shortened
/// and stands whole in the tool tip.
class MessageLine : public QLabel {
    Q_OBJECT

public:
    explicit MessageLine(kernel::Output& output, QWidget* parent = nullptr);
    ~MessageLine() override;

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void show(kernel::Severity severity, const std::string& text);

    kernel::Output& m_output;
    int m_listener = 0;
    kernel::Severity m_severity = kernel::Severity::Plain;
};

}  // namespace app
