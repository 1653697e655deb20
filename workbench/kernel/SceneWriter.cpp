#include "kernel/SceneWriter.h"

#include "kernel/CurveText.h"
#include "kernel/References.h"
#include "kernel/SceneSections.h"
#include "kernel/SceneText.h"
#include "kernel/Session.h"

#include <ostream>
#include <sstream>

namespace kernel {

namespace {

std::string withoutFolders(const std::string& path)
{
    std::string name = path.substr(path.find_last_of('/') + 1);
    for (char& c : name) {
        if (static_cast<unsigned char>(c) < ' ')
            c = '_';  // it stands in a comment, which a line end would close
    }
    return name;
}

}  // namespace

SceneWriter::SceneWriter(Session& session, std::ostream& out, const std::string& fileName)
    : m_session(session), m_scene(session.scene), m_out(out), m_path(fileName), m_name(withoutFolders(fileName))
{}

void SceneWriter::write()
{
    const std::vector<NodePtr> nodes = nodesToWrite(m_scene);
    refuseBinaryData(nodes);
    writeHead();
    writeReferences(m_out, m_scene, m_path);
    writeRequirements();
    m_out << "currentUnit -l centimeter -a degree -t " << timeUnitName(m_scene.timeUnit()) << ";\n";
    writeFileInfo();
    for (const NodePtr& node : nodes) {
        m_out << headText(headOf(m_scene, *node));
        writeAttributes(m_out, *node);
        writeKeys(m_out, m_scene, *node);
        writeEdits(m_out, m_scene, *node);
        writeKept(m_out, *node);
    }
    writeConfiguration();
    writeDefaultNodes();
    writeStatements(connectionStatements(m_scene));
    writeStatements(keptStatements(m_scene, {}));
    m_out << "// End of " << m_name << '\n';
}

void SceneWriter::refuseBinaryData(const std::vector<NodePtr>& nodes)
{
    for (const NodePtr& node : nodes) {
        if (node->binaryType != 0)
            throw CommandError("The scene cannot be saved as mayaAscii: the data of '" + node->name() + "' (of type "
                               + node->typeName() + ") is known in binary form only, as its plug-in is not loaded. "
                               + "Save it as mayaBinary.");
    }
}

void SceneWriter::writeHead()
{
    // No date: the same scene always gives the same file.
    m_out << "//Maya ASCII 2019 scene\n//Name: " << m_name << "\n//Codeset: UTF-8\n";
}

void SceneWriter::writeRequirements()
{
    m_out << "requires maya \"2019\";\n";
    const ModuleUses modules = modulesInUse(m_session);
    for (const auto& module : modules)
        m_out << requiresStatement(module.first, module.second) << '\n';
    writeStatements(keptStatements(m_scene, "requires", modules));
}

void SceneWriter::writeFileInfo()
{
    for (const auto& row : kFileInfo)
        m_out << "fileInfo " << quotedText(row[0]) << ' ' << quotedText(row[1]) << ";\n";
    writeStatements(keptStatements(m_scene, "fileInfo"));
}

void SceneWriter::writeStatements(const std::vector<std::string>& statements)
{
    for (const std::string& statement : statements)
        m_out << statement << '\n';
}

void SceneWriter::writeConfiguration()
{
    m_out << "createNode script -n " << quotedText(kSceneConfigurationNode) << ";\n\tsetAttr \".b\" -type \"string\" "
          << quotedText(configurationScript(m_scene)) << ";\n\tsetAttr \".st\" " << kSceneConfigurationType << ";\n";
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
        writeKept(settings, *node);
        if (!settings.str().empty())
            m_out << "select -ne :" << node->name() << ";\n" << settings.str();
    }
}

}  // namespace kernel
