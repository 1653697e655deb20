#pragma once

#include "commands/EditCommand.h"

#include <maya/MArgDatabase.h>
#include <maya/MSyntax.h>

/// The scene's drawing node: makes it, tells whether it is there, has its pictures rebuilt.
class NodeCommand : public EditCommand {
public:
    static void* creator();
    static MSyntax newSyntax();

    MStatus doIt(const MArgList& args) override;

private:
    struct Mode;
    static const Mode kModes[];

    MStatus queryCamera();
    MStatus queryExists();
    MStatus refreshLayers();
    MStatus refreshGhosting();
    MStatus createNode(const MArgDatabase& args);
};
