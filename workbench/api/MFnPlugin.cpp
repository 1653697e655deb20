#define MNoVersionString
#include <maya/MFnPlugin.h>

#include "api/Handles.h"
#include "api/Module.h"
#include "api/ModuleData.h"
#include "api/ModuleNode.h"
#include "api/Registration.h"
#include "api/TypeRegistration.h"

#include <maya/MPxLocatorNode.h>

#include <filesystem>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

/// The set's module; null when it is not attached to one.
api::ModulePtr moduleOf(const MFnBase& set)
{
    return api::moduleRecordOf(api::HandleAccess::object(set));
}

MStatus succeededIf(bool done)
{
    return done ? MStatus::kSuccess : MStatus::kFailure;
}

MString textOf(const MFnBase& set, std::string api::Module::*text, MStatus* status)
{
    const auto module = moduleOf(set);
    api::report(status, module ? MStatus::kSuccess : MStatus::kFailure);
    return module ? api::toHost((*module).*text) : MString();
}

/// The host's type under a kind of module node; null for kinds this host does not have.
const char* baseTypeOf(MPxNode::Type type)
{
    switch (type) {
    case MPxNode::kDependNode: return "dependNode";
    case MPxNode::kLocatorNode: return "locator";
    case MPxNode::kSurfaceShape: return "shape";
    case MPxNode::kTransformNode: return "transform";
    default: return nullptr;
    }
}

/// The attributes that locator classes name are those of the current session's own locator type.
void setLocatorAttributes(const kernel::NodeType& locator)
{
    const struct {
        MObject& object;
        const char* name;
    } attributes[] = {
        {MPxLocatorNode::localPosition, "localPosition"},   {MPxLocatorNode::localPositionX, "localPositionX"},
        {MPxLocatorNode::localPositionY, "localPositionY"}, {MPxLocatorNode::localPositionZ, "localPositionZ"},
        {MPxLocatorNode::localScale, "localScale"},         {MPxLocatorNode::localScaleX, "localScaleX"},
        {MPxLocatorNode::localScaleY, "localScaleY"},       {MPxLocatorNode::localScaleZ, "localScaleZ"},
    };
    for (const auto& attribute : attributes)
        attribute.object = api::toObject(locator.attribute(attribute.name));
}

}  // namespace

MFnPlugin::MFnPlugin() = default;

MFnPlugin::MFnPlugin(MObject& object, const char* vendor, const char* version, const char*, MStatus* ReturnStatus)
{
    const MStatus status = MFnBase::setObject(object);
    api::report(ReturnStatus, status.statusCode());
    const auto module = moduleOf(*this);
    if (!module || module->isDescribed)
        return;
    module->isDescribed = true;
    module->vendor = vendor ? vendor : "";
    module->version = version ? version : "";
}

MFn::Type MFnPlugin::type() const
{
    return MFn::kPlugin;
}

MStatus MFnPlugin::registerCommand(const MString& name, MCreatorFunction creator, MCreateSyntaxFunction syntax)
{
    const auto module = moduleOf(*this);
    return succeededIf(module
                       && api::registerCommand(*module->session, module->name, api::toKernel(name), creator, syntax));
}

MStatus MFnPlugin::deregisterCommand(const MString& name)
{
    const auto module = moduleOf(*this);
    return succeededIf(module && api::deregisterCommand(*module->session, api::toKernel(name)));
}

MStatus MFnPlugin::registerContextCommand(const MString& name, MCreatorFunction creator)
{
    const auto module = moduleOf(*this);
    return succeededIf(module
                       && api::registerContextCommand(*module->session, module->name, api::toKernel(name), creator));
}

MStatus MFnPlugin::registerContextCommand(const MString& name, MCreatorFunction creator, const MString& toolCommandName,
                                          MCreatorFunction toolCommandCreator, MCreateSyntaxFunction toolSyntax)
{
    const MStatus status = registerContextCommand(name, creator);
    if (!status)
        return status;
    const MStatus toolStatus = registerCommand(toolCommandName, toolCommandCreator, toolSyntax);
    if (!toolStatus)
        deregisterContextCommand(name);
    return toolStatus;
}

MStatus MFnPlugin::deregisterContextCommand(const MString& name)
{
    const auto module = moduleOf(*this);
    return succeededIf(module && api::deregisterContextCommand(*module->session, api::toKernel(name)));
}

MStatus MFnPlugin::deregisterContextCommand(const MString& name, const MString& toolCommandName)
{
    const MStatus status = deregisterContextCommand(name);
    const MStatus toolStatus = deregisterCommand(toolCommandName);
    return status ? toolStatus : status;
}

