#pragma once

#include <QLineEdit>

#include <functional>

namespace app {

/// One line of script to run; up and down bring earlier ones back.
class CommandField : public QLineEdit {
    Q_OBJECT

public:
    /// run: executes a text as a user's action.
    explicit CommandField(std::function<bool(const std::string&)> run, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void Run();

private:
    void recall(int step);

    const std::function<bool(const std::string&)> m_run;
    QStringList m_history;
    int m_at = 0;  ///< place in the history; its size for the line being typed
};

}  // namespace app
