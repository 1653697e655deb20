#pragma once

#include "kernel/Reference.h"

#include <functional>
#include <iosfwd>
#include <string>

namespace kernel {

class Scene;
class SceneIntake;
class Session;

/// What a `file -reference` asks for.
struct ReferenceRequest {
    std::string file;       ///< relative: found from the folder of the scene or file that names it, or the current one
    std::string nameSpace;  ///< ":": the root; empty: made from the file's name
    std::string nodeName;   ///< empty: made from the namespace, or the file's name for the root
    bool isDeferred = false;
    std::vector<Value> otherFlags;
};

/// Makes a reference to a file and reads it; the scene is modified, and reading flushes the undo queue. Nodes of the
/// scene whose parents it brings go below these. Throws CommandError for a file that is missing, no scene, or one that
/// the reference would lie inside of, and for names in the root that the scene has already. Whatever is thrown, nothing
/// is left of the reference.
Reference& createReference(Session& session, ReferenceRequest request);
/// The same for a statement of a file that is being read: names are that file's. A referenced file that cannot be read
/// is told to `warn`; the reference is kept all the same. Throws CommandError for one that would lie inside itself,
/// or too deep in others.
void takeReference(Session& session, SceneIntake& intake, ReferenceRequest request,
                   const std::function<void(const std::string&)>& warn);
/// Reads a deferred reference now. Nodes of the scene whose parents it brings go below these. The undo queue is
/// flushed. Throws CommandError as createReference does; the reference then stays deferred.
void loadReference(Session& session, Reference& reference);
/// Takes a reference of the scene itself away, with all its nodes. What the scene has below them comes to the top and
/// keeps its place in the world; shapes get transforms of their own. No node waits for a parent in its namespace any
/// longer. The undo queue is flushed. Throws CommandError for one that another file makes.
void removeReference(Session& session, Reference& reference);

/// The reference a node stands for; null for none.
Reference* referenceOf(const Scene& scene, const Node& node);
/// The reference of that file or reference node; throws CommandError for none.
Reference& findReference(const Scene& scene, const std::string& fileOrNode);

/// Throws CommandError for the path of a file that the scene references, or that such a file does.
void refuseReferencedFile(const Scene& scene, const std::string& path);

/// The statement with what the scene changed in the nodes of the reference that a node stands for; nothing for other
/// nodes.
void writeEdits(std::ostream& out, const Scene& scene, const Node& node);
/// The statements at a scene file's head, one a line, for a file at `path`.
void writeReferences(std::ostream& out, const Scene& scene, const std::string& path);

}  // namespace kernel
