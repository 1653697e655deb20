#include "contexts/TransformContext.h"

#include "settings/Names.h"

#include <maya/MCursor.h>

namespace {

const char kSelectingHelp[] = "Select region to transform and press Enter. No selection will apply transform to entire"
                              " image.";
const char kTransformingHelp[] = "Translate(LMB)  Rotate(Shift+LMB)  Scale(MMB)  Apply Changes(Enter)"
                                 "  Revert(Backspace)  Cancel(ESC)";

}  // namespace

TransformContext::TransformContext()
{
    setTitleString("Transform Context");
    setImage(":/icons/transform_context_01.png", MPxContext::kImage1);
    setCursor(MCursor::editCursor);
}

void TransformContext::toolOnSetup(MEvent&)
{
    m_state = State::Selecting;
    showHelp();
}

void TransformContext::getClassName(MString& name) const
{
    name = names::kTransformContextCommand;
}

MStatus TransformContext::helpStateHasChanged(MEvent&)
{
    return showHelp();
}

MStatus TransformContext::showHelp()
{
    return setHelpString(m_state == State::Selecting ? kSelectingHelp : kTransformingHelp);
}
