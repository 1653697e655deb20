#include "kernel/References.h"

#include "kernel/CurveText.h"
#include "kernel/ReferenceEdits.h"
#include "kernel/SceneFile.h"
#include "kernel/SceneIntake.h"
#include "kernel/SceneText.h"
#include "kernel/Session.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>
#include <utility>

namespace kernel {

namespace {

namespace fs = std::filesystem;

/// References may lie in one another's files so deep: they are read, and walked, one inside the other.
constexpr int kMostDepth = 100;

/// "set.ma{1}" without its number: references to the same file are counted anew.
std::string withoutCopyNumber(const std::string& file)
{
    const std::size_t brace = file.rfind('{');
    const bool hasNumber = brace != std::string::npos && brace + 2 < file.size() && file.back() == '}'
                        && file.find_first_not_of("0123456789", brace + 1) == file.size() - 1;
    return hasNumber ? file.substr(0, brace) : file;
}

/// The file as it can be found, from the folder of the file that names it or that of the scene. Where it is missing,
/// where it should have been.
std::string resolved(const std::string& file, const std::string& namedIn, const std::string& scene)
{
    if (fs::path(file).is_absolute())
        return absolutePath(file);
    std::string first;
    for (const std::string& start : {namedIn, scene}) {
        const std::string path = absolutePath((fs::path(start).parent_path() / file).string());
        std::error_code error;
        if (fs::exists(path, error))
            return path;
        if (first.empty())
            first = path;
    }
    return first;
}

void walk(const ReferenceList& list, const std::function<void(Reference&)>& visit)
{
    for (const auto& reference : list) {
        visit(*reference);
        walk(reference->inner, visit);
    }
}

/// Links may lead to one file in several ways.
bool isSameFile(const std::string& a, const std::string& b)
{
    std::error_code error;
    return a == b || fs::equivalent(a, b, error);
}

void refuseLoop(const Scene& scene, const std::string& path, const Reference* outer)
{
    bool isLoop = isSameFile(path, absolutePath(scene.fileName()));
    int depth = 1;
    for (; outer && !isLoop; outer = outer->outer, ++depth)
        isLoop = isSameFile(path, outer->path);
    if (isLoop)
        throw CommandError("The file \"" + path + "\" cannot be referenced inside itself.");
    if (depth > kMostDepth)
        throw CommandError("The file \"" + path + "\" lies more than " + std::to_string(kMostDepth)
                           + " references deep.");
}

int freeCopyNumber(const Scene& scene, const std::string& path)
{
    std::set<int> taken;
    walk(scene.references, [&](const Reference& other) {
        if (other.path == path)
            taken.insert(other.copy);
    });
    int number = 0;
    while (taken.count(number) != 0)
        ++number;
    return number;
}

/// What the scene holds of a reference before its file is read.
Reference& addReference(Session& session, Reference* outer, ReferenceRequest request, const std::string& path)
{
    Scene& scene = session.scene;
    auto made = std::make_unique<Reference>();
    made->file = std::move(request.file);
    made->path = path;
    made->copy = freeCopyNumber(scene, path);
    made->nameSpace = std::move(request.nameSpace);
    made->otherFlags = std::move(request.otherFlags);
    made->isDeferred = request.isDeferred;
    made->outer = outer;
    made->node = scene.makeNode(*session.nodeTypes.find("reference"), request.nodeName);
    scene.attach(made->node);
    ReferenceList& list = outer ? outer->inner : scene.references;
    list.push_back(std::move(made));
    return *list.back();
}

/// From here on what differs in the nodes is a change that the scene makes.
void beginEdits(Reference& reference)
{
    for (const NodePtr& node : reference.nodes) {
        node->referenced = true;
        node->rememberStart();
    }
    for (const auto& inner : reference.inner)
        beginEdits(*inner);
}

/// Takes a node of the scene's own from below a referenced one to the top.
void bringToTop(Session& session, const NodePtr& node)
{
    Scene& scene = session.scene;
    const Matrix4 world = node->worldMatrix();
    if (node->type().isTransform()) {
        scene.setParent(node, nullptr);
        return placeLocally(*node, world);
    }
    const NodePtr transform = scene.makeNode(*session.nodeTypes.find("transform"), node->typeName() + '#');
    scene.attach(transform);
    placeLocally(*transform, world);
    scene.setParent(node, transform.get());
}

void bringOwnToTop(Session& session, const Reference& reference)
{
    for (const auto& inner : reference.inner)
        bringOwnToTop(session, *inner);
    for (const NodePtr& node : reference.nodes) {
        const std::vector<NodePtr> children = node->children();
        for (const NodePtr& child : children) {
            if (!child->referenced)
                bringToTop(session, child);
        }
    }
}

void detachReferenced(Scene& scene, const Reference& reference)
{
    for (const auto& inner : reference.inner)
        detachReferenced(scene, *inner);
    for (auto node = reference.nodes.rbegin(); node != reference.nodes.rend(); ++node) {
        const std::vector<NodePtr> children = (*node)->children();
        for (const NodePtr& child : children) {
            if (child->type().isTransform())
                scene.setParent(child, nullptr);
        }
        scene.detach(*node);
    }
}

/// The scene's own nodes leave first: a place in the world needs every node above it, of whichever reference.
void detachNodes(Session& session, const Reference& reference)
{
    bringOwnToTop(session, reference);
    detachReferenced(session.scene, reference);
}

/// What has been read of a file goes again.
void takeBack(Session& session, Reference& reference, const std::vector<NodePtr>& nodes)
{
    reference.nodes = nodes;
    beginEdits(reference);
    detachNodes(session, reference);
    reference.nodes.clear();
    reference.inner.clear();
}

/// Whatever is thrown, nothing is left of what was read.
void readFile(Session& session, Reference& reference)
{
    const SceneContent content(reference.path);
    {
        const Scene::Activity activity(session.scene, FileActivity::Reference);
        const During reading(session.events, "readingFile");
        const UndoQueue::Suspend suspend(session.undo);
        SceneIntake intake(session, SceneIntake::Purpose::Reference, reference.path, {reference.nameSpace, {}});
        intake.setReference(&reference);
        try {
            addToScene(session, content, intake);
            // Only a namespace keeps such nodes apart from the scene's when it is read again.
            if (reference.nameSpace.empty() && intake.hasRenamed())
                throw CommandError("The file \"" + reference.path
                                   + "\" has names that the scene has already; give it a namespace.");
        } catch (...) {
            takeBack(session, reference, intake.nodes());
            throw;
        }
        reference.nodes = intake.nodes();
        reference.isLoaded = true;
    }
    beginEdits(reference);
}

/// Puts nodes below the parents that they miss, as far as these have been made since `firstSerial`.
void findParents(Scene& scene, unsigned long long firstSerial)
{
    const std::vector<NodePtr> nodes = scene.nodes();
    for (const NodePtr& node : nodes) {
        const NodePtr parent = node->absentParent.empty() ? nullptr : scene.findOrNull(node->absentParent);
        if (!parent || parent->serial() < firstSerial || node->serial() >= firstSerial)
            continue;
        scene.makeUnknownTransform(parent);
        if (parent->type().isTransform())
            scene.setParent(node, parent.get());
    }
}

/// Reads a reference into a scene that is already open. What could be undone before would not know of its nodes.
void readIntoScene(Session& session, Reference& reference)
{
    const unsigned long long firstSerial = session.scene.nextSerial();
    readFile(session, reference);
    findParents(session.scene, firstSerial);
    connectKept(session.scene);
    session.undo.flush();
}

/// No node waits any longer for a parent in a namespace.
void forgetParents(const Scene& scene, const std::string& nameSpace)
{
    const std::string start = nameSpace + ':';
    for (const NodePtr& node : scene.nodes()) {
        const std::size_t first = std::min(node->absentParent.find_first_not_of("|:"), node->absentParent.size());
        if (node->absentParent.compare(first, start.size(), start) == 0)
            node->absentParent.clear();
    }
}

std::string baseName(const std::string& path)
{
    return Scene::legalName(fs::path(path).stem().string());
}

/// The namespace as the file says it in which the reference is made.
std::string namespaceInFile(const Reference& reference)
{
    const std::string around = reference.outer ? reference.outer->nameSpace : std::string();
    if (reference.nameSpace == around)
        return ":";
    return around.empty() ? reference.nameSpace : reference.nameSpace.substr(around.size() + 1);
}

/// Takes a reference of the scene itself away, with all that was made for it.
void dropReference(Session& session, const Reference& reference)
{
    detachNodes(session, reference);
    session.scene.detach(reference.node);
    ReferenceList& list = session.scene.references;
    list.erase(std::find_if(list.begin(), list.end(), [&](const auto& held) { return held.get() == &reference; }));
}

/// The path to write for a file at `path`: the reference's own if that leads from there to the same file.
std::string fileToWrite(const Reference& reference, const std::string& path)
{
    const std::string there = resolved(reference.file, path, path);
    return (there == reference.path ? reference.file : reference.path) + reference.name().substr(reference.path.size());
}

void writeStatement(std::ostream& out, const Reference& reference, const std::string& start, const std::string& path)
{
    out << "file " << start << " -ns " << quotedText(namespaceInFile(reference));
    if (reference.isDeferred)
        out << " -dr 1";
    out << " -rfn " << quotedText(reference.node->name());
    for (const Value& flag : reference.otherFlags) {
        const std::string text = toText(flag);
        const bool isWord = std::holds_alternative<std::string>(flag) && (text.empty() || text[0] != '-');
        out << ' ' << (isWord ? quotedText(text) : text);
    }
    out << ' ' << quotedText(fileToWrite(reference, path)) << ";\n";
}

void writeDepths(std::ostream& out, const ReferenceList& list, int depth, const std::string& path)
{
    for (const auto& reference : list) {
        writeStatement(out, *reference, "-rdi " + std::to_string(depth), path);
        writeDepths(out, reference->inner, depth + 1, path);
    }
}

}  // namespace

Reference& createReference(Session& session, ReferenceRequest request)
{
    Scene& scene = session.scene;
    request.file = withoutCopyNumber(request.file);
    const std::string path = resolved(request.file, scene.fileName(), {});
    refuseLoop(scene, path, nullptr);
    if (request.nameSpace.empty())
        request.nameSpace = baseName(path);
    const bool isInRoot = Scene::isRootNamespace(request.nameSpace);
    request.nameSpace = isInRoot ? std::string() : scene.freeNamespace(Scene::legalName(request.nameSpace));
    if (request.nodeName.empty())
        request.nodeName = (isInRoot ? baseName(path) : request.nameSpace) + "RN";
    if (request.otherFlags.empty()) {
        const std::string type = fileTypeName(fileTypeOfName(path).value_or(SceneFileType::Ascii));
        request.otherFlags = {std::string("-op"), std::string("v=0;"), std::string("-typ"), type};
    }
    Reference& reference = addReference(session, nullptr, std::move(request), path);
    reference.node->unknownStatements.push_back("lockNode -l 1 ;");
    try {
        if (!reference.isDeferred)
            readIntoScene(session, reference);
    } catch (...) {
        dropReference(session, reference);
        throw;
    }
    scene.setModified();
    scene.requestRedraw();
    return reference;
}

void takeReference(Session& session, SceneIntake& intake, ReferenceRequest request,
                   const std::function<void(const std::string&)>& warn)
{
    Scene& scene = session.scene;
    request.file = withoutCopyNumber(request.file);
    const std::string path = resolved(request.file, intake.path(), scene.fileName());
    refuseLoop(scene, path, intake.reference());
    const bool isInRoot = Scene::isRootNamespace(request.nameSpace);
    const std::string fileNamespace = isInRoot ? std::string() : Scene::legalName(request.nameSpace);
    request.nameSpace = isInRoot ? intake.nameSpace() : intake.inNamespace(fileNamespace);
    if (intake.purpose() == SceneIntake::Purpose::Import) {
        request.file = path;  // what it is relative to is not the scene
        if (!isInRoot) {
            request.nameSpace = scene.freeNamespace(request.nameSpace);
            intake.mapNamespace(fileNamespace, request.nameSpace);
        }
    }
    const std::string nodeName = request.nodeName.empty() ? baseName(path) + "RN" : request.nodeName;
    request.nodeName = intake.nameFor(nodeName);
    Reference& reference = addReference(session, intake.reference(), std::move(request), path);
    intake.adopt(nodeName, reference.node);
    if (reference.isDeferred)
        return;
    try {
        readFile(session, reference);
    } catch (const CommandError& error) {
        warn(error.what());
    }
}

void loadReference(Session& session, Reference& reference)
{
    if (reference.isLoaded)
        return;
    readIntoScene(session, reference);
    reference.isDeferred = false;
    // What was kept for its nodes is read as it would have been with the scene.
    std::ostringstream statements;
    statements << "select -ne " << quotedText(reference.node->name()) << ";\n";
    writeReferenceEdits(statements, reference.node->name(), reference.keptEdits);
    SceneIntake intake(session, SceneIntake::Purpose::Open, session.scene.fileName());
    session.script().beginScene(intake)->run(statements.str());
    session.scene.setModified();
}

void removeReference(Session& session, Reference& reference)
{
    if (reference.outer)
        throw CommandError("Only the file that makes a reference can remove it: " + reference.name());
    session.undo.flush();
    if (!reference.nameSpace.empty())
        forgetParents(session.scene, reference.nameSpace);
    dropReference(session, reference);
    session.scene.setModified();
}

Reference* referenceOf(const Scene& scene, const Node& node)
{
    Reference* found = nullptr;
    walk(scene.references, [&](Reference& reference) {
        if (reference.node.get() == &node)
            found = &reference;
    });
    return found;
}

Reference& findReference(const Scene& scene, const std::string& fileOrNode)
{
    const std::string file = withoutCopyNumber(fileOrNode);
    const std::string path = resolved(file, scene.fileName(), {}) + fileOrNode.substr(file.size());
    Reference* found = nullptr;
    walk(scene.references, [&](Reference& reference) {
        if (reference.name() == path || reference.node->name() == fileOrNode)
            found = &reference;
    });
    if (!found)
        throw CommandError("No reference matches name: " + fileOrNode);
    return *found;
}

void refuseReferencedFile(const Scene& scene, const std::string& path)
{
    walk(scene.references, [&](const Reference& reference) {
        if (isSameFile(path, reference.path))
            throw CommandError("The file \"" + path + "\" is referenced by the scene, which cannot take its place.");
    });
}

void writeEdits(std::ostream& out, const Scene& scene, const Node& node)
{
    const Reference* const reference = node.typeName() == "reference" ? referenceOf(scene, node) : nullptr;
    if (reference)
        writeReferenceEdits(out, node.name(), currentEdits(scene, *reference));
}

void writeReferences(std::ostream& out, const Scene& scene, const std::string& path)
{
    writeDepths(out, scene.references, 1, path);
    for (const auto& reference : scene.references)
        writeStatement(out, *reference, "-r", path);
}

}  // namespace kernel
