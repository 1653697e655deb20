#pragma once

#include <QString>

class QWidget;

enum class Panel { LayerManager, Toolbox, ToolOptions, ColorPalette, RetimingTool };
enum class Dialog { NewLayer, GhostingSettings, Preferences, About };

/// The plug-in's windows, as the util command reaches them. Whoever has them installs itself; without one, or without
/// a window, a panel is simply absent.
class Panels {
public:
    virtual ~Panels() = default;

    /// The one panel of its kind, made at the first call; null when it cannot be made. Once it is destroyed the next
    /// call makes another.
    virtual QWidget* panel(Panel panel) = 0;
    virtual QWidget* existingPanel(Panel panel) = 0;  ///< null when it was not made, or is destroyed
    /// Shows what is set now in a panel that exists.
    virtual void refresh(Panel panel) = 0;

    // Dialogs; false for one that cannot be made. What the user answers makes no difference.
    virtual bool open(Dialog dialog) = 0;
    virtual bool openLayerProperties(const QString& camera, int layerIndex) = 0;

    enum class Places { Keep, Forget };
    /// Closes and destroys every panel. Where those that exist are goes into the preferences, or all places go from
    /// there, so that each panel comes back at its default one.
    void destroyAll(Places places);

    static Panels* installed();
    static void install(Panels* panels);        ///< a loan; null to take it back
    static void refreshInstalled(Panel panel);  ///< nothing happens to one that does not exist
};
