#pragma once

#include "kernel/FileContent.h"
#include "kernel/SceneFileType.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace kernel {

class Scene;
class SceneIntake;
class Session;

/// Writes the scene in text form (restricted script). Throws CommandError when a module's data cannot be written.
void writeSceneText(Session& session, std::ostream& out, const std::string& fileName);

/// The same in binary form, to a stream that can be written in any order.
void writeSceneBinary(Session& session, std::ostream& out, const std::string& fileName);

/// The type a scene is saved in when none is asked for: the one set for it or read, or that of the name's extension.
SceneFileType fileTypeFor(const Scene& scene, const std::string& path);
/// Saves to `path`, which no file of a reference may lie at, by way of a temporary file beside it and a rename; throws
/// CommandError with the reason and leaves an existing file untouched when that fails.
void saveScene(Session& session, const std::string& path, std::optional<SceneFileType> type = std::nullopt);
/// Replaces the scene by the file's, whose type its content tells. A file that is missing or no scene throws
/// CommandError and leaves the scene alone; errors inside it are reported with file and line, and what could be read is
/// kept.
void openScene(Session& session, const std::string& path);
void newScene(Session& session);

/// A scene file whose bytes are at hand.
class SceneContent {
public:
    /// Recognises the file by its content. Throws CommandError when it is missing or no scene.
    explicit SceneContent(const std::string& absolutePath);

    const std::string& path() const { return m_path; }
    SceneFileType type() const { return m_type; }
    std::string_view bytes() const { return m_file.bytes(); }
    /// A part that has been read need not stay in memory.
    void release(std::string_view part) const { m_file.release(part); }

private:
    const std::string m_path;
    const FileContent m_file;
    const SceneFileType m_type;
};
/// Adds what a scene file holds to the scene as it stands; false, and reported, when some of it could not be read.
bool addToScene(Session& session, const SceneContent& content, SceneIntake& intake);
/// The path from the root, without "." and "..".
std::string absolutePath(const std::string& path);

}  // namespace kernel
