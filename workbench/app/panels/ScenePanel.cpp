#include "app/panels/ScenePanel.h"

#include "view/Viewports.h"

#include <QApplication>

namespace app {

namespace {

constexpr int kWhilePlaying = 250;  // ms; numbers that change faster cannot be read

}  // namespace

ScenePanel::ScenePanel(const PanelContext& context, QWidget* parent) : QWidget(parent), m_context(context)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(RefreshIfSeen()));
    connect(&context.viewports, SIGNAL(SceneTouched()), this, SLOT(ScheduleRefresh()));
}

void ScenePanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    refresh();
}

// Left to itself the focus would stay in a field that cannot be seen, or go on to one of the next panel.
void ScenePanel::LeaveUnlessSeen(bool isSeen)
{
    QWidget* const focus = QApplication::focusWidget();
    if (!isSeen && isAncestorOf(focus)) {
        focus->clearFocus();
    }
}

bool ScenePanel::run(const std::string& text)
{
    const bool ok = m_context.run(text);
    ScheduleRefresh();
    return ok;
}

// A script may ask the user something, and by its end the field it came from may be gone with its node.
void ScenePanel::runSoon(const std::string& script)
{
    if (!script.empty()) {
        QTimer::singleShot(0, this, [this, script] { run(script); });
    }
}

void ScenePanel::ScheduleRefresh()
{
    const int wait = m_context.session.playback.isPlaying() ? kWhilePlaying : 0;
    if (!m_timer.isActive() || m_timer.interval() > wait) {
        m_timer.start(wait);
    }
}

void ScenePanel::RefreshIfSeen()
{
    if (isVisible()) {
        refresh();
    }
}

}  // namespace app
