#include "kernel/DuplicateNodes.h"

#include "kernel/Session.h"

#include <algorithm>
#include <utility>

namespace kernel {

namespace {

bool liesBelow(const Node& node, const std::vector<NodePtr>& others)
{
    for (const Node* above = node.parent(); above; above = above->parent()) {
        if (std::any_of(others.begin(), others.end(), [above](const NodePtr& other) { return other.get() == above; }))
            return true;
    }
    return false;
}

std::string withoutNamespace(const std::string& name)
{
    return name.substr(name.rfind(':') + 1);
}

PlugValue copyOf(const PlugValue& value)
{
    const auto* data = std::get_if<std::shared_ptr<CustomData>>(&value);
    return data && *data ? PlugValue((*data)->copy()) : value;
}

class Duplicator {
public:
    Duplicator(Session& session, EditList& edits) : m_session(session), m_edits(edits) {}

    NodePtr copyWhole(const NodePtr& original, const NodePtr& parent, const std::string& name)
    {
        NodePtr whole;
        std::vector<Step> left{{original, parent, name}};
        while (!left.empty()) {
            const Step step = std::move(left.back());
            left.pop_back();
            const NodePtr copy = enter(bareCopy(*step.original, step.name), step.parent);
            const std::vector<NodePtr>& children = step.original->children();
            for (auto child = children.rbegin(); child != children.rend(); ++child)
                left.push_back({*child, copy, childName(**child, *step.original, *copy)});
            if (!whole)
                whole = copy;
        }
        return whole;
    }

private:
    struct Step {
        NodePtr original;
        NodePtr parent;  ///< of the copy
        std::string name;
    };

    NodePtr bareCopy(const Node& original, const std::string& name)
    {
        const NodePtr copy = m_session.scene.makeNode(original.type(), name);
        for (const AttributePtr& attribute : original.type().allAttributes()) {
            if (attribute->kind != ValueKind::Compound && attribute->kind != ValueKind::Message)
                copy->setValue(*attribute, copyOf(original.value(*attribute)));
            copy->setFlags(*attribute, original.flags(*attribute));
        }
        if (original.curve())
            copy->changeCurve([&original](AnimCurve& curve) { curve = *original.curve(); });
        copy->absentParent = original.absentParent;
        copy->unknownType = original.unknownType;
        copy->unknownStatements = original.unknownStatements;
        copy->binaryType = original.binaryType;
        copy->binaryChunks = original.binaryChunks;
        return copy;
    }

    NodePtr enter(const NodePtr& node, const NodePtr& parent)
    {
        EditPtr edit = createNodeEdit(node, parent);
        edit->redo(m_session.scene);
        m_edits.add(std::move(edit));
        return node;
    }

    /// A shape named after its transform is named after the copy too: ball, ballShape; ball1, ballShape1.
    static std::string childName(const Node& child, const Node& original, const Node& copy)
    {
        return child.type().isShape() && child.name() == Scene::shapeName(original.name())
                 ? Scene::shapeName(copy.name())
                 : withoutNamespace(child.name());
    }

    Session& m_session;
    EditList& m_edits;
};

}  // namespace

std::vector<NodePtr> duplicateNodes(Session& session, const std::vector<NodePtr>& nodes, const std::string& name,
                                    EditList& edits)
{
    for (const NodePtr& node : nodes) {
        if (node->isDefaultNode || node->typeName() == "reference")
            throw CommandError("Cannot duplicate the node '" + node->name() + "'.");
    }
    std::vector<NodePtr> copies;
    Duplicator duplicator(session, edits);
    for (const NodePtr& node : nodes) {
        if (liesBelow(*node, nodes))
            continue;
        const std::string wanted = copies.empty() && !name.empty() ? name : withoutNamespace(node->name());
        const NodePtr parent = node->parent() ? node->parent()->shared_from_this() : nullptr;
        copies.push_back(duplicator.copyWhole(node, parent, wanted));
    }
    return copies;
}

}  // namespace kernel
