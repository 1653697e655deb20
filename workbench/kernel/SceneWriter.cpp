#include "kernel/SceneWriter.h"

#include "kernel/ReferenceEdits.h"
#include "kernel/References.h"
#include "kernel/SceneText.h"
#include "kernel/Session.h"

#include <algorithm>
#include <ostream>
#include <sstream>

namespace kernel {

const char* const kSceneConfigurationNode = "sceneConfigurationScriptNode";

namespace {

/// Statements pass this column only with a token that is longer by itself.
constexpr std::size_t kLineLength = 100;

const char* const kFileInfo[][2] = {
    {"application", "maya"}, {"product", "Maya 2019"},
    {"version", "2019"},     {"cutIdentifier", "000000000000-0000000000"},
    {"osv", "Linux"},
};

std::string withoutFolders(const std::string& path)
{
    std::string name = path.substr(path.find_last_of('/') + 1);
    for (char& c : name) {
        if (static_cast<unsigned char>(c) < ' ')
            c = '_';  // it stands in a comment, which a line end would close
    }
    return name;
}

/// A kept statement in the form it is written in: no indentation, one semicolon at the end.
std::string trimmed(const std::string& statement)
{
    const char* const blanks = " \t\r\n";
    const std::size_t start = statement.find_first_not_of(blanks);
    if (start == std::string::npos)
        return {};
    const std::size_t end = statement.find_last_not_of(blanks);
    return statement.substr(start, end - start + 1) + (statement[end] == ';' ? "" : ";");
}

std::string firstWord(const std::string& statement)
{
    const std::size_t start = std::min(statement.find_first_not_of(" \t\r\n"), statement.size());
    return statement.substr(start, statement.find_first_of(" \t\r\n;\"", start) - start);
}

bool isKnownFileInfo(const std::string& statement)
{
    const std::size_t key = std::min(statement.find('"'), statement.size());
    return std::any_of(std::begin(kFileInfo), std::end(kFileInfo), [&](const char* const(&row)[2]) {
        const std::string known = quotedText(row[0]);
        return statement.compare(key, known.size(), known) == 0;
    });
}

void writeAttributes(std::ostream& out, const Node& node)
{
    for (const AttributePtr& attribute : node.type().allAttributes()) {
        if (attribute->parent.empty())
            writeAttribute(out, node, *attribute);
    }
}

void writeUnknownStatements(std::ostream& out, const Node& node)
{
    for (const std::string& statement : node.unknownStatements)
        out << '\t' << trimmed(statement) << '\n';
}

bool isConfigurationNode(const Node& node)
{
    return node.name() == kSceneConfigurationNode && node.type().name == "script";
}

}  // namespace

std::string requiresStatement(const std::string& module, const ModuleUse& use)
{
    std::vector<std::string> tokens;
    for (const std::string& type : use.nodeTypes)
        tokens.push_back("-nodeType " + quotedText(type));
    for (const std::string& type : use.dataTypes)
        tokens.push_back("-dataType " + quotedText(type));
    tokens.push_back(quotedText(module) + ' ' + quotedText(use.version));
    std::string statement = "requires";
    std::size_t column = statement.size();
    for (const std::string& token : tokens) {
        const bool wrap = column + token.size() > kLineLength;
        statement += (wrap ? "\n\t\t" : " ") + token;
        column = (wrap ? 2 : column + 1) + token.size();
    }
    return statement + ';';
}

SceneWriter::SceneWriter(Session& session, std::ostream& out, const std::string& fileName)
    : m_session(session), m_scene(session.scene), m_out(out), m_path(fileName), m_name(withoutFolders(fileName))
{}

void SceneWriter::write()
{
    writeHead();
    writeReferences(m_out, m_scene, m_path);
    writeRequirements();
    m_out << "currentUnit -l centimeter -a degree -t " << timeUnitName(m_scene.timeUnit()) << ";\n";
    writeFileInfo();
    writeNodes();
    writeConfiguration();
    writeDefaultNodes();
    writeKept({});
    m_out << "// End of " << m_name << '\n';
}

void SceneWriter::writeHead()
{
    // No date: the same scene always gives the same file.
    m_out << "//Maya ASCII 2019 scene\n//Name: " << m_name << "\n//Codeset: UTF-8\n";
}

std::map<std::string, ModuleUse> SceneWriter::modulesInUse() const
{
    std::map<std::string, ModuleUse> modules;
    for (const NodePtr& node : m_scene.nodes()) {
        const NodeType& type = node->type();
        if (node->referenced || type.plugin.empty())
            continue;
        ModuleUse& use = modules[type.plugin];
        use.version = type.pluginVersion;
        use.nodeTypes.insert(type.name);
        for (const AttributePtr& attribute : type.allAttributes()) {
            const DataType* data =
                attribute->kind == ValueKind::Custom ? m_session.dataTypes.find(attribute->customType) : nullptr;
            if (data && data->plugin == type.plugin && !node->isDefault(*attribute))
                use.dataTypes.insert(data->name);
        }
    }
    return modules;
}

void SceneWriter::writeRequirements()
{
    m_out << "requires maya \"2019\";\n";
    m_modules.insert("maya");
    for (const auto& module : modulesInUse()) {
        m_out << requiresStatement(module.first, module.second) << '\n';
        m_modules.insert(module.first);
    }
    writeKept("requires");
}

void SceneWriter::writeFileInfo()
{
    for (const auto& row : kFileInfo)
        m_out << "fileInfo " << quotedText(row[0]) << ' ' << quotedText(row[1]) << ";\n";
    writeKept("fileInfo");
}

void SceneWriter::writeKept(const std::string& section)
{
    const auto isRequired = [this](const std::string& statement) {
        return std::any_of(m_modules.begin(), m_modules.end(), [&statement](const std::string& module) {
            return statement.find(' ' + quotedText(module) + ' ') != std::string::npos
                || statement.find(' ' + module + ' ') != std::string::npos;
        });
    };
    for (const std::string& kept : m_scene.keptStatements) {
        const std::string statement = trimmed(kept);
        const std::string word = firstWord(statement);
        const bool hasSection = word == "requires" || word == "fileInfo";
        if (statement.empty() || (section.empty() ? hasSection : word != section))
            continue;
        if ((word == "requires" && isRequired(statement)) || (word == "fileInfo" && isKnownFileInfo(statement)))
            continue;  // the scene has said it by itself
        m_out << statement << '\n';
    }
}

void SceneWriter::writeNodes()
{
    m_scene.walkDag([this](Node& node) {
        writeNode(node);
        return true;
    });
    for (const NodePtr& node : m_scene.nodes()) {
        if (!node->type().isDag() && !node->isDefaultNode && !isConfigurationNode(*node))
            writeNode(*node);
    }
}

void SceneWriter::writeNode(const Node& node)
{
    if (node.referenced)
        return;
    const std::string& type = node.typeName();
    m_out << "createNode " << (Scene::isLegalName(type) ? type : quotedText(type)) << (node.shared ? " -s" : "")
          << " -n " << quotedText(node.name());
    if (node.parent())
        m_out << " -p " << quotedText(m_scene.partialPath(*node.parent()));
    m_out << ";\n\trename -uid " << quotedText(node.uid()) << ";\n";
    writeAttributes(m_out, node);
    const Reference* const reference = type == "reference" ? referenceOf(m_scene, node) : nullptr;
    if (reference)
        writeReferenceEdits(m_out, node.name(), currentEdits(m_scene, *reference));
    writeUnknownStatements(m_out, node);
}

void SceneWriter::writeConfiguration()
{
    const Scene::Range playback = m_scene.playbackRange();
    const Scene::Range animation = m_scene.animationRange();
    const std::string script = "playbackOptions -min " + exactNumberText(playback.first) + " -max "
                             + exactNumberText(playback.last) + " -ast " + exactNumberText(animation.first) + " -aet "
                             + exactNumberText(animation.last) + ' ';
    m_out << "createNode script -n " << quotedText(kSceneConfigurationNode) << ";\n\tsetAttr \".b\" -type \"string\" "
          << quotedText(script) << ";\n\tsetAttr \".st\" " << kSceneConfigurationType << ";\n";
}

void SceneWriter::writeDefaultNodes()
{
    for (const NodePtr& node : m_scene.nodes()) {
        if (!node->isDefaultNode)
            continue;
        std::ostringstream settings;
        settings.imbue(std::locale::classic());
        if (node->type().name == "time") {
            const std::string now = exactNumberText(m_scene.currentTime().value);
            settings << "\tsetAttr \".o\" " << now << ";\n\tsetAttr \".unw\" " << now << ";\n";
        } else {
            writeAttributes(settings, *node);
        }
        writeUnknownStatements(settings, *node);
        if (!settings.str().empty())
            m_out << "select -ne :" << node->name() << ";\n" << settings.str();
    }
}

}  // namespace kernel
