#pragma once

#include "api/Views.h"
#include "kernel/Session.h"

#include <QCursor>
#include <QObject>
#include <QPointer>

#include <vector>

namespace view {

class Viewport;

/// The views of the main window, as the host API sees them. Repaints them when the scene was touched.
class Viewports : public QObject, public api::ViewHost {
    Q_OBJECT

public:
    /// Installs itself for as long as it lives.
    explicit Viewports(kernel::Session& session);
    ~Viewports() override;

    /// Makes a view; its widget belongs to `parent`. It counts as long as it is not hidden (see setShown).
    Viewport* add(const std::string& panelName, const kernel::NodePtr& camera, QWidget* parent);
    /// A view that is not shown keeps its camera but is out of sight of the host API.
    void setShown(Viewport* view, bool shown);
    /// Null when there is no shown view of that name; the active one for an empty name.
    Viewport* find(const std::string& panelName) const;
    Viewport* active() const { return m_active; }
    void setActive(Viewport* view);
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

private:
    struct Entry {
        QPointer<Viewport> view;
        bool shown = true;
    };
    void touched();

    kernel::Session& m_session;
    std::vector<Entry> m_entries;
    QPointer<Viewport> m_active;
};

}  // namespace view
