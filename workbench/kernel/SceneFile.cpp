#include "kernel/SceneFile.h"

#include "kernel/AtomicFile.h"
#include "kernel/References.h"
#include "kernel/SceneBinaryReader.h"
#include "kernel/SceneBinaryWriter.h"
#include "kernel/SceneIntake.h"
#include "kernel/SceneSections.h"
#include "kernel/SceneWriter.h"
#include "kernel/Session.h"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace kernel {

namespace {

/// What the rest of the host shows of a scene's time, to tell it once what a file or a new scene has changed.
struct TimeState {
    explicit TimeState(const Scene& scene)
        : unit(scene.timeUnit()), time(scene.currentTime()), playback(scene.playbackRange()),
          animation(scene.animationRange())
    {}

    void raiseChanges(Session& session) const
    {
        const TimeState now(session.scene);
        if (now.unit != unit)
            session.events.raise("timeUnitChanged");
        if (!same(now.playback, playback) || !same(now.animation, animation))
            session.events.raise("playbackRangeChanged");
        if (now.time.ticks() != time.ticks())
            session.events.raise("timeChanged");
    }

    static bool same(Scene::Range a, Scene::Range b) { return a.first == b.first && a.last == b.last; }

    const TimeUnit unit;
    const Time time;
    const Scene::Range playback;
    const Scene::Range animation;
};

/// What a file is, by its content. Throws CommandError when it is no scene that can be read.
SceneFileType recognise(std::string_view bytes, const std::string& path)
{
    if (isBinaryScene(bytes))
        return SceneFileType::Binary;
    if (bytes.substr(0, 6) == "//Maya")
        return SceneFileType::Ascii;
    const char* const fault =
        bytes.substr(0, 4) == "FOR4" ? "of an older binary form that is not supported." : "not a Maya scene.";
    throw CommandError("The file \"" + path + "\" is " + fault);
}

void writeSceneFile(Session& session, const std::string& absolutePath, SceneFileType type)
{
    AtomicFile file(absolutePath);
    if (type == SceneFileType::Binary)
        writeSceneBinary(session, file.stream(), absolutePath);
    else
        writeSceneText(session, file.stream(), absolutePath);
    file.commit();
}

/// Whether a script node was made by the writer. Where the scene has its name already it came in with a number.
bool carriesPlaybackRange(const Node& node)
{
    const std::string start = kSceneConfigurationNode;
    return node.name().compare(0, start.size(), start) == 0
        && node.name().find_first_not_of("0123456789", start.size()) == std::string::npos;
}

/// Runs the scripts that set up the scene once it is read; the one that carries the playback range has then done all
/// it is for.
void runConfigurationScripts(Session& session)
{
    const std::vector<NodePtr> nodes = session.scene.nodes();
    for (const NodePtr& node : nodes) {
        if (!node->isInScene() || node->referenced || node->type().name != "script"
            || node->number("scriptType") != kSceneConfigurationType)
            continue;
        session.script().execute(node->text("before"), false, false);
        if (carriesPlaybackRange(*node))
            session.scene.detach(node);
    }
}

void flushScene(Session& session)
{
    const During flushing(session.events, "flushingScene");
    session.undo.flush();
    session.scene.reset();
}

}  // namespace

std::string absolutePath(const std::string& path)
{
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute.lexically_normal().string();
}

SceneContent::SceneContent(const std::string& absolutePath)
    : m_path(absolutePath), m_file(absolutePath), m_type(recognise(m_file.bytes(), absolutePath))
{}

bool addToScene(Session& session, const SceneContent& content, SceneIntake& intake)
{
    const PartRead partRead = [&content](std::string_view part) { content.release(part); };
    if (content.type() == SceneFileType::Binary)
        return SceneBinaryReader(session, content.bytes(), intake, partRead).read();
    return session.script().executeScene(content.bytes(), intake, partRead);
}

void writeSceneText(Session& session, std::ostream& out, const std::string& fileName)
{
    SceneWriter(session, out, fileName).write();
}

void writeSceneBinary(Session& session, std::ostream& out, const std::string& fileName)
{
    SceneBinaryWriter(session, out, fileName).write();
}

SceneFileType fileTypeFor(const Scene& scene, const std::string& path)
{
    return scene.fileType().value_or(fileTypeOfName(path).value_or(SceneFileType::Binary));
}

void saveScene(Session& session, const std::string& path, std::optional<SceneFileType> wanted)
{
    const std::string absolute = absolutePath(path);
    refuseReferencedFile(session.scene, absolute);
    const SceneFileType type = wanted.value_or(fileTypeFor(session.scene, absolute));
    {
        const Scene::Activity activity(session.scene, FileActivity::Write);
        const During writing(session.events, "writingFile");
        writeSceneFile(session, absolute, type);
    }
    session.scene.setFileName(absolute);
    session.scene.setFileType(type);
    session.scene.setModified(false);
    session.events.raise("SceneSaved");
}

void openScene(Session& session, const std::string& path)
{
    const std::string absolute = absolutePath(path);
    const SceneContent content(absolute);
    Scene& scene = session.scene;
    session.playback.stop();
    const TimeState before(scene);
    {
        const Scene::Activity activity(scene, FileActivity::Open);
        const During reading(session.events, "readingFile");
        const UndoQueue::Suspend suspend(session.undo);
        flushScene(session);
        scene.setFileName(absolute);
        scene.setFileType(content.type());
        SceneIntake intake(session, SceneIntake::Purpose::Open, absolute);
        scene.setReadWithErrors(!addToScene(session, content, intake));
        runConfigurationScripts(session);
    }
    scene.setModified(false);
    before.raiseChanges(session);
    session.events.raise("PostSceneRead");
    session.events.raise("SceneOpened");
    scene.setModified(false);
}

void newScene(Session& session)
{
    Scene& scene = session.scene;
    session.playback.stop();
    const TimeState before(scene);
    {
        const During deleting(session.events, "deleteAllCondition");
        session.events.raise("deleteAll");
        const Scene::Activity activity(scene, FileActivity::New);
        flushScene(session);
    }
    before.raiseChanges(session);
    session.events.raise("NewSceneOpened");
    scene.setModified(false);
}

}  // namespace kernel
