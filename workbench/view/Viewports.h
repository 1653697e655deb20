#pragma once

#include "api/Views.h"
#include "kernel/Session.h"
#include "view/PanZoomKey.h"

#include <QCursor>
#include <QObject>
#include <QPointer>

#include <vector>

namespace view {

class Viewport;

/// The views of all windows, as the host API sees them. Repaints them when the scene was touched.
/// A view counts unless it was hidden inside its window; one in a window that is not open still has a camera.
class Viewports : public QObject, public api::ViewHost {
    Q_OBJECT

public:
    /// Installs itself for as long as it lives.
    explicit Viewports(kernel::Session& session);
    ~Viewports() override;
    static Viewports* installed();  ///< null without a window

    /// Makes a view; its widget belongs to `parent`.
    Viewport* add(const std::string& panelName, const kernel::NodePtr& camera, QWidget* parent);
    /// Takes a view that is going to be deleted out of sight of the host API.
    void remove(Viewport* view);
    /// Null when there is no view of that name; the active one for an empty name.
    Viewport* find(const std::string& panelName) const;
    /// The one last worked in, as long as it is there to see; then the first that is.
    Viewport* active() const;
    void setActive(Viewport* view);
    /// Views came into sight or went out of it.
    void tellOfChange() { emit ActiveChanged(); }
    /// Of the keyboard, so of all views.
    PanZoomKey& panZoomKey() { return m_panZoomKey; }
    /// The pointer's shape over the views.
    void setCursor(const QCursor& cursor);

    std::vector<api::View*> views() const override;
    api::View* activeView() const override;

signals:
    void ActiveChanged();
    /// Something visible in the scene changed.
    void SceneTouched();

private slots:
    void Activate(view::Viewport* view);
    void LetGoOfKeys();

private:
    std::vector<Viewport*> counted() const;
    void touched();

    kernel::Session& m_session;
    unsigned m_playbackWatch = 0;
    std::vector<QPointer<Viewport>> m_views;
    QPointer<Viewport> m_active;  ///< the one last worked in
    QCursor m_cursor;
    PanZoomKey m_panZoomKey;
};

}  // namespace view
