#pragma once

// Every host class lives in a namespace that carries the major version; a using-directive makes the plain names
// resolve. Declaring a host class at global scope therefore names another class, and using it is ambiguous: include
// this header (or the class's own) instead.

#define OPENMAYA_MAJOR_NAMESPACE OpenMaya20190000

// Wrap the host's own headers.
#define OPENMAYA_MAJOR_NAMESPACE_OPEN                                                                                  \
    namespace Autodesk {                                                                                               \
    namespace Maya {                                                                                                   \
    namespace OPENMAYA_MAJOR_NAMESPACE {
#define OPENMAYA_MAJOR_NAMESPACE_CLOSE                                                                                 \
    }                                                                                                                  \
    }                                                                                                                  \
    }

/// Marks a member that still works but is on its way out.
#define OPENMAYA_DEPRECATED(version, message) [[deprecated("Deprecated in " #version ": " message)]]

OPENMAYA_MAJOR_NAMESPACE_OPEN

class M3dView;
class MAngle;
class MAnimControl;
class MArgDatabase;
class MArgList;
class MArgParser;
class MBoundingBox;
class MCallbackIdArray;
class MColor;
class MColorArray;
class MCommandResult;
class MCommonRenderSettingsData;
class MConditionMessage;
class MCursor;
class MDagModifier;
class MDagPath;
class MDagPathArray;
class MDataBlock;
class MDataHandle;
class MDGContext;
class MDGModifier;
class MDistance;
class MDoubleArray;
class MEvaluationNode;
class MEvent;
class MEventMessage;
class MFileIO;
class MFloatArray;
class MFn;
class MFnAttribute;
class MFnBase;
class MFnCamera;
class MFnDagNode;
class MFnData;
class MFnDependencyNode;
class MFnEnumAttribute;
class MFnNumericAttribute;
class MFnNumericData;
class MFnPlugin;
class MFnPluginData;
class MFnTransform;
class MFnTypedAttribute;
class MGlobal;
class MIntArray;
class MItDag;
class MMatrix;
class MMessage;
class MObject;
class MObjectHandle;
class MPlug;
class MPlugArray;
class MPoint;
class MPointArray;
class MPxCommand;
class MPxContext;
class MPxContextCommand;
class MPxData;
class MPxLocatorNode;
class MPxNode;
class MPxToolCommand;
class MQtUtil;
class MRenderUtil;
class MSelectionList;
class MSelectionMask;
class MSpace;
class MStatus;
class MString;
class MStringArray;
class MSyntax;
class MTime;
class MTypeId;
class MUintArray;
class MUserData;
class MUuid;
class MVector;
class MVectorArray;

namespace MHWRender {

class MBlendState;
class MDrawContext;
class MDrawRegistry;
class MFrameContext;
class MPassContext;
class MPxDrawOverride;
class MRenderer;
class MSamplerState;
class MSelectionInfo;
class MStateManager;
class MTexture;
class MTextureManager;
class MTextureUpdateRegion;
class MUIDrawManager;

}  // namespace MHWRender

OPENMAYA_MAJOR_NAMESPACE_CLOSE

using namespace Autodesk::Maya::OPENMAYA_MAJOR_NAMESPACE;
