#pragma once

#include "kernel/Node.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace kernel {

class Scene;

/// A text as a string literal of the script language.
std::string quotedText(const std::string& text);

/// A kept statement in the form it is written in: no indentation, one semicolon at the end; nothing for blanks.
std::string trimmedStatement(const std::string& statement);

/// What a scene says of a node before anything else.
struct NodeHead {
    std::string type;
    std::string name;
    /// Shortest path, or the name of an absent one; empty for a node of the world and outside the DAG.
    std::string parent;
    std::string uid;  ///< empty: a fresh one
    bool shared = false;
};
NodeHead headOf(const Scene& scene, const Node& node);
/// The statements that make the node and its identifier.
std::string headText(const NodeHead& head);

/// Writes the statements that give a node all its stored values and flags.
void writeAttributes(std::ostream& out, const Node& node);
/// Writes the statements a node keeps.
void writeKept(std::ostream& out, const Node& node);
/// Writes the statements that give a node's attribute its stored value and flags, none when both are as in a new node.
/// Each line begins with a tab; the plug is one of the current node (".t"). A compound comes with its children, which
/// write nothing by themselves. Throws CommandError when a module's data cannot be written.
void writeAttribute(std::ostream& out, const Node& node, const AttributeSpec& attribute);

/// What a setAttr needs to give an attribute the value and flags that a node has now.
struct AttributeChange {
    std::string attribute;  ///< long name
    std::string arguments;  ///< what follows the plug, with a blank in front
};
/// The changes of a node since it was read from a file it is referenced from.
std::vector<AttributeChange> changesOf(const Node& node);

}  // namespace kernel
