#pragma once

#include <iosfwd>
#include <string>

namespace kernel {

class SceneIntake;
class Session;

/// Writes the scene in text form (restricted script). Throws CommandError when a module's data cannot be written.
void writeSceneText(Session& session, std::ostream& out, const std::string& fileName);

/// Saves to `path` by way of a temporary file beside it and a rename; throws CommandError with the reason and
/// leaves an existing file untouched when that fails.
void saveScene(Session& session, const std::string& path);
/// Replaces the scene by the file's. A file that is missing or no scene throws CommandError and leaves the scene
/// alone; errors inside it are reported with file and line, and what could be read is kept.
void openScene(Session& session, const std::string& path);
void newScene(Session& session);

/// A scene file in memory.
struct SceneContent {
    std::string path;
    std::string bytes;
};
/// Reads a file into memory. Throws CommandError when it is missing or no scene.
SceneContent readSceneFile(const std::string& absolutePath);
/// Adds what a scene file holds to the scene as it stands; false, and reported, when some of it could not be read.
bool addToScene(Session& session, const SceneContent& content, SceneIntake& intake);
/// The path from the root, without "." and "..".
std::string absolutePath(const std::string& path);

}  // namespace kernel
