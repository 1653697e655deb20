#pragma once

#include "settings/Panels.h"

#include <maya/MStatus.h>

// What the util command does with the plug-in's windows. In batch mode there are none, and nobody is asked anything.

/// Shows a hidden panel; gives a visible one the focus and raises it, out of the task bar if need be.
MStatus showPanel(Panel panel);
MStatus openDialog(Dialog dialog);
/// The properties of the current camera's active layer; fails without one.
MStatus openLayerProperties();
/// Has the layer list filled anew.
MStatus refreshLayerManager();
/// Once the user agrees, destroys every panel: each comes back at its default place when it is next opened.
MStatus resetPanels();

/// Opens the floating view and moves a camera's layers there. An empty name asks the user when there is a drawing;
/// an unknown one moves nothing.
MStatus openFloatingViewportWith(const QString& camera);
