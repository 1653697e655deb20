#pragma once

#include "kernel/Node.h"

#include <iosfwd>
#include <map>
#include <set>
#include <string>

namespace kernel {

class Session;
class Scene;

/// Name of the script node that carries the playback range. It exists in files only: it is made when the scene is
/// written, and dropped again once it has run.
extern const char* const kSceneConfigurationNode;
/// Script nodes of this type run after the scene has been read.
constexpr int kSceneConfigurationType = 6;

/// The `requires` statement of a module, with what the scene uses of it.
struct ModuleUse {
    std::string version;
    std::set<std::string> nodeTypes;
    std::set<std::string> dataTypes;
};
std::string requiresStatement(const std::string& module, const ModuleUse& use);

/// Writes one scene in text form, section by section.
class SceneWriter {
public:
    SceneWriter(Session& session, std::ostream& out, const std::string& fileName);
    void write();

private:
    void writeHead();
    void writeRequirements();
    void writeFileInfo();
    void writeNodes();
    void writeNode(const Node& node);
    void writeConfiguration();
    void writeDefaultNodes();
    /// The kept statements of one section ("requires", "fileInfo"); empty: those of no other section.
    void writeKept(const std::string& section);
    std::map<std::string, ModuleUse> modulesInUse() const;

    Session& m_session;
    Scene& m_scene;
    std::ostream& m_out;
    const std::string m_path;         ///< of the file
    std::string m_name;               ///< of the file, without folders
    std::set<std::string> m_modules;  ///< whose `requires` has been written
};

}  // namespace kernel
