#pragma once

#include "kernel/Node.h"

#include <iosfwd>
#include <string>

namespace kernel {

/// A text as a string literal of the script language.
std::string quotedText(const std::string& text);

/// Writes the statements that give a node's attribute its stored value and flags, none when both are as in a new node.
/// Each line begins with a tab; the plug is one of the current node (".t"). A compound comes with its children, which
/// write nothing by themselves. Throws CommandError when a module's data cannot be written.
void writeAttribute(std::ostream& out, const Node& node, const AttributeSpec& attribute);

}  // namespace kernel
