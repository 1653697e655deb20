#include "kernel/References.h"
#include "kernel/SceneFile.h"
#include "kernel/SceneImport.h"
#include "mel/builtins/Builtin.h"
#include "mel/builtins/Subjects.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <chrono>
#include <optional>

#include <sys/stat.h>

namespace mel {

using kernel::CommandError;
using kernel::Value;

namespace {

constexpr const char* kUntitled = "untitled";

std::string seconds(std::chrono::steady_clock::duration duration)
{
    char digits[32];
    const double number = std::chrono::duration<double>(duration).count();
    const auto end = std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed, 2).ptr;
    return std::string(digits, end);
}

std::string shortName(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

std::string pathOf(const BuiltinCall& call)
{
    if (call.args.objects.empty() || call.objectNames().front().empty())
        throw CommandError("No object was specified");
    return call.objectNames().front();
}

/// The type that was asked for; none without -type.
std::optional<kernel::SceneFileType> typeOf(const BuiltinCall& call)
{
    if (!call.args.has("type"))
        return std::nullopt;
    const auto type = kernel::fileTypeNamed(call.args.text("type"));
    if (!type)
        throw CommandError("file: Unsupported file type: " + call.args.text("type"));
    return type;
}

void refuseUnsavedChanges(const BuiltinCall& call)
{
    if (call.scene.isModified() && !call.args.has("force"))
        throw CommandError("Unsaved changes");
}

Value open(BuiltinCall& call)
{
    const std::string path = pathOf(call);
    refuseUnsavedChanges(call);
    const auto start = std::chrono::steady_clock::now();
    kernel::openScene(call.session, path);
    call.session.output.info("File read in  " + seconds(std::chrono::steady_clock::now() - start) + " seconds.");
    return call.scene.fileName();
}

Value save(BuiltinCall& call)
{
    const auto type = typeOf(call);
    const std::string path = call.scene.fileName();
    if (path.empty())
        throw CommandError("file: The scene has no name yet; give it one with -rename.");
    kernel::saveScene(call.session, path, type);
    return path;
}

// Only the name changes; a name without an extension gets that of the file type.
Value rename(BuiltinCall& call)
{
    const auto type = typeOf(call);
    std::string path = pathOf(call);
    const bool wantsExtension = call.args.integer("defaultExtensions", 0, 1) != 0;
    if (wantsExtension && shortName(path).find('.') == std::string::npos)
        path += kernel::fileTypeExtension(type.value_or(kernel::fileTypeFor(call.scene, path)));
    call.scene.setFileName(path);
    if (type)
        call.scene.setFileType(type);
    return path;
}

kernel::StringArray namesOf(const BuiltinCall& call, const std::vector<kernel::NodePtr>& nodes)
{
    kernel::StringArray names;
    for (const kernel::NodePtr& node : nodes)
        names.push_back(call.scene.partialPath(*node));
    return names;
}

/// Whether a file of polygons is meant: by -type, without it by the file's extension.
bool isMeshFile(const BuiltinCall& call, const std::string& path)
{
    if (call.args.has("type"))
        return call.args.text("type") == "OBJ";
    std::string extension = path.substr(std::min(path.rfind('.'), path.size()));
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return char(std::tolower(c)); });
    return extension == ".obj";
}

Value import(BuiltinCall& call)
{
    const std::string path = pathOf(call);
    const bool areMeshes = isMeshFile(call, path);
    if (!areMeshes)
        typeOf(call);  // what kind of scene it is, its content says
    kernel::ImportNaming naming;
    naming.nameSpace = call.args.text("namespace");
    naming.mergeNamespaces = call.args.integer("mergeNamespacesOnClash") != 0;
    naming.clashPrefix = call.args.text("renamingPrefix");
    const auto read = areMeshes ? kernel::importMeshes : kernel::importScene;
    const std::vector<kernel::NodePtr> nodes = read(call.session, path, naming);
    if (call.args.has("returnNewNodes"))
        return namesOf(call, nodes);
    return kernel::absolutePath(path);
}

Value reference(BuiltinCall& call)
{
    typeOf(call);
    kernel::ReferenceRequest request;
    request.file = pathOf(call);
    request.nameSpace = call.args.text("namespace");
    request.nodeName = call.args.text("referenceNode");
    request.isDeferred = call.args.integer("deferReference") != 0;
    const kernel::Reference& made = kernel::createReference(call.session, request);
    if (call.args.has("returnNewNodes"))
        return namesOf(call, made.nodes);
    return made.name();
}

