#include <maya/MFnTransform.h>

#include "api/Handles.h"

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

const char* const kTranslate[] = {"translateX", "translateY", "translateZ"};
const char* const kScale[] = {"scaleX", "scaleY", "scaleZ"};

MStatus setParts(const MFnTransform& set, const char* const (&names)[3], const double (&values)[3])
{
    for (int axis = 0; axis < 3; ++axis) {
        const MStatus status = set.findPlug(names[axis], false).setDouble(values[axis]);
        if (!status)
            return status;
    }
    return MStatus::kSuccess;
}

}  // namespace

MFnTransform::MFnTransform() = default;

MFnTransform::MFnTransform(MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, setObject(object).statusCode());
}

MFnTransform::MFnTransform(const MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, setObject(object).statusCode());
}

MFnTransform::MFnTransform(const MDagPath& path, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, setObject(path).statusCode());
}

MFn::Type MFnTransform::type() const
{
    return MFn::kTransform;
}

MObject MFnTransform::create(MObject& parent, MStatus* ReturnStatus)
{
    return MFnDagNode::create(MString("transform"), parent, ReturnStatus);
}

MVector MFnTransform::getTranslation(MSpace::Space space, MStatus* ReturnStatus) const
{
    const auto node = api::nodeOf(m_object);
    const bool isWorld = space == MSpace::kWorld;
    if (!node || (isWorld && !m_path.isValid())) {
        api::report(ReturnStatus, MStatus::kFailure);
        return MVector();
    }
    api::report(ReturnStatus, MStatus::kSuccess);
    const kernel::Matrix4 matrix = isWorld ? node->worldMatrix() : node->localMatrix();
    return MVector(matrix.m[3]);
}

MStatus MFnTransform::setTranslation(const MVector& translation, MSpace::Space space)
{
    if (space == MSpace::kWorld)
        return MStatus::kInvalidParameter;
    return setParts(*this, kTranslate, {translation.x, translation.y, translation.z});
}

MStatus MFnTransform::getScale(double scale[3]) const
{
    const auto node = api::nodeOf(m_object);
    if (!node)
        return MStatus::kFailure;
    for (int axis = 0; axis < 3; ++axis)
        scale[axis] = node->number(kScale[axis]);
    return MStatus::kSuccess;
}

MStatus MFnTransform::setScale(const double scale[3])
{
    return setParts(*this, kScale, {scale[0], scale[1], scale[2]});
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
