#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MCommonRenderSettingsData.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

class MRenderUtil {
public:
    /// Fills data from the scene's render nodes.
    static void getCommonRenderSettings(MCommonRenderSettingsData& data);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
