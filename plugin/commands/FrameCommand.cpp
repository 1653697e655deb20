#include "commands/FrameCommand.h"

#include "commands/Flags.h"

#include <maya/MArgList.h>

namespace {

// The names of the last rows are registered without a dash. Callers type it all the same.
const Flag kFlags[] = {
    {"-ins", "-insert"},
    {"-dup", "-duplicate"},
    {"-del", "-delete"},
    {"-cut", "-cutFrame"},
    {"-cp", "-copy"},
    {"-pst", "-paste"},
    {"-clr", "-clear"},
    {"-sf", "-stepForward"},
    {"-sb", "-stepBack"},
    {"ret", "retime", MSyntax::kLong},
    {"rel", "relative"},
    {"mvn", "moveToNext"},
    {"mv", "move", MSyntax::kLong, MSyntax::kLong, MSyntax::kLong},
};

}  // namespace

void* FrameCommand::creator()
{
    return new FrameCommand;
}

MSyntax FrameCommand::newSyntax()
{
    MSyntax syntax;
    addFlags(syntax, kFlags);
    syntax.setObjectType(MSyntax::kStringObjects);
    return syntax;
}

MStatus FrameCommand::doIt(const MArgList& list)
{
    MStatus status;
    const MArgDatabase args(syntax(), list, &status);
    return status ? MStatus(MStatus::kFailure) : status;
}
