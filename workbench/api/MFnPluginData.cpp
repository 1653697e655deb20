#include <maya/MFnPluginData.h>

#include "api/Handles.h"
#include "api/ModuleData.h"
#include "kernel/Session.h"

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

MPxData* moduleObject(const MFnBase& set, MStatus* status)
{
    const auto data = std::dynamic_pointer_cast<api::ModuleData>(api::dataOf(api::HandleAccess::object(set)));
    MPxData* object = data ? data->object() : nullptr;
    api::report(status, object ? MStatus::kSuccess : MStatus::kFailure);
    return object;
}

}  // namespace

MFnPluginData::MFnPluginData() = default;

MFnPluginData::MFnPluginData(MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnBase::setObject(object).statusCode());
}

MFnPluginData::MFnPluginData(const MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnBase::setObject(object).statusCode());
}

MFn::Type MFnPluginData::type() const
{
    return MFn::kPluginData;
}

MObject MFnPluginData::create(const MTypeId& id, MStatus* ReturnStatus)
{
    const auto* type = kernel::Session::current().dataTypes.findId(id.id());
    m_object = type ? api::toObject(type->make()) : MObject();
    api::report(ReturnStatus, m_object.isNull() ? MStatus::kFailure : MStatus::kSuccess);
    return m_object;
}

MTypeId MFnPluginData::typeId(MStatus* ReturnStatus) const
{
    const auto data = api::dataOf(m_object);
    api::report(ReturnStatus, data ? MStatus::kSuccess : MStatus::kFailure);
    return data ? MTypeId(data->typeId()) : MTypeId();
}

MPxData* MFnPluginData::data(MStatus* ReturnStatus)
{
    return moduleObject(*this, ReturnStatus);
}

const MPxData* MFnPluginData::constData(MStatus* ReturnStatus) const
{
    return moduleObject(*this, ReturnStatus);
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
