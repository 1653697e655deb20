#include "app/panels/Panels.h"

#include "app/panels/AttributePanel.h"
#include "app/panels/ChannelBox.h"
#include "app/panels/Outliner.h"
#include "app/panels/RenderSettings.h"
#include "kernel/Syntax.h"

#include <QCoreApplication>
#include <QDockWidget>
#include <QKeyEvent>
#include <QMainWindow>

#include <algorithm>

namespace app {

using kernel::CommandError;

namespace {

/// Hands the keys it has no use for to the main window, also while it floats as a window of its own.
class Dock : public QDockWidget {
public:
    using QDockWidget::QDockWidget;

protected:
    void keyPressEvent(QKeyEvent* event) override { pass(*event); }
    void keyReleaseEvent(QKeyEvent* event) override { pass(*event); }

private:
    void pass(QKeyEvent& event)
    {
        event.ignore();
        if (isWindow()) {
            QCoreApplication::sendEvent(parentWidget(), &event);
        }
    }
};

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
        auto* const dock = new Dock(QCoreApplication::translate("Panels", row.title), &window);
        dock->setObjectName(row.name);
        dock->setWidget(row.make(context));
        QObject::connect(dock, SIGNAL(visibilityChanged(bool)), dock->widget(), SLOT(LeaveUnlessSeen(bool)));
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
    } else if (parsed.has("visible")) {
        show(dock, parsed.integer("visible") != 0);
    } else {
        throw CommandError("workbenchPanel: -visible or -toggle is needed");
    }
    return {};
}

void Panels::show(QDockWidget& dock, bool isVisible)
{
    dock.setVisible(isVisible);
    if (isVisible) {
        dock.raise();  // it may lie behind another
    }
}

/// One that lies behind another comes to the front.
void Panels::toggle(QDockWidget& dock)
{
    const bool isBehind = dock.isVisible() && dock.visibleRegion().isEmpty();
    show(dock, dock.isHidden() || isBehind);
}

}  // namespace app
