#include "settings/FileReplacement.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#include <cstdio>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace {

constexpr int kLongestWait = 10000;  // milliseconds for another process to finish
constexpr int kStaleAfter = 3000;    // milliseconds after which a lock is nobody's: writing takes a few
constexpr int kLongestLinkChain = 32;

/// The file that a path of links ends at, which need not exist yet; still a link when they lead in a circle.
QString targetOf(QString path)
{
    for (int i = 0; i < kLongestLinkChain && QFileInfo(path).isSymLink(); ++i) {
        path = QFileInfo(path).symLinkTarget();
    }
    return path;
}

/// What QFile::rename() does not do: takes the place of a file that is there.
bool moveInto(const QString& from, const QString& to)
{
#ifdef Q_OS_WIN
    const auto wide = [](const QString& path) { return reinterpret_cast<const wchar_t*>(path.utf16()); };
    const QString source = QDir::toNativeSeparators(from);
    const QString target = QDir::toNativeSeparators(to);
    return MoveFileExW(wide(source), wide(target), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
#else
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
#endif
}

}  // namespace

bool replaceFile(const QString& path, const std::function<bool(const QString& name)>& write)
{
    const QString target = targetOf(path);
    const QFileInfo old(target);
    // A rename would also replace what the user has made read only.
    if (old.isSymLink() || (old.exists() && !(old.isFile() && old.isWritable()))) {
        return false;
    }
    QDir().mkpath(old.absolutePath());
    QLockFile lock(target + QLatin1String(".lock"));
    lock.setStaleLockTime(kStaleAfter);
    if (!lock.tryLock(kLongestWait)) {
        return false;
    }
    // Whatever writing makes besides the file itself goes with the folder.
    QDir folder(target + QLatin1String(".saving"));
    folder.removeRecursively();
    if (!folder.mkpath(QString::fromLatin1("."))) {
        return false;
    }
    const QString fresh = folder.filePath(old.fileName());
    const bool replaced =
        write(fresh) && (!old.exists() || QFile::setPermissions(fresh, old.permissions())) && moveInto(fresh, target);
    folder.removeRecursively();
    return replaced;
}
