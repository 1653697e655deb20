#pragma once

#include "kernel/CreateNode.h"
#include "kernel/Scene.h"

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace kernel {

/// How one scene file comes into the open scene: what its nodes are called here, which node a name in the file means,
/// and what of the file is left aside. One lives for as long as a file is read.
class SceneIntake {
public:
    enum class Purpose {
        Open,       ///< the file is the scene
        Import,     ///< its nodes join those of the scene
        Reference,  ///< its nodes are shown in the scene and stay the file's
    };
    struct Naming {
        std::string nameSpace;    ///< every node goes under it; empty: none
        std::string clashPrefix;  ///< and "_" go before a name the scene has already; empty: a number goes behind it
    };

    /// path: of the file, as messages name it and as its relative paths start from.
    SceneIntake(Session& session, Purpose purpose, std::string path, Naming naming = {});

    Purpose purpose() const { return m_purpose; }
    const std::string& path() const { return m_path; }
    /// Whether what a file says of the scene as a whole counts: settings of nodes every scene has, file information,
    /// ranges of time. Units always count: the file's numbers are in them.
    bool setsUpScene() const { return m_purpose == Purpose::Open; }

    /// Makes a node of the file, or finds the shared one that the scene has already. A type that is not available gives
    /// an unknown node. Null for a node that is left aside. Throws CommandError for a parent that cannot have children.
    NodePtr createNode(NodeRequest request);
    /// Whether what the file says next about a node it just created or selected counts.
    bool takesSettingsOf(const Node& node) const;

    /// The node a name or path of the file means: one of its own before any other. Null for none or several.
    NodePtr find(const std::string& fileName) const;
    /// The name under which a node or plug of the file ("ball.tx") can be reached in the scene; the text itself when
    /// there is no such node.
    std::string nameHere(const std::string& nameOrPlug) const;
    /// What a path of the file is in the scene, if the nodes it names get their names without a clash.
    std::string pathHere(const std::string& filePath) const;
    const std::string& nameSpace() const { return m_naming.nameSpace; }
    /// A name of the file, or a namespace, as it is below the namespace that everything goes under.
    std::string inNamespace(const std::string& fileName) const;
    /// The name wanted for a new node that the file calls so; a clash with a sibling may still number it.
    std::string nameFor(const std::string& fileName) const;
    /// From now on the file means this node by a name.
    void remember(const std::string& fileName, const NodePtr& node);
    /// From now on what the file calls one namespace is another in the scene; both without a colon at the end.
    void mapNamespace(const std::string& fileNamespace, const std::string& here);

    /// A node that was made elsewhere counts as the file's, under the name it has there.
    void adopt(const std::string& fileName, const NodePtr& node);

    /// The reference whose file this is; null for none.
    Reference* reference() const { return m_reference; }
    void setReference(Reference* reference) { m_reference = reference; }

    /// The nodes made for the file, in order, those of files it references itself not included.
    const std::vector<NodePtr>& nodes() const { return m_nodes; }
    /// Whether one of them has another name in the scene than in the file.
    bool hasRenamed() const;

private:
    NodePtr existing(const NodeRequest& request) const;
    bool isNameInFile(const Node& node, const std::string& fileName) const;

    Session& m_session;
    const Purpose m_purpose;
    const std::string m_path;
    const Naming m_naming;
    const unsigned long long m_firstSerial;
    std::optional<Scene::ForeignTimes> m_foreignTimes;
    Reference* m_reference = nullptr;
    std::vector<NodePtr> m_nodes;
    std::unordered_set<std::string> m_takenNames;              ///< of the scene as it was before
    std::unordered_multimap<std::string, NodePtr> m_byName;    ///< the file's names, without paths
    std::unordered_map<const Node*, std::string> m_fileNames;  ///< what the file calls its nodes last
    std::map<std::string, std::string> m_namespaces;           ///< the file's: those here
};

}  // namespace kernel
