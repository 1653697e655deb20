#include "commands/UtilCommand.h"

#include "commands/Flags.h"

#include <maya/MArgList.h>

namespace {

constexpr MSyntax::MArgType kUnsigned = MSyntax::kUnsigned;

// Some long names are registered without a dash. Callers type it all the same.
const Flag kFlags[] = {
    {"-d", "-draw"},
    {"-t", "-transform"},
    {"-dc", "-drawColor", kUnsigned, kUnsigned, kUnsigned},
    {"-pt", "-pencilTool"},
    {"-bt", "-brushTool"},
    {"-et", "-eraserTool"},
    {"-lt", "-lineTool"},
    {"-at", "-arrowTool"},
    {"-elt", "-ellipseTool"},
    {"-rt", "-rectangleTool"},
    {"-tt", "-textTool"},
    {"-po", "-pencilOptions", kUnsigned, kUnsigned, kUnsigned},
    {"-bo", "-brushOptions", kUnsigned, kUnsigned, kUnsigned, kUnsigned},
    {"-eo", "-eraserOptions", kUnsigned, kUnsigned, kUnsigned, kUnsigned},
    {"-txo", "-textOptions", kUnsigned, kUnsigned, MSyntax::kString},
    {"-lo", "-lineOptions", kUnsigned, kUnsigned},
    {"-ao", "-arrowOptions", kUnsigned, kUnsigned},
    {"-elo", "-ellipseOptions", kUnsigned, kUnsigned},
    {"-ro", "-rectangleOptions", kUnsigned, kUnsigned},
    {"-gp", "-ghostPrevious", MSyntax::kLong},
    {"-gn", "-ghostNext", MSyntax::kLong},
    {"-gpc", "-ghostPreviousCount", kUnsigned},
    {"-gnc", "-ghostNextCount", kUnsigned},
    {"-gco", "-ghostColorOverride", kUnsigned},
    {"-gcp", "-ghostColorPrevious", kUnsigned, kUnsigned, kUnsigned},
    {"-gcn", "-ghostColorNext", kUnsigned, kUnsigned, kUnsigned},
    {"-tfd", "-timelineFrameDisplay", kUnsigned},
    {"-rtd", "-refreshTimelineDisplay"},
    {"-fv", "-floatingViewport"},
    {"-fvm", "-floatingViewportMove", MSyntax::kString},
    {"-lm", "-layerManager"},
    {"-rlm", "-refreshLayerManager"},
    {"-tb", "-toolbox"},
    {"-to", "-toolOptions"},
    {"-rtb", "-refreshToolbox"},
    {"-cp", "colorPalette"},
    {"-rtt", "retimingTool"},
    {"-nl", "-newLayer"},
    {"-lp", "-layerProperties"},
    {"-gs", "-ghostingSettings"},
    {"-fwi", "-framewrightImport"},
    {"-rui", "-resetUI"},
    {"-pr", "-preferences"},
    {"-ab", "-about"},
};

}  // namespace

void* UtilCommand::creator()
{
    return new UtilCommand;
}

MSyntax UtilCommand::newSyntax()
{
    MSyntax syntax;
    addFlags(syntax, kFlags);
    syntax.enableEdit(true);
    syntax.enableQuery(true);
    return syntax;
}

MStatus UtilCommand::doIt(const MArgList& list)
{
    MStatus status;
    const MArgDatabase args(syntax(), list, &status);
    return status ? MStatus(MStatus::kFailure) : status;
}