/// The reference that is named by its node or its file.
kernel::Reference& namedReference(const BuiltinCall& call)
{
    return kernel::findReference(call.scene,
                                 call.args.has("referenceNode") ? call.args.text("referenceNode") : pathOf(call));
}

Value removeReference(BuiltinCall& call)
{
    kernel::Reference& gone = namedReference(call);
    const std::string name = gone.name();
    kernel::removeReference(call.session, gone);
    return name;
}

Value loadReference(BuiltinCall& call)
{
    kernel::Reference& loaded = kernel::findReference(call.scene, call.args.text("loadReference"));
    kernel::loadReference(call.session, loaded);
    return loaded.name();
}

kernel::StringArray referenceNames(const BuiltinCall& call)
{
    kernel::StringArray names;
    for (const auto& held : call.scene.references)
        names.push_back(held->name());
    return names;
}

bool fileExists(const std::string& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

Value query(const BuiltinCall& call)
{
    const kernel::ParsedArgs& args = call.args;
    const std::string& name = call.scene.fileName();
    if (args.has("exists"))
        return int(fileExists(pathOf(call)));
    if (args.has("sceneName"))
        return args.has("shortName") ? shortName(name) : name;
    if (args.has("modified"))
        return int(call.scene.isModified());
    if (args.has("errorStatus"))
        return int(call.scene.wasReadWithErrors());
    if (args.has("location"))
        return name.empty() ? std::string("unknown") : name;
    if (args.has("type"))
        return kernel::StringArray{kernel::fileTypeName(kernel::fileTypeFor(call.scene, name))};
    if (args.has("reference"))
        return referenceNames(call);
    if (args.has("list")) {
        kernel::StringArray names = referenceNames(call);
        names.insert(names.begin(), name.empty() ? kUntitled : name);
        return names;
    }
    return {};
}

Value newFile(BuiltinCall& call)
{
    refuseUnsavedChanges(call);
    kernel::newScene(call.session);
    return std::string(kUntitled);
}

/// What the command does; the first flag that is there decides.
struct ActionRow {
    const char* flag;
    Value (*run)(BuiltinCall& call);
};
const ActionRow kActions[] = {
    {"newFile", newFile},
    {"open", open},
    {"rename", rename},
    {"save", save},
    {"import", import},
    {"reference", reference},
    {"removeReference", removeReference},
    {"loadReference", loadReference},
};

Value runFile(BuiltinCall& call)
{
    const kernel::ParsedArgs& args = call.args;
    if (args.query)
        return query(call);
    for (const ActionRow& row : kActions) {
        if (args.has(row.flag))
            return row.run(call);
    }
    if (args.has("modified"))
        call.scene.setModified(args.integer("modified") != 0);
    if (const auto type = typeOf(call))
        call.scene.setFileType(type);
    return {};
}

}  // namespace

void addFileCommand(kernel::Session& session)
{
    addBuiltin(session, "file",
               makeSyntax({{"newFile", "new"},
                           {"open", "o"},
                           {"save", "s"},
                           {"rename", "rn"},
                           {"type", "typ", "s"},
                           {"force", "f"},
                           {"modified", "mf", "b"},
                           {"exists", "ex"},
                           {"sceneName", "sn"},
                           {"shortName", "shn"},
                           {"list", "l"},
                           {"location", "loc"},
                           {"import", "i"},
                           {"reference", "r"},
                           {"removeReference", "rr"},
                           {"loadReference", "lr", "s"},
                           {"referenceNode", "rfn", "s"},
                           {"deferReference", "dr", "b"},
                           {"namespace", "ns", "s"},
                           {"renamingPrefix", "rpr", "s"},
                           {"mergeNamespacesOnClash", "mnc", "b"},
                           {"preserveReferences", "pr"},
                           {"returnNewNodes", "rnn"},
                           {"errorStatus", "err"},
                           {"prompt", "pmt", "b"},
                           {"options", "op", "s"},
                           {"ignoreVersion", "iv"},
                           {"defaultExtensions", "de", "b"}},
                          Modes::QueryAndEdit, 0, 1),
               runFile);
}

}  // namespace mel
