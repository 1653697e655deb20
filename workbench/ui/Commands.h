#pragma once

namespace ui {

class UiObjects;

/// Registers the commands about windows, layouts, controls and camera panels. Without a main window nothing can be made
/// and nothing exists; refresh, lookThru and getPanel then do nothing, so that scripts made for the window run in
/// batch.
void registerWindowCommands(UiObjects& ui);

// The groups of them, in the order in which they are registered.
void registerWindows(UiObjects& ui);
void registerParents(UiObjects& ui);
void registerLayouts(UiObjects& ui);
void registerControls(UiObjects& ui);
void registerPanels(UiObjects& ui);

}  // namespace ui
