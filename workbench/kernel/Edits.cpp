#include "kernel/Edits.h"

#include "kernel/Command.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
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

class SetCurve : public Edit {
public:
    SetCurve(NodePtr node, AttributePtr attribute, NodePtr curve)
        : m_node(std::move(node)), m_attribute(std::move(attribute)), m_curve(std::move(curve))
    {}

    void redo(Scene&) override
    {
        m_before = m_node->plugState(*m_attribute);
        m_curveBefore = m_node->curveOf(*m_attribute);
        const PlugValue now = m_node->value(*m_attribute);
        m_node->setCurve(m_attribute, m_curve);
        if (!m_curve)
            m_node->setValue(*m_attribute, now);
    }

    void undo(Scene&) override
    {
        m_node->setCurve(m_attribute, m_curveBefore);
        m_node->setPlugState(*m_attribute, m_before);
    }

private:
    const NodePtr m_node;
    const AttributePtr m_attribute;
    const NodePtr m_curve;
    NodePtr m_curveBefore;
    PlugState m_before;
};

/// Holds the keys that differ only: a curve of many keys is often made by as many edits.
class SetCurveKeys : public Edit {
public:
    SetCurveKeys(NodePtr curve, const AnimCurve& keys) : m_curve(std::move(curve)), m_statements(keys.statements)
    {
        const std::vector<CurveKey>& before = m_curve->curve()->keys();
        const std::vector<CurveKey>& after = keys.keys();
        const std::size_t common = std::min(before.size(), after.size());
        while (m_first < common && before[m_first] == after[m_first])
            ++m_first;
        std::size_t same = 0;  // at the end
        while (same < common - m_first && before[before.size() - 1 - same] == after[after.size() - 1 - same])
            ++same;
        m_count = before.size() - m_first - same;
        m_others.assign(after.begin() + static_cast<std::ptrdiff_t>(m_first),
                        after.end() - static_cast<std::ptrdiff_t>(same));
    }

    SetCurveKeys(NodePtr curve, const CurveKey& key) : m_curve(std::move(curve)), m_others{key}
    {
        const std::vector<CurveKey>& keys = m_curve->curve()->keys();
        const auto place = std::lower_bound(keys.begin(), keys.end(), key.ticks,
                                            [](const CurveKey& one, double ticks) { return one.ticks < ticks; });
        m_first = static_cast<std::size_t>(place - keys.begin());
        m_count = place != keys.end() && place->ticks == key.ticks ? 1 : 0;
    }

    void redo(Scene&) override
    {
        m_driven.clear();
        for (const Plug& plug : m_curve->drivenPlugs())
            m_driven.emplace_back(plug, plug.node->plugState(*plug.attribute));
        exchange();
    }

    void undo(Scene&) override
    {
        exchange();
        for (const auto& driven : m_driven)
            driven.first.node->setPlugState(*driven.first.attribute, driven.second);
    }

private:
    void exchange()
    {
        m_curve->changeCurve([this](AnimCurve& curve) {
            std::vector<CurveKey> taken = curve.exchange(m_first, m_count, m_others);
            m_count = m_others.size();
            m_others.swap(taken);
            m_statements.swap(curve.statements);
        });
    }

    const NodePtr m_curve;
    std::size_t m_first = 0;
    std::size_t m_count = 0;         ///< of keys from the first on that are exchanged
    std::vector<CurveKey> m_others;  ///< those the curve does not have right now
    std::vector<std::string> m_statements;
    std::vector<std::pair<Plug, PlugState>> m_driven;
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
        std::vector<NodePtr> nodes = m_nodes;
        const std::vector<NodePtr> curves = curvesOfThese();
        nodes.insert(nodes.end(), curves.begin(), curves.end());
        releaseDriven(scene);
        for (const NodePtr& node : nodes) {
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
        m_released.undo(scene);
        scene.setSelection(m_selection);
    }

private:
    struct Taken {
        NodePtr node;
        NodePtr parent;
        int index;
    };

