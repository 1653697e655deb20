#pragma once

#include "kernel/Session.h"

#include <QTimer>
#include <QWidget>

#include <functional>

namespace view {
class Viewports;
}

namespace app {

/// What a panel stands on.
struct PanelContext {
    kernel::Session& session;
    view::Viewports& viewports;                   ///< tell when the scene changed
    std::function<bool(const std::string&)> run;  ///< executes a text as a user's action; false when it failed
};

/// A panel that shows something of the scene and follows it: once for all that changed in a turn of the event loop, a
/// few times a second while the scene plays, and only while it is to be seen.
class ScenePanel : public QWidget {
    Q_OBJECT

public:
    explicit ScenePanel(const PanelContext& context, QWidget* parent = nullptr);

public slots:
    /// To be called when it comes into sight or goes out of it, behind another panel for one: then the keys are no
    /// longer for it.
    void LeaveUnlessSeen(bool isSeen);

protected:
    /// Shows the scene as it is now. Called often: what has not changed is to be left alone.
    virtual void refresh() = 0;
    void showEvent(QShowEvent* event) override;

    kernel::Scene& scene() const { return m_context.session.scene; }
    const PanelContext& context() const { return m_context; }
    /// Runs a text, then shows what came of it, or that it came to nothing.
    bool run(const std::string& text);
    /// Runs a text, if there is any, when the field or the drag it comes from has ended.
    void runSoon(const std::string& script);

protected slots:
    void ScheduleRefresh();

private slots:
    void RefreshIfSeen();

private:
    const PanelContext m_context;
    QTimer m_timer;
};

}  // namespace app
