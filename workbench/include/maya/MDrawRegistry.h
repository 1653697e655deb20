#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MObject.h>
#include <maya/MPxDrawOverride.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN
namespace MHWRender {

/// Which override draws the nodes of a classification.
class MDrawRegistry {
public:
    /// The classification starts with "drawdb/geometry/" and is the one the node type was registered with. Fails when
    /// the pair is taken.
    static MStatus registerDrawOverrideCreator(const MString& drawClassification, const MString& registrantId,
                                               MPxDrawOverride* (*creator)(const MObject&));
    /// Also deletes the overrides made by it.
    static MStatus deregisterDrawOverrideCreator(const MString& drawClassification, const MString& registrantId);
};

}  // namespace MHWRender
OPENMAYA_MAJOR_NAMESPACE_CLOSE
