#pragma once

#include "kernel/Node.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace kernel {

class Session;
class Scene;

/// Writes one scene in text form, section by section.
class SceneWriter {
public:
    SceneWriter(Session& session, std::ostream& out, const std::string& fileName);
    void write();

private:
    /// Throws for a node whose data no text can hold.
    static void refuseBinaryData(const std::vector<NodePtr>& nodes);
    void writeHead();
    void writeRequirements();
    void writeFileInfo();
    void writeConfiguration();
    void writeDefaultNodes();
    void writeStatements(const std::vector<std::string>& statements);

    Session& m_session;
    Scene& m_scene;
    std::ostream& m_out;
    const std::string m_path;  ///< of the file
    std::string m_name;        ///< the same, without folders
};

}  // namespace kernel
