#include <maya/MPxContext.h>

#include "api/Access.h"
#include "api/Handles.h"

using api::report;

OPENMAYA_MAJOR_NAMESPACE_OPEN

MPxContext::MPxContext() : m_state(new api::ContextState) {}

MPxContext::~MPxContext() = default;

void MPxContext::toolOnSetup(MEvent&) {}

void MPxContext::toolOffCleanup() {}

MStatus MPxContext::doPress(MEvent&, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&)
{
    return MStatus::kUnknownParameter;
}

MStatus MPxContext::doRelease(MEvent&, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&)
{
    return MStatus::kUnknownParameter;
}

MStatus MPxContext::doDrag(MEvent&, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&)
{
    return MStatus::kUnknownParameter;
}

MStatus MPxContext::doHold(MEvent&, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&)
{
    return MStatus::kUnknownParameter;
}

MStatus MPxContext::doPtrMoved(MEvent&, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&)
{
    return MStatus::kUnknownParameter;
}

MStatus MPxContext::drawFeedback(MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&)
{
    return MStatus::kSuccess;
}

MStatus MPxContext::doPress(MEvent&)
{
    return MStatus::kSuccess;
}

MStatus MPxContext::doRelease(MEvent&)
{
    return MStatus::kSuccess;
}

MStatus MPxContext::doDrag(MEvent&)
{
    return MStatus::kSuccess;
}

MStatus MPxContext::doHold(MEvent&)
{
    return MStatus::kSuccess;
}

MStatus MPxContext::doPtrMoved(MEvent&)
{
    return MStatus::kSuccess;
}

MStatus MPxContext::doEnterRegion(MEvent&)
{
    return MStatus::kSuccess;
}

MStatus MPxContext::helpStateHasChanged(MEvent&)
{
    return MStatus::kSuccess;
}

void MPxContext::deleteAction() {}

void MPxContext::completeAction() {}

void MPxContext::abortAction() {}

void MPxContext::getClassName(MString& name) const
{
    name = className();
}

const char* MPxContext::className()
{
    return "MPxContext";
}

MStatus MPxContext::setTitleString(const MString& title)
{
    m_state->title = api::toKernel(title);
    api::ToolBox::instance().contextChanged(*this);
    return MStatus::kSuccess;
}

MStatus MPxContext::setImage(const MString& file, ImageIndex index)
{
    if (index < kImage1 || index > kImage3)
        return MStatus::kInvalidParameter;
    m_state->images[index] = file;
    return MStatus::kSuccess;
}

MString MPxContext::image(ImageIndex index, MStatus* ReturnStatus) const
{
    const bool ok = index >= kImage1 && index <= kImage3;
    report(ReturnStatus, ok ? MStatus::kSuccess : MStatus::kInvalidParameter);
    return ok ? m_state->images[index] : MString();
}

MStatus MPxContext::setCursor(const MCursor& cursor)
{
    m_state->cursor = cursor;
    api::ToolBox::instance().contextChanged(*this);
    return MStatus::kSuccess;
}

MStatus MPxContext::setHelpString(const MString& text)
{
    m_state->help = api::toKernel(text);
    api::ToolBox::instance().contextChanged(*this);
    return MStatus::kSuccess;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
