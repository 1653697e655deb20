#pragma once

#include "kernel/Node.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace kernel {

class Scene;

// The keys of curves and what they drive, as statements of a scene. Times are in the scene's unit.

/// Writes the statements that give a curve's node its keys; nothing for other nodes.
void writeKeys(std::ostream& out, const Scene& scene, const Node& node);

/// Whether an attribute, long or short name, is one whose elements the keys of a curve are.
bool isKeyAttribute(const std::string& attribute);
/// Takes what a setAttr says of the keys of a curve's node.
/// plug: ".ktv[0:3]" and the like. statement: the whole of it, kept with the keys when it says what is not computed
/// with. Throws CommandError for values that do not fit the elements or the keys that are there, and then changes
/// nothing.
void readKeys(const Scene& scene, Node& node, const std::string& plug, const ValueList& values,
              const std::string& statement);

/// The attribute of "node.attribute", as statements name it; null when the scene has none of that name.
Plug findPlug(const Scene& scene, const std::string& name);
/// The statement that lets a curve drive a plug of the scene.
std::string connectionStatement(const Scene& scene, const Plug& driven);
/// Makes those kept statements come true of which both ends are there now; they are kept no longer.
void connectKept(Scene& scene);
/// Those of the scene, sorted, without what referenced files say themselves.
std::vector<std::string> connectionStatements(const Scene& scene);

}  // namespace kernel
