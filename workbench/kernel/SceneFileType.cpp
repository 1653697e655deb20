#include "kernel/SceneFileType.h"

namespace kernel {

namespace {

struct Row {
    SceneFileType type;
    const char* name;
    const char* extension;
};
const Row kRows[] = {
    {SceneFileType::Ascii, "mayaAscii", ".ma"},
    {SceneFileType::Binary, "mayaBinary", ".mb"},
};

const Row& rowOf(SceneFileType type)
{
    return kRows[type == SceneFileType::Ascii ? 0 : 1];
}

}  // namespace

const char* fileTypeName(SceneFileType type)
{
    return rowOf(type).name;
}

const char* fileTypeExtension(SceneFileType type)
{
    return rowOf(type).extension;
}

std::optional<SceneFileType> fileTypeNamed(const std::string& typeName)
{
    for (const Row& row : kRows) {
        if (typeName == row.name)
            return row.type;
    }
    return std::nullopt;
}

std::optional<SceneFileType> fileTypeOfName(const std::string& path)
{
    for (const Row& row : kRows) {
        const std::string extension = row.extension;
        if (path.size() > extension.size()
            && path.compare(path.size() - extension.size(), extension.size(), extension) == 0)
            return row.type;
    }
    return std::nullopt;
}

}  // namespace kernel
