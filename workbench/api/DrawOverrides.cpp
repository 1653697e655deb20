#include "api/DrawOverrides.h"

#include "api/Access.h"
#include "api/DrawList.h"
#include "api/Handles.h"
#include "api/Registration.h"
#include "kernel/Session.h"

#include <maya/MDrawRegistry.h>
#include <maya/MPxDrawOverride.h>

#include <algorithm>
#include <map>
#include <memory>
#include <sstream>

namespace api {

namespace {

using Override = MHWRender::MPxDrawOverride;
using OverrideCreator = Override* (*)(const MObject&);

struct Registration {
    std::string classification;
    std::string registrant;
    std::string module;
    OverrideCreator creator = nullptr;
};

/// What draws one node. The data goes after the override, which may still look at it.
struct Instance {
    std::weak_ptr<kernel::Node> node;
    std::string classification;
    std::string registrant;
    std::string module;
    std::unique_ptr<MUserData> data;
    std::unique_ptr<Override> drawOverride;

    ~Instance()
    {
        const ModuleScope scope(module);
        drawOverride.reset();
        data.reset();
    }
};

struct Registry {
    std::vector<Registration> registrations;
    std::map<const kernel::Node*, std::unique_ptr<Instance>> instances;
};

Registry& registry()
{
    static Registry instance;
    return instance;
}

/// A node type's classification is a list joined by colons.
bool classifies(const std::string& list, const std::string& classification)
{
    std::istringstream parts(list);
    for (std::string part; std::getline(parts, part, ':');) {
        if (part == classification)
            return true;
    }
    return false;
}

const Registration* registrationFor(const kernel::NodeType& type)
{
    for (const kernel::NodeType* t = &type; t; t = t->base) {
        for (const Registration& registration : registry().registrations) {
            if (classifies(t->classification, registration.classification))
                return &registration;
        }
    }
    return nullptr;
}

std::unique_ptr<Instance> makeInstance(const kernel::NodePtr& node, const Registration& registration)
{
    const ModuleScope scope(registration.module);
    auto instance = std::make_unique<Instance>();
    instance->node = node;
    instance->classification = registration.classification;
    instance->registrant = registration.registrant;
    instance->module = registration.module;
    instance->drawOverride.reset(registration.creator(toObject(node)));
    if (instance->drawOverride && !(instance->drawOverride->supportedDrawAPIs() & MHWRender::kOpenGL)) {
        kernel::Session::current().output.error("Failed to create evaluator for " + registration.classification);
        instance->drawOverride.reset();
    }
    return instance;
}

/// The instance of a node, made when it is missing. One that cannot draw is remembered too, so that it is tried and
/// complained about once. Null for nodes nobody draws.
Instance* instanceFor(const kernel::NodePtr& node)
{
    auto& instances = registry().instances;
    const auto found = instances.find(node.get());
    if (found != instances.end()) {
        if (found->second->node.lock() == node)
            return found->second.get();
        instances.erase(found);  // of a node that is gone and had the same address
    }
    const Registration* registration = registrationFor(node->type());
    if (!registration)
        return nullptr;
    return instances.emplace(node.get(), makeInstance(node, *registration)).first->second.get();
}

template <typename Condition>
void dropIf(Condition condition)
{
    auto& instances = registry().instances;
    for (auto i = instances.begin(); i != instances.end();) {
        if (condition(*i->second))
            i = instances.erase(i);
        else
            ++i;
    }
}

/// Every override is prepared in every frame: more often than one that is not always dirty asks for, never less.
void drawOne(Instance& instance, const kernel::NodePtr& node, const FrameState& frame, DrawList& list)
{
    Override& drawOverride = *instance.drawOverride;
    const ModuleScope scope(instance.module);
    const MDagPath path = toPath(node);
    const MDagPath camera = toPath(frame.camera);
    const kernel::Matrix4 world = toKernel(drawOverride.transform(path, camera));
    const auto context = Access::drawContext(frame, world);

    MUserData* const old = instance.data.get();
    MUserData* const prepared = drawOverride.prepareForDraw(path, camera, *context, old);
    if (prepared != old)
        instance.data.reset(prepared);

    if (drawOverride.hasUIDrawables()) {
        const auto manager = Access::drawManager(list, world);
        drawOverride.addUIDrawables(path, *manager, *context, prepared);
    }
    Access::callBack(drawOverride, *context, prepared);
    if (prepared && prepared->deleteAfterUse())
        instance.data.reset();
}

}  // namespace

MHWRender::MPxDrawOverride* drawOverrideFor(const kernel::NodePtr& node)
{
    Instance* const instance = instanceFor(node);
    return instance ? instance->drawOverride.get() : nullptr;
}

void dropDrawOverrides(bool all)
{
    dropIf([all](const Instance& instance) {
        const kernel::NodePtr node = instance.node.lock();
        return all || !node || !node->isInScene();
    });
}

void drawOverrides(const FrameState& frame, DrawList& list)
{
    dropDrawOverrides(false);
    if (registry().registrations.empty() || !frame.camera)
        return;
    std::vector<kernel::NodePtr> nodes;
    kernel::Session::current().scene.walkDag([&](kernel::Node& node) {
        if (node.type().isShape() && node.isVisible())
            nodes.push_back(node.shared_from_this());
        return true;
    });
    for (const kernel::NodePtr& node : nodes) {
        Instance* const instance = instanceFor(node);
        if (instance && instance->drawOverride)
            drawOne(*instance, node, frame, list);
    }
}

std::vector<std::string> drawOverridesOf(const std::string& module)
{
    std::vector<std::string> names;
    for (const Registration& registration : registry().registrations) {
        if (registration.module == module)
            names.push_back(registration.classification);
    }
    return names;
}

std::vector<std::string> dropDrawOverridesOf(const std::string& module)
{
    const std::vector<std::string> names = drawOverridesOf(module);
    dropIf([&](const Instance& instance) { return instance.module == module; });
    auto& list = registry().registrations;
    list.erase(
        std::remove_if(list.begin(), list.end(), [&](const Registration& entry) { return entry.module == module; }),
        list.end());
    return names;
}

void Access::callBack(const MHWRender::MPxDrawOverride& drawOverride, const MHWRender::MDrawContext& context,
                      const MUserData* data)
{
    if (drawOverride.m_callback)
        drawOverride.m_callback(context, data);
}

}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN
namespace MHWRender {

namespace {

api::Registration* findRegistration(const std::string& classification, const std::string& registrant)
{
    for (api::Registration& entry : api::registry().registrations) {
        if (entry.classification == classification && entry.registrant == registrant)
            return &entry;
    }
    return nullptr;
}

}  // namespace

MStatus MDrawRegistry::registerDrawOverrideCreator(const MString& drawClassification, const MString& registrantId,
                                                   MPxDrawOverride* (*creator)(const MObject&))
{
    const std::string classification = api::toKernel(drawClassification);
    const std::string registrant = api::toKernel(registrantId);
    if (!creator || registrant.empty() || classification.rfind("drawdb/geometry/", 0) != 0)
        return MStatus::kInvalidParameter;
    if (findRegistration(classification, registrant))
        return MStatus::kFailure;
    const std::string module = api::moduleOfCode(reinterpret_cast<const void*>(creator));
    api::registry().registrations.push_back({classification, registrant, module, creator});
    return MStatus::kSuccess;
}

MStatus MDrawRegistry::deregisterDrawOverrideCreator(const MString& drawClassification, const MString& registrantId)
{
    const std::string classification = api::toKernel(drawClassification);
    const std::string registrant = api::toKernel(registrantId);
    api::Registration* const entry = findRegistration(classification, registrant);
    if (!entry)
        return MStatus::kFailure;
    api::dropIf([&](const api::Instance& instance) {
        return instance.classification == classification && instance.registrant == registrant;
    });
    auto& list = api::registry().registrations;
    list.erase(list.begin() + (entry - list.data()));
    return MStatus::kSuccess;
}

MPxDrawOverride::MPxDrawOverride(const MObject&, GeometryDrawOverrideCb callback, bool /*isAlwaysDirty*/)
    : m_callback(callback)
{}

MPxDrawOverride::~MPxDrawOverride() = default;

DrawAPI MPxDrawOverride::supportedDrawAPIs() const
{
    return kOpenGL;
}

bool MPxDrawOverride::hasUIDrawables() const
{
    return false;
}

MMatrix MPxDrawOverride::transform(const MDagPath& objPath, const MDagPath&) const
{
    return objPath.inclusiveMatrix();
}

MBoundingBox MPxDrawOverride::boundingBox(const MDagPath&, const MDagPath&) const
{
    return MBoundingBox();
}

bool MPxDrawOverride::isBounded(const MDagPath&, const MDagPath&) const
{
    return true;
}

bool MPxDrawOverride::disableInternalBoundingBoxDraw() const
{
    return false;
}

bool MPxDrawOverride::excludedFromPostEffects() const
{
    return true;
}

bool MPxDrawOverride::isTransparent() const
{
    return false;
}

MUserData* MPxDrawOverride::prepareForDraw(const MDagPath&, const MDagPath&, const MFrameContext&, MUserData*)
{
    return nullptr;
}

void MPxDrawOverride::addUIDrawables(const MDagPath&, MUIDrawManager&, const MFrameContext&, const MUserData*) {}

}  // namespace MHWRender
OPENMAYA_MAJOR_NAMESPACE_CLOSE
