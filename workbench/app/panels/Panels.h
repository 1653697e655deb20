#pragma once

#include "app/panels/ScenePanel.h"

#include <vector>

class QDockWidget;
class QMainWindow;

namespace app {

/// The panels docked at the sides of the window, and the command workbenchPanel that shows and hides them.
class Panels {
public:
    Panels(QMainWindow& window, const PanelContext& context);
    ~Panels();
    Panels(const Panels&) = delete;
    Panels& operator=(const Panels&) = delete;

private:
    kernel::Value workbenchPanel(const kernel::ValueList& args);
    QDockWidget& find(const std::string& name) const;
    static void show(QDockWidget& dock, bool isVisible);
    static void toggle(QDockWidget& dock);

    kernel::Session& m_session;
    std::vector<QDockWidget*> m_docks;  ///< the window's
};

}  // namespace app
