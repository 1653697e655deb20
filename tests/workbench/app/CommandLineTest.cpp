#include "app/CommandLine.h"

#include <gtest/gtest.h>

using app::CommandLine;
using app::parseCommandLine;

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
