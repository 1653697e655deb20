#include "commands/StrokeCommand.h"

#include "commands/Arguments.h"
#include "commands/CommitStrokeEdit.h"
#include "commands/Flags.h"

#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>

namespace {

const Flag kFlags[] = {
    {"-la", "-layerAdded", MSyntax::kLong},
    {"-fa", "-frameAdded", MSyntax::kNoArg},
};

}  // namespace

void* StrokeCommand::creator()
{
    return new StrokeCommand;
}

MSyntax StrokeCommand::newSyntax()
{
    MSyntax syntax;
    addFlags(syntax, kFlags);
    // No minimum: that the camera is missing is ours to say.
    syntax.setObjectType(MSyntax::kStringObjects);
    return syntax;
}

MStatus StrokeCommand::doIt(const MArgList& list)
{
    MStatus status;
    const MArgDatabase args(syntax(), list, &status);
    if (!status) {
        return status;
    }
    QString camera;
    if (!readCameraArgument(args, camera)) {
        return MStatus::kFailure;
    }
    int layerAdded = -1;
    args.getFlagArgument("-layerAdded", 0, layerAdded);
    const StrokeTarget target = {camera, layerAdded, args.isFlagSet("-frameAdded")};
    return execute<CommitStrokeEdit>(target);
}
