#pragma once

#include <maya/MStatus.h>

class BaseNode;

/// One undoable thing a command can do. It names what it changes by value and looks it up on every run, for nothing
/// of the scene survives an undo and redo of the steps before.
class Edit {
public:
    virtual ~Edit() = default;
    virtual MStatus execute() { return redo(); }  ///< the first run, when it differs
    virtual MStatus redo() = 0;
    virtual MStatus undo() = 0;
};

/// An edit of the scene's drawing; fails in a scene without one. Undone or redone while the tool in use has something
/// under way, it finds the drawing without what that is, and without the layer and the frame that were made for it.
class DrawingEdit : public Edit {
public:
    MStatus execute() final;
    MStatus redo() final;
    MStatus undo() final;

protected:
    virtual MStatus executeOn(BaseNode& node) { return redoOn(node); }
    virtual MStatus redoOn(BaseNode& node) = 0;
    virtual MStatus undoOn(BaseNode& node) = 0;

private:
    MStatus rerun(MStatus (DrawingEdit::*step)(BaseNode&));
};
