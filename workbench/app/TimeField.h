#pragma once

#include "kernel/Session.h"

#include <QWidget>

#include <functional>

class QLabel;
class QSpinBox;

namespace app {

/// The current time as a number that can be edited, and the frame rate beside it.
class TimeField : public QWidget {
    Q_OBJECT

public:
    /// run: executes a text as a user's action.
    TimeField(kernel::Session& session, std::function<bool(const std::string&)> run, QWidget* parent = nullptr);
    ~TimeField() override;

private slots:
    void Apply(int frameNumber);
    void LeaveField();

private:
    void showTime();

    kernel::Session& m_session;
    const std::function<bool(const std::string&)> m_run;
    QSpinBox* m_number;
    QLabel* m_rate;
    std::vector<unsigned> m_callbacks;
};

/// "24 fps", "23.976 fps"; for a unit that is no frame rate its units a second.
QString frameRateText(kernel::TimeUnit unit);

}  // namespace app
