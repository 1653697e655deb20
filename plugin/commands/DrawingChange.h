#pragma once

#include "commands/Edit.h"

class LayerManager;

/// An edit of layers or frames. A first run that fails leaves a stroke in progress as it was, too. Whenever it
/// succeeded, done or undone, every layer shows what it has at the scene's time and all views and marks are drawn anew.
class DrawingChange : public DrawingEdit {
protected:
    MStatus executeOn(BaseNode& node) override;
    MStatus redoOn(BaseNode& node) override;
    MStatus undoOn(BaseNode& node) override;

    /// Fixes, before the first run, what every later one goes by. False, and reported, when the edit cannot be done.
    virtual bool prepare(LayerManager& manager);
    // False leaves the drawing as it was.
    virtual bool apply(LayerManager& manager) = 0;
    virtual bool revert(LayerManager& manager) = 0;
    virtual void applied(BaseNode& node);  ///< after every apply() that succeeded
};
