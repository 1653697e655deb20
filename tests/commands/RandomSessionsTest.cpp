// Sessions by chance: whatever is done, undo and redo go through the same states again, at every single step.
//     LUMISKETCH_SESSIONS=100     as many sessions instead of the few of every run
//     LUMISKETCH_FIRST_SESSION=7  beginning with this one
//     LUMISKETCH_SESSION=FILE     runs the script of a failed session instead
//     LUMISKETCH_CENSUS=1         prints how often each kind of line succeeded and failed

#include "commands/RandomSessionsGenerator.h"
#include "commands/RandomSessionsRunner.h"
#include "commands/RandomSessionsShrinker.h"

#include <fstream>

namespace {

using Lines = std::vector<std::string>;

#if defined(__SANITIZE_ADDRESS__)
const int kSessions = 1;
#else
const int kSessions = 10;
#endif
const int kLines = 500;

int setting(const char* name, int byDefault)
{
    return qEnvironmentVariableIsEmpty(name) ? byDefault : qEnvironmentVariableIntValue(name);
}

Lines linesOf(std::istream& stream)
{
    Lines lines;
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty() && line.compare(0, 2, "//") != 0) {
            lines.push_back(line);
        }
    }
    return lines;
}

std::string text(const Lines& lines)
{
    std::string all;
    for (const std::string& line : lines) {
        all += line + "\n";
    }
    return all;
}

bool fails(const Lines& lines)
{
    return !SessionRunner::faultOf(lines).empty();
}

/// A kind of line that never succeeds proves nothing, unless it is to be refused.
void expectWorthwhile(const SessionRunner::Census& census, int sessions)
{
    for (size_t i = 0; i < census.modes.size(); ++i) {
        const LineMode& mode = lineModes()[i];
        if (!qEnvironmentVariableIsEmpty("LUMISKETCH_CENSUS")) {
            std::printf("%7d %7d  %s\n", census.modes[i].succeeded, census.modes[i].failed, mode.text);
        }
        if (mode.kind != LineKind::Refused && sessions >= 10) {
            EXPECT_GE(census.modes[i].succeeded, sessions / 10) << mode.text;
        }
    }
}

TEST(RandomSessions, UndoAndRedoComeToTheSameStatesAgain)
{
    if (!qEnvironmentVariableIsEmpty("LUMISKETCH_SESSION")) {
        GTEST_SKIP() << "a failed session is run instead";
    }
    const int first = setting("LUMISKETCH_FIRST_SESSION", 1);
    const int sessions = setting("LUMISKETCH_SESSIONS", kSessions);
    ASSERT_GT(sessions, 0) << "LUMISKETCH_SESSIONS is to be a number";
    SessionRunner::Census census;
    for (int seed = first; seed < first + sessions && !testing::Test::HasFailure(); ++seed) {
        Lines lines = generateSession(static_cast<unsigned>(seed), kLines);
        const std::string fault = SessionRunner::faultOf(lines, &census);
        if (!fault.empty()) {
            lines.resize(census.lines);
            const Lines shortest = fails(lines) ? shortestFailing(lines, fails) : lines;
            FAIL() << "Session " << seed << ", " << fault << "\n\nThe shortest that fails; put into a file, "
                   << "LUMISKETCH_SESSION=FILE runs it again:\n"
                   << "// " << seed << "\n"
                   << text(shortest) << "\n"
                   << SessionRunner::faultOf(shortest);
        }
    }
    expectWorthwhile(census, sessions);
}

TEST(RandomSessions, AFailedSessionRunsAgainFromAFile)
{
    const std::string name = qgetenv("LUMISKETCH_SESSION").toStdString();
    if (name.empty()) {
        GTEST_SKIP() << "no file is given";
    }
    std::ifstream file(name);
    ASSERT_TRUE(file) << name;
    const Lines lines = linesOf(file);
    ASSERT_FALSE(lines.empty()) << name;
    SessionRunner::Census census;
    const std::string fault = SessionRunner::faultOf(lines, &census);
    EXPECT_EQ(fault, "") << "after line " << census.lines << " of " << lines.size() << ": " << lines[census.lines - 1];
}

}  // namespace
