#include "view/Viewports.h"

#include "api/DrawList.h"
#include "view/TextureCache.h"
#include "view/Viewport.h"

#include <algorithm>

namespace view {

Viewports::Viewports(kernel::Session& session) : m_session(session)
{
    api::setRendererAvailable(true);
    api::setTextureReleaseListener(&TextureCache::forget);
    api::installViewHost(this);
    m_session.scene.setTouchListener([this] { touched(); });
}

Viewports::~Viewports()
{
    m_session.scene.setTouchListener(nullptr);
    api::installViewHost(nullptr);
    api::setRendererAvailable(false);
}

Viewport* Viewports::add(const std::string& panelName, const kernel::NodePtr& camera, QWidget* parent)
{
    auto* const view = new Viewport(m_session, panelName, camera, parent);
    connect(view, SIGNAL(Activated(view::Viewport*)), this, SLOT(Activate(view::Viewport*)));
    m_entries.push_back({view, true});
    if (!m_active) {
        setActive(view);
    }
    return view;
}

void Viewports::setShown(Viewport* view, bool shown)
{
    for (Entry& entry : m_entries) {
        if (entry.view == view) {
            entry.shown = shown;
        }
    }
    if (!shown && m_active == view) {
        const auto next = std::find_if(m_entries.begin(), m_entries.end(),
                                       [](const Entry& entry) { return entry.shown && entry.view; });
        setActive(next != m_entries.end() ? next->view.data() : nullptr);
    }
}

Viewport* Viewports::find(const std::string& panelName) const
{
    if (panelName.empty()) {
        return m_active;
    }
    for (const Entry& entry : m_entries) {
        if (entry.shown && entry.view && entry.view->panelName() == panelName) {
            return entry.view;
        }
    }
    return nullptr;
}

void Viewports::setActive(Viewport* view)
{
    if (m_active != view) {
        m_active = view;
        emit ActiveChanged();
    }
}

void Viewports::setCursor(const QCursor& cursor)
{
    for (const Entry& entry : m_entries) {
        if (entry.view) {
            entry.view->setCursor(cursor);
        }
    }
}

void Viewports::Activate(view::Viewport* view)
{
    setActive(view);
}

std::vector<api::View*> Viewports::views() const
{
    std::vector<api::View*> views;
    for (const Entry& entry : m_entries) {
        if (entry.shown && entry.view) {
            views.push_back(entry.view.data());
        }
    }
    return views;
}

api::View* Viewports::activeView() const
{
    return m_active.data();
}

void Viewports::touched()
{
    for (const Entry& entry : m_entries) {
        if (entry.view) {
            entry.view->scheduleRefresh();
        }
    }
    emit SceneTouched();
}

}  // namespace view
