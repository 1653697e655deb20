#pragma once

#include "commands/EditCommand.h"

#include <maya/MSyntax.h>

/// Makes the stroke the user has just drawn part of its frame; with it, as one undo step, what the tool made for it.
class StrokeCommand : public EditCommand {
public:
    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
    bool isUndoable() const override { return true; }
};
