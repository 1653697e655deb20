#include "api/NodeMaking.h"

#include "api/Handles.h"
#include "kernel/Session.h"

namespace api {

const kernel::NodeType* nodeType(const MTypeId& id)
{
    return kernel::Session::current().nodeTypes.findId(id.id());
}

const kernel::NodeType* nodeType(const MString& name)
{
    return kernel::Session::current().nodeTypes.find(toKernel(name));
}

NewNode makeNode(const kernel::NodeType& type, const kernel::NodePtr& parent, const std::string& name)
{
    auto& session = kernel::Session::current();
    NewNode made;
    made.parent = parent;
    if (!type.isShape() || parent) {
        made.node = session.scene.makeNode(type, name);
        return made;
    }
    const std::string topName = session.scene.uniqueName(name.empty() ? type.name + "#" : name);
    made.transform = session.scene.makeNode(*session.nodeTypes.find("transform"), topName);
    made.node = session.scene.makeNode(type, kernel::Scene::shapeName(topName));
    return made;
}

}  // namespace api
