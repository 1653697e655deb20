#pragma once

#include <QString>

#include <functional>

/// Gives the file at a path new content, so that the path holds either all of the old content or all of the new,
/// whenever this process is killed and whoever else replaces the file at the same time; the last one wins. A link is
/// followed: what it points at is replaced. The permissions of a file that was there stay. Folders are made as needed.
/// write: fills the new file under the name it is given, in a folder beside the target; false gives up.
/// Returns false, with the old content in place, when that or anything else fails.
/// Beside the target stand meanwhile a lock, named with ".lock", and the folder, named with ".saving"; what a killed
/// process left of either is used and removed by the next one.
bool replaceFile(const QString& path, const std::function<bool(const QString& name)>& write);
