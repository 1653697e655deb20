#include "kernel/Edits.h"

#include "kernel/Command.h"

#include <algorithm>
#include <utility>

namespace kernel {

namespace {

class CreateNode : public Edit {
public:
    CreateNode(NodePtr node, NodePtr parent) : m_node(std::move(node)), m_parent(std::move(parent)) {}
    void redo(Scene& scene) override { scene.attach(m_node, m_parent.get()); }
    void undo(Scene& scene) override { scene.detach(m_node); }

private:
    const NodePtr m_node;
    const NodePtr m_parent;
};

class DeleteNodes : public Edit {
public:
    explicit DeleteNodes(std::vector<NodePtr> nodes) : m_nodes(std::move(nodes)) {}

    void redo(Scene& scene) override
    {
        for (const NodePtr& node : m_nodes)
            refuseReadOnly(*node);
        m_taken.clear();
        m_selection = scene.selection();
        for (const NodePtr& node : m_nodes) {
            if (!node->isInScene())
                continue;  // went with its parent
            Node* parent = node->parent();
            m_taken.push_back({node, parent ? parent->shared_from_this() : nullptr, scene.childIndex(*node)});
            scene.detach(node);
        }
    }

    void undo(Scene& scene) override
    {
        for (auto it = m_taken.rbegin(); it != m_taken.rend(); ++it)
            scene.attach(it->node, it->parent.get(), it->index);
        scene.setSelection(m_selection);
    }

private:
    struct Taken {
        NodePtr node;
        NodePtr parent;
        int index;
    };

    /// Refuses for the node or any below it.
    static void refuseReadOnly(const Node& top)
    {
        std::vector<const Node*> left{&top};
        while (!left.empty()) {
            const Node& node = *left.back();
            left.pop_back();
            if (node.isReadOnly())
                throw CommandError("Cannot delete the read only node '" + node.name() + "'.");
            for (const NodePtr& child : node.children())
                left.push_back(child.get());
        }
    }

    const std::vector<NodePtr> m_nodes;
    std::vector<Taken> m_taken;
    std::vector<NodePtr> m_selection;
};

class RenameNode : public Edit {
public:
    RenameNode(NodePtr node, std::string name) : m_node(std::move(node)), m_name(std::move(name)) {}

    void redo(Scene& scene) override
    {
        if (m_node->isReadOnly())
            throw CommandError("Cannot rename a read only node.");
        m_before.clear();
        m_before.emplace_back(m_node, m_node->name());
        for (const NodePtr& child : m_node->children())
            m_before.emplace_back(child, child->name());
        scene.rename(*m_node, m_name);
    }

    void undo(Scene& scene) override { scene.restoreNames(m_before); }

private:
    const NodePtr m_node;
    const std::string m_name;
    std::vector<std::pair<NodePtr, std::string>> m_before;  ///< the node, then its children
};

class ParentNode : public Edit {
public:
    ParentNode(NodePtr node, NodePtr parent) : m_node(std::move(node)), m_parent(std::move(parent)) {}

    void redo(Scene& scene) override
    {
        if (m_node->referenced)
            throw CommandError("Cannot parent the read only node '" + m_node->name() + "'.");
        Node* parent = m_node->parent();
        m_oldParent = parent ? parent->shared_from_this() : nullptr;
        m_oldIndex = scene.childIndex(*m_node);
        m_oldName = m_node->name();
        m_oldAbsentParent = m_node->absentParent;
        scene.setParent(m_node, m_parent.get());
    }

    void undo(Scene& scene) override
    {
        scene.setParent(m_node, m_oldParent.get(), m_oldIndex);
        scene.restoreNames({{m_node, m_oldName}});
        m_node->absentParent = m_oldAbsentParent;
    }

private:
    const NodePtr m_node;
    const NodePtr m_parent;
    NodePtr m_oldParent;
    int m_oldIndex = -1;
    std::string m_oldName;
    std::string m_oldAbsentParent;
};

class SetValue : public Edit {
public:
    SetValue(NodePtr node, AttributePtr attribute, PlugValue value)
        : m_node(std::move(node)), m_attribute(std::move(attribute)), m_value(std::move(value))
    {}

    void redo(Scene&) override
    {
        refuseLocked();
        refuseOutOfRange();
        m_before = m_node->value(*m_attribute);
        m_node->setValue(*m_attribute, m_value);
    }
    void undo(Scene&) override { m_node->setValue(*m_attribute, m_before); }

private:
    std::string plugName() const { return m_node->name() + '.' + m_attribute->longName; }

