#include "kernel/SceneIntake.h"

#include "kernel/SceneSections.h"
#include "kernel/Session.h"

#include <algorithm>
#include <utility>

namespace kernel {

namespace {

std::string lastStep(const std::string& path)
{
    return path.substr(path.rfind('|') + 1);
}

std::string withoutRootColon(const std::string& name)
{
    return !name.empty() && name[0] == ':' ? name.substr(1) : name;
}

/// "P_ball" for "ball", "set:P_ball" for "set:ball".
std::string prefixed(const std::string& name, const std::string& prefix)
{
    std::string result = name;
    return result.insert(name.rfind(':') + 1, prefix + '_');
}

/// Whether the end of a path, or all of it, is the other; a bar at the start of either does not count.
bool endsWithPath(const std::string& path, const std::string& end)
{
    const std::string steps = end.substr(0, 1) == "|" ? end : '|' + end;
    const std::string whole = path.substr(0, 1) == "|" ? path : '|' + path;
    return whole.size() >= steps.size() && whole.compare(whole.size() - steps.size(), steps.size(), steps) == 0;
}

}  // namespace

SceneIntake::SceneIntake(Session& session, Purpose purpose, std::string path, Naming naming)
    : m_session(session), m_purpose(purpose), m_path(std::move(path)), m_naming(std::move(naming)),
      m_firstSerial(session.scene.nextSerial())
{
    if (setsUpScene())
        return;
    m_foreignTimes.emplace(session.scene);
    for (const NodePtr& node : session.scene.nodes())
        m_takenNames.insert(node->name());
}

NodePtr SceneIntake::createNode(NodeRequest request)
{
    // It would give the open scene the file's range of time.
    if (!setsUpScene() && request.type == "script" && request.name == kSceneConfigurationNode)
        return nullptr;
    const std::string fileName = request.name;
    NodePtr node = existing(request);
    if (!node) {
        const unsigned long long first = m_session.scene.nextSerial();
        EditList edits;
        request.name = fileName.empty() ? std::string() : nameFor(fileName);
        request.keepUnknown = true;
        node = kernel::createNode(m_session, request, edits);
        Node* const above = node->parent();
        if (above && above->serial() >= first)
            m_nodes.push_back(above->shared_from_this());  // the transform of a shape without a parent
        m_nodes.push_back(node);
    }
    remember(fileName.empty() ? node->name() : fileName, node);
    return node;
}

bool SceneIntake::takesSettingsOf(const Node& node) const
{
    return setsUpScene() || node.serial() >= m_firstSerial;
}

/// The node of the scene that a file's node is: a shared one, or that of a reference made before.
NodePtr SceneIntake::existing(const NodeRequest& request) const
{
    if (request.name.empty())
        return nullptr;
    if (request.type == "reference") {
        const NodePtr made = find(request.name);
        return made && made->typeName() == request.type ? made : nullptr;
    }
    if (!request.shared)
        return nullptr;
    const NodePtr node = m_session.scene.findOrNull(lastStep(request.name));
    return node && node->shared && node->typeName() == request.type ? node : nullptr;
}

std::string SceneIntake::nameFor(const std::string& fileName) const
{
    const std::string name = inNamespace(fileName);
    const bool isTaken = !m_naming.clashPrefix.empty() && m_takenNames.count(name) != 0;
    return isTaken ? prefixed(name, m_naming.clashPrefix) : name;
}

std::string SceneIntake::inNamespace(const std::string& fileName) const
{
    const std::string name = withoutRootColon(fileName);
    for (auto it = m_namespaces.rbegin(); it != m_namespaces.rend(); ++it) {
        const std::string start = it->first + ':';
        if (name.compare(0, start.size(), start) == 0)
            return it->second + ':' + name.substr(start.size());
    }
    return m_naming.nameSpace.empty() ? name : m_naming.nameSpace + ':' + name;
}

NodePtr SceneIntake::find(const std::string& fileName) const
{
    NodePtr found;
    const auto range = m_byName.equal_range(withoutRootColon(lastStep(fileName)));
    for (auto it = range.first; it != range.second; ++it) {
        if (!it->second->isInScene() || !isNameInFile(*it->second, fileName) || it->second == found)
            continue;
        if (found)
            return nullptr;
        found = it->second;
    }
    if (found || setsUpScene())
        return found ? found : m_session.scene.findOrNull(fileName);
    // Of the scene's other nodes those every scene has can be meant, and those of files this one references.
    const NodePtr here = m_session.scene.findOrNull(pathHere(fileName));
    if (here && here->serial() >= m_firstSerial)
        return here;
    const NodePtr shared = m_session.scene.findOrNull(fileName);
    return shared && shared->shared ? shared : nullptr;
}

std::string SceneIntake::pathHere(const std::string& filePath) const
{
    std::string path;
    std::size_t start = 0;
    for (std::size_t end = 0; end != std::string::npos; start = end + 1) {
        end = filePath.find('|', start);
        const std::string step = filePath.substr(start, end - start);
        path += (start == 0 ? "" : "|") + (step.empty() ? step : inNamespace(step));
    }
    return path;
}

/// Whether a path of the file, which may begin at the root or anywhere above the node, leads to it.
bool SceneIntake::isNameInFile(const Node& node, const std::string& fileName) const
{
    const Node* step = &node;
    std::size_t end = fileName.size();
    while (true) {
        const std::size_t bar = end == 0 ? std::string::npos : fileName.rfind('|', end - 1);
        const std::size_t start = bar == std::string::npos ? 0 : bar + 1;
        const auto known = m_fileNames.find(step);
        const std::string& name = known == m_fileNames.end() ? step->name() : known->second;
        if (withoutRootColon(fileName.substr(start, end - start)) != name)
            return false;
        if (bar == std::string::npos)
            return true;
        if (!step->absentParent.empty())
            return bar > 0 && endsWithPath(step->absentParent, pathHere(fileName.substr(0, bar)));
        step = step->parent();
        if (bar == 0)
            return !step;
        if (!step)
            return false;
        end = bar;
    }
}

std::string SceneIntake::nameHere(const std::string& nameOrPlug) const
{
    const std::size_t dot = std::min(nameOrPlug.find('.'), nameOrPlug.size());
    const NodePtr node = dot == 0 ? nullptr : find(nameOrPlug.substr(0, dot));
    return node ? m_session.scene.fullPath(*node) + nameOrPlug.substr(dot) : nameOrPlug;
}

void SceneIntake::remember(const std::string& fileName, const NodePtr& node)
{
    const std::string name = withoutRootColon(fileName);
    m_byName.emplace(name, node);
    m_fileNames[node.get()] = name;
}

void SceneIntake::adopt(const std::string& fileName, const NodePtr& node)
{
    m_nodes.push_back(node);
    remember(fileName, node);
}

bool SceneIntake::hasRenamed() const
{
    return std::any_of(m_nodes.begin(), m_nodes.end(), [this](const NodePtr& node) {
        const auto known = m_fileNames.find(node.get());
        return known != m_fileNames.end() && known->second != node->name();
    });
}

void SceneIntake::mapNamespace(const std::string& fileNamespace, const std::string& here)
{
    m_namespaces[fileNamespace] = here;
}

}  // namespace kernel
