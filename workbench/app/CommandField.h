#pragma once

#include "app/CommandHistory.h"

#include <QLineEdit>

#include <functional>

namespace app {

/// One line of script to run; up and down bring earlier ones back.
class CommandField : public QLineEdit {
    Q_OBJECT

public:
    /// run: executes a text as a user's action. The history outlives the field.
    CommandField(CommandHistory& history, std::function<bool(const std::string&)> run, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void Run();

private:
    const std::function<bool(const std::string&)> m_run;
    CommandHistory& m_history;
    HistoryWalk m_walk;
};

}  // namespace app
