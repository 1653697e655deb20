#pragma once

#include <maya/MTypes.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Kinds of objects, for MObject::hasFn. The numbers differ between releases: never store them.
class MFn {
public:
    enum Type {
        kInvalid = 0,
        kBase = 1,
        kDependencyNode = 4,
        kDagNode = 107,
        kTransform = 110,
        kWorld = 247,
        kShape = 248,
        kCamera = 250,
        kLocator = 281,
        kPluginDependNode = 455,
        kPluginLocatorNode = 456,
        kAttribute = 561,
        kNumericAttribute = 562,
        kEnumAttribute = 568,
        kTypedAttribute = 570,
        kPlugin = 577,
        kData = 578,
        kDoubleArrayData = 580,
        kPluginData = 596,
        kPluginShape = 706,
        kToolContext = 1089
    };
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
