#include "settings/FileReplacement.h"
#include "support/QtPrint.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class FileReplacementTest : public testing::Test {
protected:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    static bool write(const QString& name, const QByteArray& text)
    {
        QFile file(name);
        return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
    }
    static QByteArray read(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }
    static bool replaceBy(const QString& name, const QByteArray& text)
    {
        return replaceFile(name, [&](const QString& fresh) { return write(fresh, text); });
    }
    QStringList entries() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(FileReplacementTest, TheOldContentStandsUntilTheNewIsWhole)
{
    ASSERT_TRUE(write(path("a.ini"), "old, and longer than the new"));
    QByteArray meanwhile;
    EXPECT_TRUE(replaceFile(path("a.ini"), [&](const QString& fresh) {
        const bool written = write(fresh, "new");
        meanwhile = read(path("a.ini"));
        return written;
    }));
    EXPECT_EQ(meanwhile, "old, and longer than the new");
    EXPECT_EQ(read(path("a.ini")), "new");
    EXPECT_EQ(entries(), QStringList("a.ini"));
}

TEST_F(FileReplacementTest, WritingThatFailsKeepsTheOldContentAndLeavesNothing)
{
    ASSERT_TRUE(write(path("a.ini"), "old"));
    EXPECT_FALSE(replaceFile(path("a.ini"), [](const QString& fresh) {
        write(fresh, "half");
        return false;
    }));
    EXPECT_FALSE(replaceFile(path("a.ini"), [](const QString&) { return true; })) << "nothing was written";
    EXPECT_EQ(read(path("a.ini")), "old");
    EXPECT_EQ(entries(), QStringList("a.ini"));
}

TEST_F(FileReplacementTest, LinksAreFollowedAndStay)
{
    ASSERT_TRUE(QDir().mkpath(path("elsewhere")));
    ASSERT_TRUE(write(path("elsewhere/real.ini"), "old"));
    ASSERT_TRUE(QFile::link("elsewhere/real.ini", path("second.ini")));
    ASSERT_TRUE(QFile::link(path("second.ini"), path("first.ini")));
    EXPECT_TRUE(replaceBy(path("first.ini"), "new"));
    EXPECT_TRUE(QFileInfo(path("first.ini")).isSymLink());
    EXPECT_TRUE(QFileInfo(path("second.ini")).isSymLink());
    EXPECT_EQ(read(path("elsewhere/real.ini")), "new");

    ASSERT_TRUE(QFile::link("elsewhere/not-yet.ini", path("dangling.ini")));
    EXPECT_TRUE(replaceBy(path("dangling.ini"), "new"));
    EXPECT_TRUE(QFileInfo(path("dangling.ini")).isSymLink());
    EXPECT_EQ(read(path("elsewhere/not-yet.ini")), "new");

    ASSERT_TRUE(QFile::link("circle.ini", path("circle.ini")));
    EXPECT_FALSE(replaceBy(path("circle.ini"), "new"));
    EXPECT_TRUE(QFileInfo(path("circle.ini")).isSymLink());
}

TEST_F(FileReplacementTest, PermissionsStayAndMissingFoldersAreMade)
{
    const QFile::Permissions ownersOnly = QFile::ReadOwner | QFile::WriteOwner;
    ASSERT_TRUE(write(path("a.ini"), "old"));
    ASSERT_TRUE(QFile::setPermissions(path("a.ini"), ownersOnly));
    EXPECT_TRUE(replaceBy(path("a.ini"), "new"));
    EXPECT_EQ(QFile::permissions(path("a.ini")) & ~(QFile::ReadUser | QFile::WriteUser), ownersOnly);

    EXPECT_TRUE(replaceBy(path("not/there/yet.ini"), "new"));
    EXPECT_EQ(read(path("not/there/yet.ini")), "new");
}

// As a process leaves them that is killed while it saves.
TEST_F(FileReplacementTest, LeftoversOfAKilledSaveAreInNobodysWay)
{
    ASSERT_TRUE(write(path("a.ini"), "old"));
    ASSERT_TRUE(QDir().mkpath(path("a.ini.saving/deeper")));
    ASSERT_TRUE(write(path("a.ini.saving/a.ini"), "half"));
    ASSERT_TRUE(write(path("a.ini.lock"), "999999999\nlumisketch\n" + QSysInfo::machineHostName().toUtf8() + "\n"));
    EXPECT_TRUE(replaceFile(path("a.ini"), [](const QString& fresh) {
        EXPECT_FALSE(QFile::exists(fresh));
        return write(fresh, "new");
    }));
    EXPECT_EQ(read(path("a.ini")), "new");
    EXPECT_EQ(entries(), QStringList("a.ini"));
}

}  // namespace
