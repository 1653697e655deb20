// Runs a target without a fuzzer, over files that one found or started from.
//
//     replay_NAME                  the target's own seeds, and each cut short in a few places
//     replay_NAME FILE...          these files; of a folder all that it holds
//     replay_NAME --seeds FOLDER   writes the seeds into a folder

#include "FuzzTarget.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace {

void replay(const QByteArray& bytes)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                           static_cast<std::size_t>(bytes.size()));
}

bool replayFile(const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(name), qPrintable(file.errorString()));
        return false;
    }
    replay(file.readAll());
    return true;
}

bool replayAll(const QString& name)
{
    if (!QFileInfo(name).isDir()) {
        return replayFile(name);
    }
    bool ok = true;
    for (QDirIterator entries(name, QDir::Files); entries.hasNext();) {
        ok = replayFile(entries.next()) && ok;
    }
    return ok;
}

bool writeSeeds(const QDir& folder)
{
    bool ok = folder.mkpath(".");
    int number = 0;
    for (const QByteArray& seed : seeds()) {
        QFile file(folder.filePath(QString("seed-%1").arg(++number)));
        ok = file.open(QIODevice::WriteOnly) && file.write(seed) == seed.size() && ok;
    }
    return ok;
}

void replaySeeds()
{
    constexpr int kPieces = 8;
    for (const QByteArray& seed : seeds()) {
        for (int i = 0; i <= kPieces; ++i) {
            replay(seed.left(seed.size() * i / kPieces));
        }
    }
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc == 3 && qstrcmp(argv[1], "--seeds") == 0) {
        return writeSeeds(QDir(QFile::decodeName(argv[2]))) ? 0 : 1;
    }
    if (argc == 1) {
        replaySeeds();
    }
    bool ok = true;
    for (int i = 1; i < argc; ++i) {
        ok = replayAll(QFile::decodeName(argv[i])) && ok;
    }
    return ok ? 0 : 1;
}
