#include "kernel/SceneBinaryWriter.h"

#include "kernel/ChunkReader.h"
#include "kernel/CurveText.h"
#include "kernel/References.h"
#include "kernel/SceneChunks.h"
#include "kernel/SceneSections.h"
#include "kernel/SceneText.h"
#include "kernel/Session.h"
#include "kernel/ValueChunks.h"

#include <sstream>

namespace kernel {

namespace {

std::string pair(const std::string& first, const std::string& second)
{
    return first + '\0' + second + '\0';
}

/// What is only known as text stays text, whatever type the node has.
bool isKeptAsText(const Node& node)
{
    return !node.unknownType.empty() || node.type().id == 0;
}

}  // namespace

SceneBinaryWriter::SceneBinaryWriter(Session& session, std::ostream& out, const std::string& fileName)
    : m_session(session), m_scene(session.scene), m_path(fileName), m_writer(out)
{}

void SceneBinaryWriter::write()
{
    m_writer.beginGroup(kGroup, chunk::kScene);
    writeHead();
    writeReferences();
    for (const NodePtr& node : nodesToWrite(m_scene))
        writeNode(*node);
    writeConfiguration();
    for (const NodePtr& node : m_scene.nodes()) {
        if (node->isDefaultNode)
            writeDefaultNode(*node);
    }
    writeLinks();
    m_writer.end();
}

void SceneBinaryWriter::writeHead()
{
    m_writer.beginGroup(kGroup, chunk::kHead);
    m_writer.chunk(chunk::kVersion, std::string("2019") + '\0');
    const ModuleUses modules = modulesInUse(m_session);
    for (const auto& module : modules)
        m_writer.chunk(chunk::kModule, pair(module.first, module.second.version));
    writeStatements(keptStatements(m_scene, "requires", modules));
    m_writer.chunk(chunk::kLengthUnit, "cm");
    m_writer.chunk(chunk::kAngleUnit, "deg");
    m_writer.chunk(chunk::kTimeUnit, timeUnitName(m_scene.timeUnit()));
    for (const auto& row : kFileInfo)
        m_writer.chunk(chunk::kFileInfo, pair(row[0], row[1]));
    writeStatements(keptStatements(m_scene, "fileInfo"));
    m_writer.end();
}

// One statement a line.
void SceneBinaryWriter::writeReferences()
{
    if (m_scene.references.empty())
        return;
    std::stringstream statements;
    kernel::writeReferences(statements, m_scene, m_path);
    m_writer.beginGroup(kGroup, chunk::kReferences);
    for (std::string statement; std::getline(statements, statement);) {
        const bool isDepth = statement.find(" -rdi ") != std::string::npos;
        m_writer.chunk(isDepth ? chunk::kReferenceDepth : chunk::kReferences, statement);
    }
    m_writer.end();
}

void SceneBinaryWriter::writeNode(const Node& node)
{
    if (node.binaryType != 0)
        return writeUnread(node);
    m_writer.beginGroup(kGroup, isKeptAsText(node) ? chunk::kUnknownNode : node.type().id);
    writeNodeHead(node);
    if (isKeptAsText(node)) {
        m_writer.beginChunk(chunk::kStatements);
        writeAttributes(m_writer.stream(), node);
        writeKept(m_writer.stream(), node);
        m_writer.end();
    } else {
        writeValues(m_writer, node);
        writeKeptStatements(node);
    }
    m_writer.end();
}

void SceneBinaryWriter::writeNodeHead(const Node& node)
{
    const NodeHead head = headOf(m_scene, node);
    writeCreation(head);
    if (head.shared)
        m_writer.chunk(chunk::kNodeFlags, std::string(1, chunk::kIsShared));
    m_writer.chunk(chunk::kUid, head.uid);
    if (isKeptAsText(node) || !node.type().plugin.empty())
        m_writer.chunk(chunk::kTypeName, head.type);
}

void SceneBinaryWriter::writeCreation(const NodeHead& head)
{
    const bool hasParent = !head.parent.empty();
    const std::string body = static_cast<char>(hasParent ? chunk::kHasParent : 0) + head.name + '\0';
    m_writer.chunk(chunk::kCreate, hasParent ? body + head.parent + '\0' : body);
}

// The node may have got another name or parent; the rest nobody here understands.
void SceneBinaryWriter::writeUnread(const Node& node)
{
    m_writer.beginGroup(kGroup, node.binaryType);
    writeCreation(headOf(m_scene, node));
    m_writer.copy(node.binaryChunks);
    m_writer.end();
}

void SceneBinaryWriter::writeConfiguration()
{
    m_writer.beginGroup(kGroup, m_session.nodeTypes.find("script")->id);
    writeCreation({"script", kSceneConfigurationNode, {}, {}, false});
    writeText(m_writer, "b", configurationScript(m_scene));
    writeNumber(m_writer, "st", kSceneConfigurationType);
    m_writer.end();
}

void SceneBinaryWriter::writeDefaultNode(const Node& node)
{
    m_writer.beginGroup(kGroup, chunk::kSelect);
    m_writer.chunk(chunk::kSelect, node.name() + '\0');
    if (node.type().name == "time") {
        const double now = m_scene.currentTime().value;
        writeNumber(m_writer, "o", now);
        writeNumber(m_writer, "unw", now);
    } else {
        writeValues(m_writer, node);
    }
    writeKeptStatements(node);
    m_writer.end();
}

void SceneBinaryWriter::writeLinks()
{
    std::vector<std::string> statements = connectionStatements(m_scene);
    const std::vector<std::string> kept = keptStatements(m_scene, {});
    statements.insert(statements.end(), kept.begin(), kept.end());
    if (statements.empty())
        return;
    m_writer.beginGroup(kList, chunk::kLinks);
    writeStatements(statements);
    m_writer.end();
}

void SceneBinaryWriter::writeKeptStatements(const Node& node)
{
    if (node.unknownStatements.empty() && !referenceOf(m_scene, node) && !node.curve())
        return;
    m_writer.beginChunk(chunk::kStatements);
    writeKeys(m_writer.stream(), m_scene, node);
    writeEdits(m_writer.stream(), m_scene, node);
    writeKept(m_writer.stream(), node);
    m_writer.end();
}

void SceneBinaryWriter::writeStatements(const std::vector<std::string>& statements)
{
    for (const std::string& statement : statements)
        m_writer.chunk(chunk::kStatements, trimmedStatement(statement));
}

}  // namespace kernel