    /// The node and all below it.
    template <typename Visit>
    static void walk(Node& top, const Visit& visit)
    {
        std::vector<Node*> left{&top};
        while (!left.empty()) {
            Node& node = *left.back();
            left.pop_back();
            visit(node);
            for (const NodePtr& child : node.children())
                left.push_back(child.get());
        }
    }

    static void refuseReadOnly(Node& top)
    {
        walk(top, [](const Node& node) {
            if (node.isReadOnly())
                throw CommandError("Cannot delete the read only node '" + node.name() + "'.");
        });
    }

    /// The curves that drive nothing but the nodes to be deleted.
    std::vector<NodePtr> curvesOfThese() const
    {
        std::unordered_map<NodePtr, std::size_t> driven;
        std::unordered_set<const Node*> counted;  // one may be given together with what is above it
        for (const NodePtr& top : m_nodes) {
            walk(*top, [&](const Node& node) {
                if (!counted.insert(&node).second)
                    return;
                for (const AttributePtr& attribute : node.animatedAttributes())
                    ++driven[node.curveOf(*attribute)];
            });
        }
        std::vector<NodePtr> curves;
        for (const auto& row : driven) {
            if (!row.first->isReadOnly() && row.second == row.first->drivenPlugs().size())
                curves.push_back(row.first);
        }
        std::sort(curves.begin(), curves.end(), isOlder);
        return curves;
    }

    /// Of the curves to be deleted: what they drive keeps its value.
    void releaseDriven(Scene& scene)
    {
        m_released = EditList();
        for (const NodePtr& curve : m_nodes) {
            for (const Plug& plug : curve->drivenPlugs())
                m_released.add(setCurveEdit(plug.node, plug.attribute, nullptr));
        }
        m_released.redo(scene);
    }

    const std::vector<NodePtr> m_nodes;
    EditList m_released;
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
        m_before = m_node->plugState(*m_attribute);
        m_node->setValue(*m_attribute, m_value);
    }
    void undo(Scene&) override { m_node->setPlugState(*m_attribute, m_before); }

private:
    std::string plugName() const { return m_node->name() + '.' + m_attribute->longName; }

    void refuseLocked() const
    {
        if (isLockedPlug(*m_node, *m_attribute) || !m_attribute->writable)
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
    PlugState m_before;
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

    void redo(Scene& scene) override
    {
        m_before = scene.currentTime();
        rememberAhead(scene);
        scene.setCurrentTime(m_time);
    }

    // What was set and not keyed shows again.
    void undo(Scene& scene) override
    {
        scene.setCurrentTime(m_before);
        for (const Ahead& ahead : m_ahead)
            ahead.node->setPlugState(*ahead.attribute, ahead.state);
    }

private:
    struct Ahead {
        NodePtr node;
        AttributePtr attribute;
        PlugState state;
    };

    void rememberAhead(const Scene& scene)
    {
        m_ahead.clear();
        for (const NodePtr& node : scene.nodes()) {
            for (const AttributePtr& attribute : node->animatedAttributes()) {
                const PlugState state = node->plugState(*attribute);
                if (state.isAhead)
                    m_ahead.push_back({node, attribute, state});
            }
        }
    }

    const Time m_time;
    Time m_before;
    std::vector<Ahead> m_ahead;
};

}  // namespace

bool isLockedPlug(const Node& node, const AttributeSpec& attribute)
{
    const AttributePtr compound = node.attribute(attribute.parent);
    return node.flags(attribute).locked || (compound && node.flags(*compound).locked);
}

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

EditPtr setCurveEdit(NodePtr node, AttributePtr attribute, NodePtr curve)
{
    return std::make_unique<SetCurve>(std::move(node), std::move(attribute), std::move(curve));
}

EditPtr setCurveKeysEdit(NodePtr curve, const AnimCurve& keys)
{
    return std::make_unique<SetCurveKeys>(std::move(curve), keys);
}

EditPtr setCurveKeyEdit(NodePtr curve, const CurveKey& key)
{
    return std::make_unique<SetCurveKeys>(std::move(curve), key);
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
