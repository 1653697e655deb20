#include <maya/MRenderUtil.h>

#include "api/Handles.h"
#include "kernel/Session.h"

#include <algorithm>

namespace {

/// A number of a default node, or the fallback when there is no such node or attribute.
double number(const char* node, const char* attribute, double fallback)
{
    const kernel::NodePtr found = kernel::Session::current().scene.findOrNull(node);
    return found && found->attribute(attribute) ? found->number(attribute) : fallback;
}

}  // namespace

OPENMAYA_MAJOR_NAMESPACE_OPEN

MCommonRenderSettingsData::MCommonRenderSettingsData()
    : width(960), height(540), deviceAspectRatio(float(960.0 / 540.0)), pixelAspectRatio(1), dotPerInch(72),
      frameStart(1.0, MTime::uiUnit()), frameEnd(10.0, MTime::uiUnit()), frameBy(1)
{}

MCommonRenderSettingsData::~MCommonRenderSettingsData() = default;

void MRenderUtil::getCommonRenderSettings(MCommonRenderSettingsData& data)
{
    const MCommonRenderSettingsData defaults;
    data = defaults;
    data.width = unsigned(std::max(0.0, number("defaultResolution", "width", defaults.width)));
    data.height = unsigned(std::max(0.0, number("defaultResolution", "height", defaults.height)));
    data.deviceAspectRatio = float(number("defaultResolution", "deviceAspectRatio", defaults.deviceAspectRatio));
    if (data.width > 0)
        data.pixelAspectRatio = data.deviceAspectRatio * float(data.height) / float(data.width);
    data.dotPerInch = float(number("defaultResolution", "dotsPerInch", defaults.dotPerInch));
    data.frameStart = MTime(number("defaultRenderGlobals", "startFrame", 1), MTime::uiUnit());
    data.frameEnd = MTime(number("defaultRenderGlobals", "endFrame", 10), MTime::uiUnit());
    data.frameBy = float(number("defaultRenderGlobals", "byFrameStep", 1));
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
