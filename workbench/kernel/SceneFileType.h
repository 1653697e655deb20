#pragma once

#include <optional>
#include <string>

namespace kernel {

enum class SceneFileType { Ascii, Binary };

const char* fileTypeName(SceneFileType type);       ///< "mayaAscii"
const char* fileTypeExtension(SceneFileType type);  ///< ".ma"
/// None for any other name.
std::optional<SceneFileType> fileTypeNamed(const std::string& typeName);
/// The type that a file's extension stands for; none for other extensions.
std::optional<SceneFileType> fileTypeOfName(const std::string& path);

}  // namespace kernel
