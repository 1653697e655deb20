#pragma once

#include "commands/EditCommand.h"

#include <maya/MArgDatabase.h>
#include <maya/MSyntax.h>

/// Everything the user can do with the layers of one camera: each change is one step to undo.
class LayerCommand : public EditCommand {
public:
    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;
};
