#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MString.h>
#include <maya/MTime.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The settings every renderer shares. Widths and heights are pixels.
class MCommonRenderSettingsData {
public:
    MCommonRenderSettingsData();
    ~MCommonRenderSettingsData();

    MString name;
    unsigned int width;
    unsigned int height;
    float deviceAspectRatio;  ///< pixel aspect times width over height
    float pixelAspectRatio;
    float dotPerInch;
    MTime frameStart;
    MTime frameEnd;
    float frameBy;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
