#pragma once

#include <maya/MObject.h>
#include <maya/MString.h>
#include <maya/MTypeId.h>

namespace api {
struct HandleAccess;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A module's own object behind a node of a type it registered. Its constructor runs before the node exists: plugs,
/// name and thisMObject() are there from postConstructor() on. It is deleted with the node, when neither the scene nor
/// the undo queue holds that any more.
class MPxNode {
public:
    enum Type {
        kDependNode,
        kLocatorNode,
        kDeformerNode,
        kManipContainer,
        kSurfaceShape,
        kFieldNode,
        kEmitterNode,
        kSpringNode,
        kIkSolverNode,
        kHardwareShader,
        kHwShaderNode,
        kTransformNode,
        kObjectSet,
        kFluidEmitterNode,
        kImagePlaneNode,
        kParticleAttributeMapperNode,
        kCameraSetNode,
        kConstraintNode,
        kManipulatorNode,
        kMotionPathNode,
        kClientDeviceNode,
        kThreadedDeviceNode,
        kAssembly,
        kSkinCluster,
        kGeometryFilter,
        kBlendShape,
        kLast,
    };
    enum SchedulingType {
        kParallel,
        kSerial,
        kGloballySerial,
        kUntrusted,
        kDefaultScheduling = kSerial,
        kSerialize = kSerial,
        kGloballySerialize = kGloballySerial
    };
    enum PostEvaluationType { kEvaluatedIndirectly, kEvaluatedDirectly, kLeaveDirty };

    MPxNode();
    virtual ~MPxNode();

    virtual void postConstructor();
    virtual MStatus compute(const MPlug& plug, MDataBlock& block);
    virtual bool getInternalValue(const MPlug& plug, MDataHandle& handle);
    virtual bool setInternalValue(const MPlug& plug, const MDataHandle& handle);
    virtual int internalArrayCount(const MPlug& plug) const;
    virtual void copyInternalData(MPxNode* source);
    virtual MStatus legalConnection(const MPlug& plug, const MPlug& other, bool asSrc, bool& isLegal) const;
    virtual MStatus legalDisconnection(const MPlug& plug, const MPlug& other, bool asSrc, bool& isLegal) const;
    virtual MStatus connectionMade(const MPlug& plug, const MPlug& other, bool asSrc);
    virtual MStatus connectionBroken(const MPlug& plug, const MPlug& other, bool asSrc);
    virtual MStatus dependsOn(const MPlug& plug, const MPlug& other, bool& depends) const;
    virtual MStatus setDependentsDirty(const MPlug& plug, MPlugArray& affected);
    virtual MStatus preEvaluation(const MDGContext& context, const MEvaluationNode& node);
    virtual MStatus postEvaluation(const MDGContext& context, const MEvaluationNode& node, PostEvaluationType type);
    virtual SchedulingType schedulingType() const;
    virtual Type type() const;
    virtual bool isAbstractClass() const;
    virtual bool isPassiveOutput(const MPlug& plug) const;
    virtual bool existWithoutInConnections(MStatus* ReturnStatus = nullptr) const;
    virtual bool existWithoutOutConnections(MStatus* ReturnStatus = nullptr) const;

    MObject thisMObject() const;
    MTypeId typeId() const;
    MString typeName() const;
    MString name() const;
    MStatus setExistWithoutInConnections(bool exist);
    MStatus setExistWithoutOutConnections(bool exist);
    MStatus setDoNotWrite(bool doNotWrite);

    // For the type's initialize function only; elsewhere they fail.
    static MStatus addAttribute(const MObject& attribute);
    static MStatus attributeAffects(const MObject& whenChanges, const MObject& isAffected);
    static MStatus inheritAttributesFrom(const MString& typeName);

protected:
    virtual bool doNotWrite(MStatus* ReturnStatus = nullptr) const;

private:
    MPxNode(const MPxNode&) = delete;
    MPxNode& operator=(const MPxNode&) = delete;

    friend struct api::HandleAccess;
    struct Owner;
    Owner* m_owner = nullptr;
    bool m_existWithoutIn = true;
    bool m_existWithoutOut = true;
    bool m_doNotWrite = false;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
