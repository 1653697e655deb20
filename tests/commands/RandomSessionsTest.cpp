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

struct Count {
    int succeeded = 0;
    int failed = 0;
};
using Census = std::vector<Count>;

/// Plays a session and counts what its lines came to. lines: what was played.
std::string play(const std::vector<GeneratedLine>& session, Census& census, Lines& lines)
{
    SessionRunner runner;
    for (const GeneratedLine& line : session) {
        lines.push_back(line.text);
        const int before = runner.steps();
        const std::string fault = runner.play(line.text);
        if (!fault.empty()) {
            return fault;
        }
        if (line.mode < 0) {
            continue;
        }
        const size_t mode = static_cast<size_t>(line.mode);
        ++(runner.succeeded() ? census[mode].succeeded : census[mode].failed);
        const bool leavesStep = runner.succeeded() && lineModes()[mode].kind == LineKind::Step;
        if (runner.steps() != before + int(leavesStep)) {
            return line.text + (leavesStep ? " left no step" : " left a step");
        }
    }
    return runner.rewind();
}

/// A kind of line that never succeeds proves nothing, and one that is to be refused must be.
void expectWorthwhile(const Census& census, int sessions)
{
    for (size_t i = 0; i < census.size(); ++i) {
        const LineMode& mode = lineModes()[i];
        if (!qEnvironmentVariableIsEmpty("LUMISKETCH_CENSUS")) {
            std::printf("%7d %7d  %s\n", census[i].succeeded, census[i].failed, mode.text);
        }
        if (mode.kind == LineKind::Refused) {
            EXPECT_EQ(census[i].succeeded, 0) << mode.text;
        } else if (sessions >= 10) {
            EXPECT_GE(census[i].succeeded, sessions / 10) << mode.text;
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
    Census census(lineModes().size());
    for (int seed = first; seed < first + sessions && !testing::Test::HasFailure(); ++seed) {
        Lines lines;
        const std::string fault = play(generateSession(static_cast<unsigned>(seed), kLines), census, lines);
        if (!fault.empty()) {
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
    size_t played = 0;
    const std::string fault = SessionRunner::faultOf(lines, &played);
    EXPECT_EQ(fault, "") << "after line " << played << " of " << lines.size() << ": " << lines[played - 1];
}

}  // namespace
