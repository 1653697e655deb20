#pragma once

#include <maya/MFnBase.h>
#include <maya/MPxData.h>
#include <maya/MPxNode.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

typedef void* (*MCreatorFunction)();
typedef MSyntax (*MCreateSyntaxFunction)();
typedef MStatus (*MInitializeFunction)();

/// The module being loaded or unloaded, over the object its entry points are given. Names and ids are refused when
/// taken. Creators return the derived object; it belongs to the host from then on.
class MFnPlugin : public MFnBase {
public:
    MFnPlugin();
    /// The texts are kept by the first set made during a load.
    MFnPlugin(MObject& object, const char* vendor = "Unknown", const char* version = "Unknown",
              const char* requiredApiVersion = "Any", MStatus* ReturnStatus = nullptr);
    MFn::Type type() const override;

    MStatus registerCommand(const MString& name, MCreatorFunction creator, MCreateSyntaxFunction syntax = nullptr);
    MStatus deregisterCommand(const MString& name);
    MStatus registerContextCommand(const MString& name, MCreatorFunction creator);
    MStatus registerContextCommand(const MString& name, MCreatorFunction creator, const MString& toolCommandName,
                                   MCreatorFunction toolCommandCreator, MCreateSyntaxFunction toolSyntax = nullptr);
    MStatus deregisterContextCommand(const MString& name);
    MStatus deregisterContextCommand(const MString& name, const MString& toolCommandName);
    MStatus registerData(const MString& typeName, const MTypeId& typeId, MCreatorFunction creator,
                         MPxData::Type type = MPxData::kData);
    MStatus deregisterData(const MTypeId& typeId);
    /// classification is read during the call; null for none.
    MStatus registerNode(const MString& typeName, const MTypeId& typeId, MCreatorFunction creator,
                         MInitializeFunction initialize, MPxNode::Type type = MPxNode::kDependNode,
                         const MString* classification = nullptr);
    /// Nodes of the type become unknown nodes that keep their values.
    MStatus deregisterNode(const MTypeId& typeId);
    /// Procedures that make and remove the module's part of the user interface: the first pair runs when there is a
    /// window, the second in batch mode.
    MStatus registerUI(const MString& createProc, const MString& deleteProc, const MString& createBatchProc = "",
                       const MString& deleteBatchProc = "");

    MString vendor(MStatus* ReturnStatus = nullptr) const;
    MString version(MStatus* ReturnStatus = nullptr) const;
    MString apiVersion(MStatus* ReturnStatus = nullptr) const;
    MString name(MStatus* ReturnStatus = nullptr) const;
    MString loadPath(MStatus* ReturnStatus = nullptr) const;       ///< the folder of the module's file
    MStatus setName(const MString& name, bool makeUnique = true);  ///< kNotImplemented: the loader names modules
    MStatus setVersion(const MString& version);
    static MObject findPlugin(const MString& name);
    static bool isNodeRegistered(const MString& typeName);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE

// Exactly one source of a module carries the version it was built against.
#ifndef MNoVersionString
#define MAYA_VERSION_TEXT_OF(number) #number
#define MAYA_VERSION_TEXT(number) MAYA_VERSION_TEXT_OF(number)
extern "C" __attribute__((visibility("default"))) const char MApiVersion[];
const char MApiVersion[] = MAYA_VERSION_TEXT(MAYA_API_VERSION);
#endif
