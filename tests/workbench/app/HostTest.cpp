#include "app/Host.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

app::HostOptions optionsFor(const QString& prefsDir)
{
    app::HostOptions options;
    options.prefsDir = prefsDir.toStdString();
    return options;
}

}  // namespace

TEST(Host, KeepsOptionVariablesInItsPreferencesFolder)
{
    QTemporaryDir folder;
    const QString prefs = folder.filePath("made/when missing");
    {
        app::Host host(optionsFor(prefs));
        EXPECT_TRUE(QFileInfo(prefs).isDir());
        EXPECT_EQ(kernel::toText(host.evaluate("internalVar -userPrefDir")), (prefs + "/").toStdString());
    }
    EXPECT_FALSE(QFileInfo::exists(prefs + "/optionVars.mel")) << "nothing to keep";
    {
        app::Host host(optionsFor(prefs));
        EXPECT_TRUE(host.run("optionVar -iv brushSize 12 -sv \"a name\" \"two\\nlines\""));
    }
    app::Host host(optionsFor(prefs));
    EXPECT_EQ(kernel::toText(host.evaluate("optionVar -q brushSize")), "12");
    EXPECT_EQ(kernel::toText(host.evaluate("optionVar -q \"a name\"")), "two\nlines");
}

TEST(Host, TellsThatItEndsOnceWhileCommandsStillWork)
{
    QTemporaryDir folder;
    app::Host host(optionsFor(folder.path()));
    int told = 0;
    host.session().events.add("quitApplication", [&] {
        ++told;
        EXPECT_TRUE(host.run("createNode transform -n last"));
    });
    host.shutDown();
    host.shutDown();
    EXPECT_EQ(told, 1);
}
