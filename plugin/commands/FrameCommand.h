#pragma once

#include "commands/EditCommand.h"

#include <maya/MArgDatabase.h>
#include <maya/MSyntax.h>

/// Edits the frames of a camera's active layer over time: all but the copy are steps to undo.
class FrameCommand : public EditCommand {
public:
    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
};