MStatus MFnPlugin::registerData(const MString& typeName, const MTypeId& typeId, MCreatorFunction creator, MPxData::Type)
{
    const auto module = moduleOf(*this);
    const std::string name = api::toKernel(typeName);
    if (!module || name.empty() || !creator)
        return MStatus::kInvalidParameter;
    kernel::DataType type;
    type.name = name;
    type.id = typeId.id();
    type.plugin = module->name;
    type.make = [name, creator] { return api::ModuleData::make(name, creator); };
    if (!module->session->dataTypes.add(std::move(type)))
        return MStatus::kFailure;
    api::ModuleData::setCreator(name, creator);
    module->dataTypes.push_back(name);
    return MStatus::kSuccess;
}

MStatus MFnPlugin::deregisterData(const MTypeId& typeId)
{
    const auto module = moduleOf(*this);
    const auto* type = module ? module->session->dataTypes.findId(typeId.id()) : nullptr;
    return succeededIf(type && api::removeDataType(*module, type->name));
}

MStatus MFnPlugin::registerNode(const MString& typeName, const MTypeId& typeId, MCreatorFunction creator,
                                MInitializeFunction initialize, MPxNode::Type type, const MString* classification)
{
    const auto module = moduleOf(*this);
    const char* base = baseTypeOf(type);
    if (!module || typeName.isEmpty() || !creator)
        return MStatus::kInvalidParameter;
    if (!base)
        return MStatus::kNotImplemented;
    auto& types = module->session->nodeTypes;
    kernel::NodeType added;
    added.name = api::toKernel(typeName);
    added.id = typeId.id();
    added.base = types.find(base);
    added.role = added.base->role;
    added.plugin = module->name;
    added.pluginVersion = module->version;
    added.classification = classification ? api::toKernel(*classification) : std::string();
    added.makeProxy = [creator](kernel::Node& node) -> std::unique_ptr<kernel::NodeProxy> {
        return std::make_unique<api::ModuleNode>(node, static_cast<MPxNode*>(creator()));
    };
    if (types.find(added.name) || types.findId(added.id))
        return MStatus::kFailure;
    if (type == MPxNode::kLocatorNode)
        setLocatorAttributes(*added.base);
    if (initialize) {
        const api::TypeRegistration registration(added);
        const MStatus status = initialize();
        if (!status)
            return status;
    }
    const std::string name = added.name;
    if (!types.add(std::move(added)))
        return MStatus::kFailure;
    module->nodeTypes.push_back(name);
    return MStatus::kSuccess;
}

MStatus MFnPlugin::deregisterNode(const MTypeId& typeId)
{
    const auto module = moduleOf(*this);
    const auto* type = module ? module->session->nodeTypes.findId(typeId.id()) : nullptr;
    return succeededIf(type && api::removeNodeType(*module, type->name));
}

MStatus MFnPlugin::registerUI(const MString& createProc, const MString& deleteProc, const MString& createBatchProc,
                              const MString& deleteBatchProc)
{
    const auto module = moduleOf(*this);
    if (!module)
        return MStatus::kFailure;
    const bool batch = module->session->batch;
    module->createProcedure = api::toKernel(batch ? createBatchProc : createProc);
    module->deleteProcedure = api::toKernel(batch ? deleteBatchProc : deleteProc);
    return MStatus::kSuccess;
}

MString MFnPlugin::vendor(MStatus* ReturnStatus) const
{
    return textOf(*this, &api::Module::vendor, ReturnStatus);
}

MString MFnPlugin::version(MStatus* ReturnStatus) const
{
    return textOf(*this, &api::Module::version, ReturnStatus);
}

MString MFnPlugin::apiVersion(MStatus* ReturnStatus) const
{
    return textOf(*this, &api::Module::apiVersion, ReturnStatus);
}

MString MFnPlugin::name(MStatus* ReturnStatus) const
{
    return textOf(*this, &api::Module::name, ReturnStatus);
}

MString MFnPlugin::loadPath(MStatus* ReturnStatus) const
{
    const std::string path = api::toKernel(textOf(*this, &api::Module::path, ReturnStatus));
    return api::toHost(std::filesystem::path(path).parent_path().string());
}

MStatus MFnPlugin::setName(const MString&, bool)
{
    return MStatus::kNotImplemented;
}

MStatus MFnPlugin::setVersion(const MString& version)
{
    const auto module = moduleOf(*this);
    if (!module)
        return MStatus::kFailure;
    module->version = api::toKernel(version);
    return MStatus::kSuccess;
}

MObject MFnPlugin::findPlugin(const MString& name)
{
    return api::toObject(api::findModule(api::toKernel(name)));
}

bool MFnPlugin::isNodeRegistered(const MString& typeName)
{
    return kernel::Session::current().nodeTypes.find(api::toKernel(typeName)) != nullptr;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
