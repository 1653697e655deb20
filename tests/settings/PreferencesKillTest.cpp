// A process killed at any moment while it saves the preferences.

#include "support/Dice.h"
#include "support/SettingsFixture.h"

#include <QDir>
#include <QFile>
#include <QThread>

#include <cstdio>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class PreferencesKillTest : public SettingsFixture {
protected:
    const QString path = prefsDir() + "/shared.ini";

    static Preferences version(int number)
    {
        Preferences preferences;
        preferences.setMainMenuName(QString(number * 100, QChar('A' + number)));
        preferences.setToolSize(ToolType::Pencil, number);
        return preferences;
    }

    QByteArray content() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Starts a process that saves both versions in turn; returns when it has begun to.
    pid_t startSaving()
    {
        int ready[2];
        if (::pipe(ready) != 0) {
            return -1;
        }
        const pid_t process = ::fork();
        if (process == 0) {
            for (int turn = 0;; ++turn) {
                version(1 + turn % 2).saveTo(path);
                if (turn == 0 && ::write(ready[1], "x", 1) != 1) {
                    ::_exit(1);
                }
            }
        }
        ::close(ready[1]);  // so that the end of a process that fails at once is noticed
        char byte;
        const bool begun = process > 0 && ::read(ready[0], &byte, 1) == 1;
        ::close(ready[0]);
        return begun ? process : -1;
    }

    /// What the processes made that were killed.
    QStringList leftovers() const
    {
        return QDir(prefsDir()).entryList({"shared.ini?*"}, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
};

TEST_F(PreferencesKillTest, TheFileIsTheOldOrTheNewVersion)
{
    constexpr int kKills = 100;
    constexpr int kLongestWait = 60;  // milliseconds, several saves
    QByteArray versions[2];
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(version(i + 1).saveTo(path));
        versions[i] = content();
    }
    ASSERT_NE(versions[0], versions[1]);

    Dice dice(2);
    int hits = 0;
    int seen[2] = {};
    for (int i = 0; i < kKills; ++i) {
        const pid_t process = startSaving();
        ASSERT_GT(process, 0);
        QThread::usleep(static_cast<unsigned long>(dice.between(0, kLongestWait * 1000)));
        ASSERT_EQ(::kill(process, SIGKILL), 0);
        ::waitpid(process, nullptr, 0);
        const QByteArray found = content();
        ASSERT_TRUE(found == versions[0] || found == versions[1]) << "kill " << i << ":\n" << found.toStdString();
        ++seen[found == versions[1]];
        hits += !leftovers().isEmpty();
        ASSERT_LE(leftovers().size(), 2) << leftovers().join(' ').toStdString();
    }
    std::printf("%d kills, %d of them while a file was written; found the versions %d and %d times\n", kKills, hits,
                seen[0], seen[1]);
    EXPECT_GT(hits, 0);
    EXPECT_TRUE(version(1).saveTo(path));
    EXPECT_EQ(content(), versions[0]);
    EXPECT_TRUE(leftovers().isEmpty()) << leftovers().join(' ').toStdString();
}

}  // namespace
