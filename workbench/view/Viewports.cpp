#include "view/Viewports.h"

#include "api/DrawList.h"
#include "view/PictureStore.h"
#include "view/TextureCache.h"
#include "view/Viewport.h"

#include <QGuiApplication>

#include <algorithm>

namespace view {

namespace {

Viewports* s_installed = nullptr;

}  // namespace

Viewports::Viewports(kernel::Session& session) : m_session(session)
{
    s_installed = this;
    api::setRendererAvailable(true);
    api::setTextureReleaseListener(&TextureCache::forget);
    api::installViewHost(this);
    m_session.scene.setTouchListener([this] { touched(); });
    connect(qGuiApp, SIGNAL(focusWindowChanged(QWindow*)), this, SLOT(LetGoOfKeys()));
    // While a scene plays its pictures may lag behind the time; once it stands they must not.
    m_playbackWatch = m_session.events.watch("playingBack", [this](bool isPlaying) {
        if (!isPlaying) {
            touched();
        }
    });
}

Viewports::~Viewports()
{
    m_session.events.unwatch(m_playbackWatch);
    m_session.scene.setTouchListener(nullptr);
    api::installViewHost(nullptr);
    api::dropDrawOverrides(true);  // they give their textures back to the renderer
    api::setRendererAvailable(false);
    s_installed = nullptr;
    PictureStore::instance().clear();
}

Viewports* Viewports::installed()
{
    return s_installed;
}

Viewport* Viewports::add(const std::string& panelName, const kernel::NodePtr& camera, QWidget* parent)
{
    auto* const view = new Viewport(m_session, panelName, camera, parent);
    view->setCursor(m_cursor);
    connect(view, SIGNAL(Activated(view::Viewport*)), this, SLOT(Activate(view::Viewport*)));
    remove(nullptr);
    m_views.push_back(view);
    emit ActiveChanged();
    return view;
}

void Viewports::remove(Viewport* view)
{
    m_views.erase(std::remove(m_views.begin(), m_views.end(), view), m_views.end());
    if (view) {
        disconnect(view, nullptr, this, nullptr);
        emit ActiveChanged();
    }
}

std::vector<Viewport*> Viewports::counted() const
{
    std::vector<Viewport*> views;
    for (const QPointer<Viewport>& view : m_views) {
        if (view && view->isVisibleTo(view->window())) {
            views.push_back(view);
        }
    }
    return views;
}

Viewport* Viewports::find(const std::string& panelName) const
{
    if (panelName.empty()) {
        return active();
    }
    for (Viewport* view : counted()) {
        if (view->panelName() == panelName) {
            return view;
        }
    }
    return nullptr;
}

Viewport* Viewports::active() const
{
    const std::vector<Viewport*> views = counted();
    const bool isCounted = std::find(views.begin(), views.end(), m_active) != views.end();
    if (isCounted && m_active->isVisible()) {
        return m_active;
    }
    const auto visible = std::find_if(views.begin(), views.end(), [](Viewport* view) { return view->isVisible(); });
    if (visible != views.end()) {
        return *visible;
    }
    // No window is open: before the program shows its own.
    return isCounted ? m_active.data() : views.empty() ? nullptr : views.front();
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
    m_cursor = cursor;
    for (const QPointer<Viewport>& view : m_views) {
        if (view) {
            view->setCursor(cursor);
        }
    }
}

void Viewports::Activate(view::Viewport* view)
{
    setActive(view);
}

// The release of a key that is held goes to the window that has the keyboard then.
void Viewports::LetGoOfKeys()
{
    m_panZoomKey.release();
}

std::vector<api::View*> Viewports::views() const
{
    const std::vector<Viewport*> views = counted();
    return std::vector<api::View*>(views.begin(), views.end());
}

api::View* Viewports::activeView() const
{
    return active();
}

void Viewports::touched()
{
    const kernel::Playback& playback = m_session.playback;
    Viewport* const only = playback.isPlaying() && playback.options.view == "active" ? active() : nullptr;
    for (const QPointer<Viewport>& view : m_views) {
        if (view && (!only || view == only)) {
            view->scheduleRefresh();
        }
    }
    emit SceneTouched();
}

}  // namespace view
