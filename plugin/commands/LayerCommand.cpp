#include "commands/LayerCommand.h"

#include "commands/Flags.h"

#include <maya/MArgList.h>

namespace {

// Some long names are registered without a dash. Callers type it all the same.
const Flag kFlags[] = {
    {"-act", "-active", MSyntax::kUnsigned},
    {"-cnt", "-count"},
    {"-add", "-addLayer"},
    {"-ins", "-insert", MSyntax::kLong},
    {"-del", "-delete", MSyntax::kUnsigned},
    {"-da", "-deleteAll"},
    {"-mv", "-move", MSyntax::kUnsigned, MSyntax::kLong},
    {"-mva", "-moveAll", MSyntax::kString},
    {"-n", "-name", MSyntax::kString},
    {"-nc", "-newCamera", MSyntax::kString},
    {"-en", "editName", MSyntax::kString, MSyntax::kUnsigned},
    {"-qn", "queryName", MSyntax::kUnsigned},
    {"-ev", "editVis", MSyntax::kBoolean, MSyntax::kUnsigned},
    {"-qv", "queryVis", MSyntax::kUnsigned},
    {"-eo", "editOpacity", MSyntax::kDouble, MSyntax::kUnsigned},
    {"-qo", "queryOpacity", MSyntax::kUnsigned},
    {"-es", "editState", MSyntax::kUnsigned, MSyntax::kUnsigned},
    {"-qs", "queryState", MSyntax::kUnsigned},
    {"-ls", "layerState", MSyntax::kUnsigned},
    {"-ifw", "importFramewright", MSyntax::kString, MSyntax::kString},
};

}  // namespace

void* LayerCommand::creator()
{
    return new LayerCommand;
}

MSyntax LayerCommand::newSyntax()
{
    MSyntax syntax;
    addFlags(syntax, kFlags);
    // No minimum: that the camera is missing is ours to say.
    syntax.setObjectType(MSyntax::kStringObjects);
    syntax.enableEdit(true);
    syntax.enableQuery(true);
    return syntax;
}

MStatus LayerCommand::doIt(const MArgList& list)
{
    MStatus status;
    const MArgDatabase args(syntax(), list, &status);
    return status ? MStatus(MStatus::kFailure) : status;
}
