#pragma once

#include "kernel/ChunkWriter.h"
#include "kernel/Node.h"
#include "kernel/SceneText.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace kernel {

class Scene;
class Session;

/// Writes one scene in binary form (SceneChunks.h). Throws CommandError when a module's data cannot be written.
class SceneBinaryWriter {
public:
    /// out: written in any order.
    SceneBinaryWriter(Session& session, std::ostream& out, const std::string& fileName);
    void write();

private:
    void writeHead();
    void writeReferences();
    void writeNode(const Node& node);
    void writeNodeHead(const Node& node);
    void writeCreation(const NodeHead& head);
    void writeUnread(const Node& node);
    void writeConfiguration();
    void writeDefaultNode(const Node& node);
    void writeLinks();
    /// The statements of one node in one chunk: those about an attribute follow the one that adds it.
    void writeKeptStatements(const Node& node);
    void writeStatements(const std::vector<std::string>& statements);

    Session& m_session;
    Scene& m_scene;
    const std::string m_path;  ///< of the file
    ChunkWriter m_writer;
};

}  // namespace kernel
