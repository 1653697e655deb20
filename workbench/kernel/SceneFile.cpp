#include "kernel/SceneFile.h"

#include "kernel/AtomicFile.h"
#include "kernel/SceneIntake.h"
#include "kernel/SceneWriter.h"
#include "kernel/Session.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include <sys/stat.h>

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

[[noreturn]] void failReading(const std::string& path, int error)
{
    if (error == ENOENT || error == ENOTDIR)
        throw CommandError("File not found: " + path);
    throw CommandError("The file \"" + path + "\" could not be read: " + std::generic_category().message(error));
}

std::string readWhole(const std::string& path)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        failReading(path, errno);
    if (S_ISDIR(status.st_mode))
        failReading(path, EISDIR);
    errno = 0;
    std::ifstream in(path, std::ios::binary);
    if (!in)
        failReading(path, errno ? errno : EIO);
    std::string text(static_cast<std::size_t>(status.st_size), '\0');
    in.read(&text[0], static_cast<std::streamsize>(text.size()));
    if (in.bad())
        failReading(path, EIO);
    text.resize(static_cast<std::size_t>(in.gcount()));
    return text;
}

void writeSceneFile(Session& session, const std::string& absolutePath)
{
    AtomicFile file(absolutePath);
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

}  // namespace

std::string absolutePath(const std::string& path)
{
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute.lexically_normal().string();
}

SceneContent readSceneFile(const std::string& absolutePath)
{
    SceneContent content{absolutePath, readWhole(absolutePath)};
    if (content.bytes.compare(0, 6, "//Maya") != 0)
        throw CommandError("The file \"" + absolutePath + "\" is not a Maya ASCII scene.");
    return content;
}

bool addToScene(Session& session, const SceneContent& content, SceneIntake& intake)
{
    return session.script().executeScene(content.bytes, intake);
}

void writeSceneText(Session& session, std::ostream& out, const std::string& fileName)
{
    SceneWriter(session, out, fileName).write();
}

void saveScene(Session& session, const std::string& path)
{
    const std::string absolute = absolutePath(path);
    {
        const Scene::Activity activity(session.scene, FileActivity::Write);
        const During writing(session.events, "writingFile");
        writeSceneFile(session, absolute);
    }
    session.scene.setFileName(absolute);
    session.scene.setModified(false);
    session.events.raise("SceneSaved");
}

void openScene(Session& session, const std::string& path)
{
    const std::string absolute = absolutePath(path);
    const SceneContent content = readSceneFile(absolute);
    Scene& scene = session.scene;
    const TimeState before(scene);
    {
        const Scene::Activity activity(scene, FileActivity::Open);
        const During reading(session.events, "readingFile");
        const UndoQueue::Suspend suspend(session.undo);
        session.undo.flush();
        scene.reset();
        scene.setFileName(absolute);
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
    const TimeState before(scene);
    {
        const During deleting(session.events, "deleteAllCondition");
        session.events.raise("deleteAll");
        const Scene::Activity activity(scene, FileActivity::New);
        const During flushing(session.events, "flushingScene");
        session.undo.flush();
        scene.reset();
    }
    before.raiseChanges(session);
    session.events.raise("NewSceneOpened");
    scene.setModified(false);
}

}  // namespace kernel
