#pragma once

#include "kernel/Session.h"

#include <QSpinBox>

#include <functional>
#include <vector>

namespace app {

/// A time of the session as a whole number that can be edited: the current time, or an end of the playback range.
class TimeField : public QSpinBox {
    Q_OBJECT

public:
    enum class Shows { CurrentTime, RangeStart, RangeEnd };
    /// run: executes a text as a user's action.
    TimeField(kernel::Session& session, Shows what, std::function<bool(const std::string&)> run,
              QWidget* parent = nullptr);
    ~TimeField() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void Apply(int frameNumber);
    void LeaveField();

private:
    double time() const;
    int frameNumber() const;
    /// Leaves what is being typed.
    void showTime();
    void takeTyped();
    void dropTyped();

    kernel::Session& m_session;
    const Shows m_what;
    const std::function<bool(const std::string&)> m_run;
    std::vector<unsigned> m_callbacks;
};

}  // namespace app
