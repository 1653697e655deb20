#include "app/panels/Panels.h"

#include "app/panels/AttributePanel.h"
#include "app/panels/ChannelBox.h"
#include "app/panels/Outliner.h"
#include "app/panels/RenderSettings.h"
#include "kernel/Syntax.h"

#include <QCoreApplication>
#include <QDockWidget>
#include <QMainWindow>

#include <algorithm>

namespace app {

using kernel::CommandError;

namespace {

template <class Panel>
QWidget* make(const PanelContext& context)
{
    return new Panel(context);
}

/// Those of one side share its room as tabs, the first in front.
const struct {
    const char* name;
    const char* title;
    Qt::DockWidgetArea side;
    bool isShownAtFirst;
    QWidget* (*make)(const PanelContext& context);
} kPanels[] = {
    {"outliner", QT_TRANSLATE_NOOP("Panels", "Outliner"), Qt::LeftDockWidgetArea, false, make<Outliner>},
    {"channelBox", QT_TRANSLATE_NOOP("Panels", "Channel Box"), Qt::RightDockWidgetArea, true, make<ChannelBox>},
    {"attributeEditor", QT_TRANSLATE_NOOP("Panels", "Attribute Editor"), Qt::RightDockWidgetArea, false,
     make<AttributePanel>},
    {"renderSettings", QT_TRANSLATE_NOOP("Panels", "Render Settings"), Qt::RightDockWidgetArea, false,
     make<RenderSettings>},
};

}  // namespace

Panels::Panels(QMainWindow& window, const PanelContext& context) : m_session(context.session)
{
    QDockWidget* atSide = nullptr;
    for (const auto& row : kPanels) {
        auto* const dock = new QDockWidget(QCoreApplication::translate("Panels", row.title), &window);
        dock->setObjectName(row.name);
        dock->setWidget(row.make(context));
        window.addDockWidget(row.side, dock);
        if (atSide && window.dockWidgetArea(atSide) == row.side) {
            window.tabifyDockWidget(atSide, dock);
        }
        dock->setVisible(row.isShownAtFirst);
        atSide = dock;
        m_docks.push_back(dock);
    }
    window.setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::North);
    m_session.commands.add("workbenchPanel", [this](const kernel::ValueList& args) { return workbenchPanel(args); });
}

Panels::~Panels()
{
    m_session.commands.remove("workbenchPanel");
}

QDockWidget& Panels::find(const std::string& name) const
{
    const auto found = std::find_if(m_docks.begin(), m_docks.end(), [&name](const QDockWidget* dock) {
        return dock->objectName() == QString::fromStdString(name);
    });
    if (found == m_docks.end()) {
        throw CommandError("workbenchPanel: Object '" + name + "' not found.");
    }
    return **found;
}

kernel::Value Panels::workbenchPanel(const kernel::ValueList& args)
{
    kernel::Syntax syntax;
    syntax.enableQuery();
    syntax.addFlag("vis", "visible", {kernel::ArgType::Bool});
    syntax.addFlag("tgl", "toggle");
    syntax.setObjects(kernel::Syntax::Objects::Strings, 1, 1);
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
    QDockWidget& dock = find(kernel::toText(parsed.objects.front()));
    if (parsed.query) {
        return int(!dock.isHidden());
    }
    if (parsed.has("toggle")) {
        toggle(dock);
    } else {
        dock.setVisible(parsed.integer("visible") != 0);
    }
    return {};
}

/// One that lies behind another comes to the front.
void Panels::toggle(QDockWidget& dock)
{
    const bool isBehind = dock.isVisible() && dock.visibleRegion().isEmpty();
    dock.setVisible(dock.isHidden() || isBehind);
    if (!dock.isHidden()) {
        dock.raise();
    }
}

}  // namespace app
