#pragma once

#include "kernel/Scene.h"

#include <memory>
#include <string>
#include <vector>

namespace kernel {

/// One reversible change of the scene. Built-in commands and the API's modifiers are lists of these.
/// redo() throws CommandError when the change is refused and then leaves the scene as it was.
class Edit {
public:
    virtual ~Edit() = default;
    virtual void redo(Scene& scene) = 0;
    virtual void undo(Scene& scene) = 0;
};
using EditPtr = std::unique_ptr<Edit>;

/// Whether an attribute or the compound it is a part of is locked.
bool isLockedPlug(const Node& node, const AttributeSpec& attribute);

/// The node is made by the caller (Scene::makeNode) and enters the scene on redo, under `parent` (null: world).
EditPtr createNodeEdit(NodePtr node, NodePtr parent);
/// Refuses startup, default and referenced nodes. Curves that drive nothing else go too; what a deleted curve drove
/// keeps its value.
EditPtr deleteNodesEdit(std::vector<NodePtr> nodes);
EditPtr renameNodeEdit(NodePtr node, std::string name);
EditPtr parentNodeEdit(NodePtr node, NodePtr newParent);
EditPtr setValueEdit(NodePtr node, AttributePtr attribute, PlugValue value);
/// curve: node of the curve that gives the attribute its value from now on; null: it keeps the value it has now.
EditPtr setCurveEdit(NodePtr node, AttributePtr attribute, NodePtr curve);
EditPtr setCurveKeysEdit(NodePtr curve, const AnimCurve& keys);
/// Puts one key in; it takes the place of one at the same instant.
EditPtr setCurveKeyEdit(NodePtr curve, const CurveKey& key);
EditPtr setFlagsEdit(NodePtr node, AttributePtr attribute, PlugFlags flags);
EditPtr setSelectionEdit(std::vector<NodePtr> nodes);
EditPtr setTimeEdit(Time time);
/// Redone forward, undone backward; when one fails on redo, those before it are taken back.
class EditList : public Edit {
public:
    void add(EditPtr edit) { m_edits.push_back(std::move(edit)); }
    bool isEmpty() const { return m_edits.empty(); }
    void redo(Scene& scene) override;
    void undo(Scene& scene) override;

private:
    std::vector<EditPtr> m_edits;
};

}  // namespace kernel
