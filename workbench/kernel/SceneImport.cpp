#include "kernel/SceneImport.h"

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

}  // namespace

std::vector<NodePtr> importScene(Session& session, const std::string& path, const ImportNaming& naming)
{
    Scene& scene = session.scene;
    const SceneContent content(absolutePath(path));
    std::vector<NodePtr> nodes;
    {
        const Scene::Activity activity(scene, FileActivity::Import);
        const During reading(session.events, "readingFile");
        const UndoQueue::Suspend suspend(session.undo);
        SceneIntake intake(session, SceneIntake::Purpose::Import, content.path(),
                           intakeNaming(scene, content.path(), naming));
        addToScene(session, content, intake);
        nodes = intake.nodes();
    }
    scene.setModified();
    scene.requestRedraw();
    return nodes;
}

}  // namespace kernel
