#pragma once

#include "mel/builtins/Builtin.h"

namespace mel {

/// Sets one attribute of a node as an undoable edit, unless it has the value already. When that is refused the error
/// names the command.
void setNumber(BuiltinCall& call, const kernel::NodePtr& node, const std::string& attribute, double value,
               const char* command);

/// Gives a transform translation, rotation (xyz order) and scale that make up `local`; shear is lost.
void place(BuiltinCall& call, const kernel::NodePtr& node, const kernel::Matrix4& local);

/// Whether the attribute, the compound it belongs to or one of its children is locked.
bool isLocked(const kernel::Node& node, const kernel::AttributeSpec& attribute);

}  // namespace mel
