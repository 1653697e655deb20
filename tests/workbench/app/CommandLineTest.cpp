#include "app/CommandLine.h"

#include <gtest/gtest.h>

using app::CommandLine;
using app::parseCommandLine;

TEST(CommandLine, KeepsStepsInTheirOrderWhateverStandsBetween)
{
    const CommandLine line = parseCommandLine({"-command", "a", "-batch", "-script", "b.mel", "-file", "scene.ma",
                                               "-command", "-x", "-prefs", "p", "-noPlugin"});
    ASSERT_EQ(line.error, "");
    ASSERT_EQ(line.steps.size(), 3u);
    EXPECT_EQ(line.steps[0].text, "a");
    EXPECT_EQ(line.steps[1].kind, CommandLine::Step::Kind::Script);
    EXPECT_EQ(line.steps[1].text, "b.mel");
    EXPECT_EQ(line.steps[2].text, "-x") << "what follows an option is its value, dash or not";
    EXPECT_TRUE(line.batch);
    EXPECT_FALSE(line.loadPlugin);
    EXPECT_EQ(line.file, "scene.ma");
    EXPECT_EQ(line.prefsDir, "p");
}

TEST(CommandLine, OpensAWindowWithTheModuleWhenNothingIsSaid)
{
    const CommandLine line = parseCommandLine({});
    EXPECT_EQ(line.error, "");
    EXPECT_FALSE(line.batch);
    EXPECT_TRUE(line.loadPlugin);
    EXPECT_TRUE(parseCommandLine({"--batch"}).batch);
}

TEST(CommandLine, RefusesWhatMakesNoSense)
{
    const struct {
        std::vector<std::string> arguments;
        const char* names;
    } cases[] = {
        {{"-frobnicate"}, "-frobnicate"},
        {{"scene.ma"}, "scene.ma"},
        {{"-batch", "-command"}, "-command"},
        {{"-file", ""}, "-file"},
        {{"-file", "a.ma", "-file", "b.ma"}, "-file"},
    };
    for (const auto& c : cases) {
        EXPECT_NE(parseCommandLine(c.arguments).error.find(c.names), std::string::npos) << c.names;
    }
}
