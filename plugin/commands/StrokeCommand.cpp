#include "commands/StrokeCommand.h"

#include "commands/CommitStrokeEdit.h"
#include "commands/Flags.h"
#include "settings/Messages.h"
#include "settings/ScriptBridge.h"
#include "settings/Text.h"

#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MStringArray.h>

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
    MStringArray objects;
    args.getObjects(objects);
    if (objects.length() == 0) {
        messages::error("Camera not specified");
        return MStatus::kFailure;
    }
    const QString camera = toQString(objects[0]);
    if (!script::cameraExists(camera)) {
        messages::error(QString("Camera does not exist: %1").arg(camera));
        return MStatus::kFailure;
    }
    int layerAdded = -1;
    args.getFlagArgument("-layerAdded", 0, layerAdded);
    const StrokeTarget target = {camera, layerAdded, args.isFlagSet("-frameAdded")};
    return execute(std::unique_ptr<Edit>(new CommitStrokeEdit(target)));
}
