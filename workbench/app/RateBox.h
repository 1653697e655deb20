#pragma once

#include "kernel/Session.h"

#include <QComboBox>

#include <functional>
#include <vector>

namespace app {

/// The frame rate of the scene, and the usual ones to choose from.
class RateBox : public QComboBox {
    Q_OBJECT

public:
    /// run: executes a text as a user's action.
    RateBox(kernel::Session& session, std::function<bool(const std::string&)> run, QWidget* parent = nullptr);
    ~RateBox() override;

private slots:
    void Choose(int row);

private:
    void showUnit();

    kernel::Session& m_session;
    const std::function<bool(const std::string&)> m_run;
    std::vector<unsigned> m_callbacks;
};

/// "24 fps", "23.976 fps"; for a unit that is no frame rate its units a second.
QString frameRateText(kernel::TimeUnit unit);

}  // namespace app
