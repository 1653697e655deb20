#include "app/panels/ScenePanel.h"

#include "view/Viewports.h"

namespace app {

ScenePanel::ScenePanel(const PanelContext& context, QWidget* parent) : QWidget(parent), m_context(context)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(0);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(RefreshIfSeen()));
    connect(&context.viewports, SIGNAL(SceneTouched()), this, SLOT(ScheduleRefresh()));
}

void ScenePanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    refresh();
}

bool ScenePanel::run(const std::string& text)
{
    const bool ok = m_context.run(text);
    ScheduleRefresh();
    return ok;
}

void ScenePanel::ScheduleRefresh()
{
    if (!m_timer.isActive()) {
        m_timer.start();
    }
}

void ScenePanel::RefreshIfSeen()
{
    if (isVisible()) {
        refresh();
    }
}

}  // namespace app
