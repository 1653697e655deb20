#include "api/Handles.h"

#include "api/ModuleNode.h"
#include "kernel/Session.h"

#include <algorithm>

namespace api {
namespace {

template <typename Ref>
const Ref* refOf(const MObject& object)
{
    const auto* body = HandleAccess::body(object);
    return body ? std::get_if<Ref>(&body->what) : nullptr;
}

}  // namespace

MObject HandleAccess::make(MObject::Body body)
{
    return MObject(std::make_shared<const MObject::Body>(std::move(body)));
}

MDagPath HandleAccess::path(const MObject& dagNode)
{
    MDagPath path;
    path.m_node = dagNode;
    return path;
}

MObject toObject(const kernel::NodePtr& node)
{
    return node ? HandleAccess::make({NodeRef{node}}) : MObject();
}

MObject toObject(const kernel::AttributePtr& attribute)
{
    return attribute ? HandleAccess::make({AttributeRef{attribute}}) : MObject();
}

MObject toObject(const std::shared_ptr<kernel::CustomData>& data)
{
    return data ? HandleAccess::make({DataRef{data}}) : MObject();
}

MObject toObject(const std::shared_ptr<Module>& module)
{
    return module ? HandleAccess::make({ModuleRef{module}}) : MObject();
}

MObject worldObject()
{
    return HandleAccess::make({WorldRef{}});
}

bool isWorld(const MObject& object)
{
    return refOf<WorldRef>(object) != nullptr;
}

kernel::NodePtr nodeOf(const MObject& object)
{
    const auto* ref = refOf<NodeRef>(object);
    return ref ? ref->node.lock() : nullptr;
}

kernel::NodePtr nodeOf(const MDagPath& path)
{
    return nodeOf(HandleAccess::node(path));
}

kernel::NodePtr nodeOf(const MPlug& plug)
{
    return nodeOf(HandleAccess::node(plug));
}

kernel::AttributePtr attributeOf(const MObject& object)
{
    const auto* ref = refOf<AttributeRef>(object);
    return ref ? ref->attribute : nullptr;
}

kernel::AttributePtr attributeOf(const MPlug& plug)
{
    return attributeOf(HandleAccess::attribute(plug));
}

std::shared_ptr<kernel::CustomData> dataOf(const MObject& object)
{
    const auto* ref = refOf<DataRef>(object);
    return ref ? ref->data : nullptr;
}

std::shared_ptr<Module> moduleRecordOf(const MObject& object)
{
    const auto* ref = refOf<ModuleRef>(object);
    return ref ? ref->module.lock() : nullptr;
}

MPxNode* userNodeOf(const kernel::Node& node)
{
    const auto* proxy = dynamic_cast<const ModuleNode*>(node.proxy());
    return proxy ? proxy->object() : nullptr;
}

MDagPath toPath(const kernel::NodePtr& node)
{
    return node && node->type().isDag() ? HandleAccess::path(toObject(node)) : MDagPath();
}

MSelectionList toSelectionList(const std::vector<kernel::NodePtr>& nodes)
{
    MSelectionList list;
    for (const auto& node : nodes)
        list.add(toObject(node));
    return list;
}

std::vector<kernel::NodePtr> nodesOf(const MSelectionList& list)
{
    std::vector<kernel::NodePtr> nodes;
    for (unsigned i = 0; i < list.length(); ++i) {
        MObject object;
        list.getDependNode(i, object);
        const auto node = nodeOf(object);
        if (node && node->isInScene() && std::find(nodes.begin(), nodes.end(), node) == nodes.end())
            nodes.push_back(node);
    }
    return nodes;
}

MMatrix toHost(const kernel::Matrix4& matrix)
{
    return MMatrix(matrix.m);
}

kernel::Matrix4 toKernel(const MMatrix& matrix)
{
    kernel::Matrix4 out;
    matrix.get(out.m);
    return out;
}

MTime toHost(const kernel::Time& time)
{
    return MTime(time.value, static_cast<MTime::Unit>(time.unit));
}

kernel::Time toKernel(const MTime& time)
{
    return {time.value(), static_cast<kernel::TimeUnit>(time.unit())};
}

MString toHost(const std::string& text)
{
    return MString(text.c_str(), int(text.size()));
}

std::string toKernel(const MString& text)
{
    int length = 0;
    const char* characters = text.asUTF8(length);
    return {characters, std::size_t(length)};
}

kernel::NodePtr nodeOf(const MFnBase& set, MStatus* status)
{
    const auto node = nodeOf(HandleAccess::object(set));
    report(status, node ? MStatus::kSuccess : MStatus::kFailure);
    return node;
}

}  // namespace api
