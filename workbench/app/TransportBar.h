#pragma once

#include "kernel/Session.h"

#include <QWidget>

#include <functional>
#include <vector>

class QLabel;
class QToolButton;

namespace app {

/// The current time, buttons that play and step, the way playback loops, the frame rate, and while it plays the rate
/// that is really reached. All they do is script text.
class TransportBar : public QWidget {
    Q_OBJECT

public:
    /// run: executes a text as a user's action.
    TransportBar(kernel::Session& session, std::function<bool(const std::string&)> run, QWidget* parent = nullptr);
    ~TransportBar() override;

public slots:
    /// Frames shown a second; 0 while that is not known.
    void ShowRate(double rate);

private slots:
    void Press();
    void NextLoop();

private:
    struct Row;
    static const Row kRows[];
    QToolButton* addButton(const char* name, const QString& toolTip, const char* slot);
    bool isPlaying(const Row& row) const;
    void showPlaying();
    void showLoop();

    kernel::Session& m_session;
    const std::function<bool(const std::string&)> m_run;
    std::vector<QToolButton*> m_buttons;  ///< as their rows stand
    QToolButton* m_loop;
    QLabel* m_reached;  ///< the rate
    bool m_playsForward = true;
    std::vector<unsigned> m_callbacks;
    unsigned m_watcher;
};

}  // namespace app
