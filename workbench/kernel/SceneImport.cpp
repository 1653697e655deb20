#include "kernel/SceneImport.h"

#include "kernel/FileContent.h"
#include "kernel/ObjFile.h"
#include "kernel/SceneFile.h"
#include "kernel/SceneIntake.h"
#include "kernel/Session.h"

#include <filesystem>

namespace kernel {

namespace {

SceneIntake::Naming intakeNaming(const Scene& scene, const std::string& path, const ImportNaming& naming)
{
    if (Scene::isRootNamespace(naming.nameSpace)) {
        const std::string name =
            naming.clashPrefix.empty() ? std::filesystem::path(path).stem().string() : naming.clashPrefix;
        return {{}, Scene::legalName(name)};
    }
    const std::string wanted = Scene::legalName(naming.nameSpace);
    return {naming.mergeNamespaces ? wanted : scene.freeNamespace(wanted), {}};
}

/// read: makes the nodes of the file.
template <typename Read>
std::vector<NodePtr> imported(Session& session, const std::string& absolutePath, const ImportNaming& naming, Read read)
{
    Scene& scene = session.scene;
    std::vector<NodePtr> nodes;
    {
        const Scene::Activity activity(scene, FileActivity::Import);
        const During reading(session.events, "readingFile");
        const UndoQueue::Suspend suspend(session.undo);
        SceneIntake intake(session, SceneIntake::Purpose::Import, absolutePath,
                           intakeNaming(scene, absolutePath, naming));
        read(intake);
        nodes = intake.nodes();
    }
    scene.setModified();
    scene.requestRedraw();
    return nodes;
}

std::vector<ObjObject> objectsIn(const std::string& path)
{
    const FileContent content(path);
    try {
        std::vector<ObjObject> objects = readObj(content.bytes());
        if (objects.empty())
            throw CommandError("it holds no faces.");
        return objects;
    } catch (const CommandError& error) {
        throw CommandError("The file \"" + path + "\" could not be read: " + error.what());
    }
}

void addMesh(SceneIntake& intake, const std::string& name, const std::shared_ptr<MeshData>& mesh)
{
    NodeRequest request;
    request.type = "transform";
    request.name = name;
    const NodePtr transform = intake.createNode(request);
    request.type = "mesh";
    request.name = Scene::shapeName(name);
    request.parent = transform;
    const NodePtr shape = intake.createNode(request);
    shape->setValue(*shape->attribute("inMesh"), std::shared_ptr<CustomData>(mesh));
}

}  // namespace

std::vector<NodePtr> importScene(Session& session, const std::string& path, const ImportNaming& naming)
{
    const SceneContent content(absolutePath(path));
    return imported(session, content.path(), naming,
                    [&](SceneIntake& intake) { addToScene(session, content, intake); });
}

std::vector<NodePtr> importMeshes(Session& session, const std::string& path, const ImportNaming& naming)
{
    const std::string absolute = absolutePath(path);
    const std::vector<ObjObject> objects = objectsIn(absolute);
    const std::string unnamed = std::filesystem::path(absolute).stem().string();
    return imported(session, absolute, naming, [&](SceneIntake& intake) {
        for (const ObjObject& object : objects)
            addMesh(intake, Scene::legalName(object.name.empty() ? unnamed : object.name), object.mesh);
    });
}

}  // namespace kernel
