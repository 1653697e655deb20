#pragma once

#include "kernel/Node.h"

#include <string>
#include <vector>

namespace kernel {

class Session;

/// How the nodes of an imported file are named.
struct ImportNaming {
    std::string nameSpace;         ///< empty or ":": none
    bool mergeNamespaces = false;  ///< with one of that name; otherwise a number makes it a new one
    std::string clashPrefix;       ///< goes before names the scene has already; empty: the file's name
};

/// Adds the nodes of a scene file to the open scene and gives those that were made. What is the scene's own stays:
/// shared nodes, settings of default nodes, units, ranges of time, file information. Not undoable. A file that is
/// missing or no scene throws CommandError; errors inside it are reported with file and line, and what could be read
/// is kept.
std::vector<NodePtr> importScene(Session& session, const std::string& path, const ImportNaming& naming);

/// Adds the objects of a file of polygons (see readObj) as meshes, each under a transform with the object's name, or
/// the file's for one without. Not undoable. Throws CommandError, and adds nothing, for a file that is missing, cannot
/// be read or has no faces.
std::vector<NodePtr> importMeshes(Session& session, const std::string& path, const ImportNaming& naming);

}  // namespace kernel