    void refuseLocked() const
    {
        const AttributePtr compound = m_node->attribute(m_attribute->parent);
        const bool isLocked = m_node->flags(*m_attribute).locked || (compound && m_node->flags(*compound).locked);
        if (isLocked || !m_attribute->writable)
            throw CommandError("The attribute '" + plugName() + "' is locked or connected and cannot be modified.");
    }

    void refuseOutOfRange() const
    {
        const double* number = std::get_if<double>(&m_value);
        if (!number)
            return;
        if (m_attribute->maximum && *number > *m_attribute->maximum)
            throw CommandError("Cannot set the attribute '" + plugName() + "' past its maximum value of "
                               + numberText(*m_attribute->maximum) + '.');
        if (m_attribute->minimum && *number < *m_attribute->minimum)
            throw CommandError("Cannot set the attribute '" + plugName() + "' below its minimum value of "
                               + numberText(*m_attribute->minimum) + '.');
    }

    const NodePtr m_node;
    const AttributePtr m_attribute;
    const PlugValue m_value;
    PlugValue m_before;
};

class SetFlags : public Edit {
public:
    SetFlags(NodePtr node, AttributePtr attribute, PlugFlags flags)
        : m_node(std::move(node)), m_attribute(std::move(attribute)), m_flags(flags)
    {}
    void redo(Scene&) override { exchange(); }
    void undo(Scene&) override { exchange(); }

private:
    void exchange()
    {
        const PlugFlags before = m_node->flags(*m_attribute);
        m_node->setFlags(*m_attribute, m_flags);
        m_flags = before;
    }

    const NodePtr m_node;
    const AttributePtr m_attribute;
    PlugFlags m_flags;  ///< those the node does not have right now
};

class SetSelection : public Edit {
public:
    explicit SetSelection(std::vector<NodePtr> nodes) : m_nodes(std::move(nodes)) {}
    void redo(Scene& scene) override { exchange(scene); }
    void undo(Scene& scene) override { exchange(scene); }

private:
    void exchange(Scene& scene)
    {
        std::vector<NodePtr> before = scene.selection();
        scene.setSelection(std::move(m_nodes));
        m_nodes = std::move(before);
    }

    std::vector<NodePtr> m_nodes;
};

class SetTime : public Edit {
public:
    explicit SetTime(Time time) : m_time(time) {}
    void redo(Scene& scene) override { exchange(scene); }
    void undo(Scene& scene) override { exchange(scene); }

private:
    void exchange(Scene& scene)
    {
        const Time before = scene.currentTime();
        scene.setCurrentTime(m_time);
        m_time = before;
    }

    Time m_time;
};

}  // namespace

EditPtr createNodeEdit(NodePtr node, NodePtr parent)
{
    return std::make_unique<CreateNode>(std::move(node), std::move(parent));
}

EditPtr deleteNodesEdit(std::vector<NodePtr> nodes)
{
    return std::make_unique<DeleteNodes>(std::move(nodes));
}

EditPtr renameNodeEdit(NodePtr node, std::string name)
{
    return std::make_unique<RenameNode>(std::move(node), std::move(name));
}

EditPtr parentNodeEdit(NodePtr node, NodePtr newParent)
{
    return std::make_unique<ParentNode>(std::move(node), std::move(newParent));
}

EditPtr setValueEdit(NodePtr node, AttributePtr attribute, PlugValue value)
{
    return std::make_unique<SetValue>(std::move(node), std::move(attribute), std::move(value));
}

EditPtr setFlagsEdit(NodePtr node, AttributePtr attribute, PlugFlags flags)
{
    return std::make_unique<SetFlags>(std::move(node), std::move(attribute), flags);
}

EditPtr setSelectionEdit(std::vector<NodePtr> nodes)
{
    return std::make_unique<SetSelection>(std::move(nodes));
}

EditPtr setTimeEdit(Time time)
{
    return std::make_unique<SetTime>(time);
}

void EditList::redo(Scene& scene)
{
    std::size_t done = 0;
    try {
        for (; done < m_edits.size(); ++done)
            m_edits[done]->redo(scene);
    } catch (...) {
        while (done > 0)
            m_edits[--done]->undo(scene);
        throw;
    }
}

void EditList::undo(Scene& scene)
{
    for (auto it = m_edits.rbegin(); it != m_edits.rend(); ++it)
        (*it)->undo(scene);
}

}  // namespace kernel
