#pragma once

#include "commands/Edit.h"

class LayerManager;

/// An edit of layers or frames. A first run that fails leaves what the tool has under way as it was, too. Whenever it
/// succeeded, done or undone, every layer shows what it has at the scene's time and all views and marks are drawn anew.
class DrawingChange : public DrawingEdit {
protected:
    MStatus executeOn(BaseNode& node) override;
    MStatus redoOn(BaseNode& node) override;
    MStatus undoOn(BaseNode& node) override;

    /// Finds, before the first run, what the user means, who sees what was made for a floating paste too. False, and
    /// reported, when that cannot be edited.
    virtual bool aim(const LayerManager& manager);
    /// Fixes, after that, what every later run goes by; what was made for the paste is out of the drawing from here on.
    /// False, and reported, when the edit cannot be done.
    virtual bool prepare(LayerManager& manager);
    virtual bool changesAnything() const;  ///< of the drawing; a first run that does not leaves what is under way, too
    // False leaves the drawing as it was.
    virtual bool apply(LayerManager& manager) = 0;
    virtual bool reapply(LayerManager& manager);  ///< the redo, when it differs
    virtual bool revert(LayerManager& manager) = 0;
    virtual void applied(BaseNode& node);  ///< after every one of the first two that succeeded
};
