#include "contexts/DrawToolMenu.h"

#include "model/LayerManager.h"
#include "node/HostViews.h"
#include "node/MasterDrawing.h"
#include "settings/Preferences.h"

#include <QActionGroup>

using script::MenuPart;

namespace {

constexpr int kWidestName = 400;  // pixels

}  // namespace

DrawToolMenu::DrawToolMenu(QWidget& view) : ToolMenu(view), m_camera(HostViews::cameraShownIn(view))
{
    // Of a drawing with many layers all can be reached: the menu scrolls instead of filling the screen with columns.
    setStyleSheet("QMenu { menu-scrollable: 1; }");
    const Preferences& preferences = Preferences::instance();
    addLayers();
    addGroup(MenuPart::Contexts);
    addSeparator();
    choose(addGroup(MenuPart::DrawTools), static_cast<int>(preferences.activeTool()));
    addSeparator();
    addGroup(MenuPart::Layers);
    addGroup(MenuPart::Frames);
    const QList<QAction*> ghosts = addGroup(MenuPart::Ghosts);
    ghosts[static_cast<int>(script::GhostSide::Previous)]->setChecked(preferences.ghostPrev());
    ghosts[static_cast<int>(script::GhostSide::Next)]->setChecked(preferences.ghostNext());
    addSeparator();
    addGroup(MenuPart::Panels);
    addSeparator();
    choose(addGroup(MenuPart::TimelineDisplay), preferences.timelineFrameDisplay());
    addSeparator();
    addGroup(MenuPart::Cleanups);
}

void DrawToolMenu::SetActiveLayer()
{
    const auto* entry = qobject_cast<const QAction*>(sender());
    const std::shared_ptr<LayerManager> drawing = masterDrawing();
    const int index = entry && drawing ? drawing->layerIndex(m_camera, entry->data().toULongLong()) : -1;
    if (index >= 0) {
        script::setActiveLayer(m_camera, index);
    }
}

void DrawToolMenu::addLayers()
{
    const std::shared_ptr<LayerManager> drawing = masterDrawing();
    const int count = drawing ? drawing->layerCount(m_camera) : 0;
    const int active = count > 0 && drawing->currentCamera() == m_camera ? drawing->activeLayerIndex(m_camera) : -1;
    for (int index = count - 1; index >= 0; --index) {
        const QString label = layerLabel(drawing->layerName(m_camera, index), index == active);
        addAction(label, this, SLOT(SetActiveLayer()))->setData(drawing->layerId(m_camera, index));
    }
    if (count > 0) {
        addSeparator();
    }
}

QString DrawToolMenu::layerLabel(const QString& name, bool isActive) const
{
    // A menu would take "&" for the mark of an underlined letter, and what follows a tab for a shortcut.
    QString shown = fontMetrics().elidedText(name, Qt::ElideRight, kWidestName);
    shown.replace('&', QLatin1String("&&")).replace('\t', ' ');
    return isActive ? shown + QLatin1String(" (active)") : shown;
}

QList<QAction*> DrawToolMenu::addGroup(MenuPart part)
{
    const script::MenuGroup& group = script::menuGroup(part);
    QMenu* const menu = group.submenu ? addMenu(QLatin1String(group.submenu)) : this;
    return addEntries(*menu, group, group.count);
}

void DrawToolMenu::choose(const QList<QAction*>& entries, int which)
{
    if (QAction* const chosen = entries.value(which)) {
        chosen->setCheckable(true);
        chosen->setChecked(true);
        // In a group of its own it looks like the main menu's, and stays as it is when it is chosen again.
        (new QActionGroup(this))->addAction(chosen);
    }
}
