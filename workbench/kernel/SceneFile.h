#pragma once

#include "kernel/SceneFileType.h"

#include <iosfwd>
#include <optional>
#include <string>

namespace kernel {

class Scene;
class Session;

/// Writes the scene in text form (restricted script). Throws CommandError when a module's data cannot be written.
void writeSceneText(Session& session, std::ostream& out, const std::string& fileName);

/// The same in binary form, to a stream that can be written in any order.
void writeSceneBinary(Session& session, std::ostream& out);

/// The type a scene is saved in when none is asked for: the one set for it or read, or that of the name's extension.
SceneFileType fileTypeFor(const Scene& scene, const std::string& path);
/// Saves to `path` by way of a temporary file beside it and a rename; throws CommandError with the reason and
/// leaves an existing file untouched when that fails.
void saveScene(Session& session, const std::string& path, std::optional<SceneFileType> type = std::nullopt);
/// Replaces the scene by the file's, whose type its content tells. A file that is missing or no scene throws
/// CommandError and leaves the scene alone; errors inside it are reported with file and line, and what could be read is
/// kept.
void openScene(Session& session, const std::string& path);
void newScene(Session& session);

}  // namespace kernel
