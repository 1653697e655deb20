#include "settings/Panels.h"

#include "settings/Preferences.h"

#include <QPointer>
#include <QWidget>

namespace {

Panels* s_installed = nullptr;

const struct {
    Panel panel;
    void (Preferences::*setGeometry)(const QByteArray&);
} kPanels[] = {
    {Panel::LayerManager, &Preferences::setLayerManagerGeometry},
    {Panel::Toolbox, &Preferences::setToolboxGeometry},
    {Panel::ToolOptions, &Preferences::setToolOptionsGeometry},
    {Panel::ColorPalette, &Preferences::setColorPaletteGeometry},
    {Panel::RetimingTool, &Preferences::setRetimingToolGeometry},
};

void destroy(const QPointer<QWidget>& panel)
{
    if (panel) {
        panel->close();
    }
    if (panel) {  // it may destroy itself when it is closed
        panel->setParent(nullptr);
        delete panel;
    }
}

}  // namespace

void Panels::destroyAll(Places places)
{
    for (const auto& row : kPanels) {
        const QPointer<QWidget> panel = existingPanel(row.panel);
        const auto setGeometry = [&row](const QByteArray& geometry) {
            (Preferences::instance().*row.setGeometry)(geometry);
        };
        if (panel && places == Places::Keep) {
            setGeometry(panel->saveGeometry());
        }
        destroy(panel);
        if (places == Places::Forget) {
            setGeometry(QByteArray());  // after the panel is closed: it may have kept its place
        }
    }
}

Panels* Panels::installed()
{
    return s_installed;
}

void Panels::install(Panels* panels)
{
    s_installed = panels;
}

void Panels::refreshInstalled(Panel panel)
{
    if (s_installed && s_installed->existingPanel(panel)) {
        s_installed->refresh(panel);
    }
}
