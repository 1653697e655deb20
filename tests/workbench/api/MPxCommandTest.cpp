#include "api/Registration.h"
#include "support/HostFixture.h"

#include <maya/MArgDatabase.h>
#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>

using testing::ElementsAre;

namespace {

/// What the probe commands did, in order.
std::vector<std::string>& journal()
{
    static std::vector<std::string> entries;
    return entries;
}

int s_alive = 0;

/// `probe -words TEXT [-undoable] [-fail] [-times N]`: undoable only when asked to be.
class Probe : public MPxCommand {
public:
    Probe() { ++s_alive; }
    ~Probe() override { --s_alive; }

    static void* creator() { return new Probe; }
    static MSyntax newSyntax()
    {
        MSyntax syntax;
        syntax.addFlag("-s", "-words", MSyntax::kString);
        syntax.addFlag("-u", "-undoable");
        syntax.addFlag("-f", "-fail");
        syntax.addFlag("t", "times", MSyntax::kLong);
        syntax.setObjectType(MSyntax::kStringObjects, 0, 2);
        return syntax;
    }

    MStatus doIt(const MArgList& args) override
    {
        MStatus status;
        const MArgDatabase parsed(syntax(), args, &status);
        if (!status)
            return status;
        MString text;
        parsed.getFlagArgument("words", 0, text);
        m_text = text.asUTF8();
        m_undoable = parsed.isFlagSet("-undoable");
        journal().push_back("do " + m_text);
        if (parsed.isFlagSet("fail")) {
            displayError("probe failed on purpose");
            return MStatus::kFailure;
        }
        setResult(text);
        return MStatus::kSuccess;
    }
    MStatus undoIt() override
    {
        journal().push_back("undo " + m_text);
        return MStatus::kSuccess;
    }
    MStatus redoIt() override
    {
        journal().push_back("redo " + m_text);
        return MStatus::kSuccess;
    }
    bool isUndoable() const override { return m_undoable; }

private:
    std::string m_text;
    bool m_undoable = false;
};

/// Runs its first argument as script in the middle of its own work, and gives both results.
class Nesting : public MPxCommand {
public:
    static void* creator() { return new Nesting; }
    MStatus doIt(const MArgList& args) override
    {
        setResult(41);
        MString inner;
        MGlobal::executeCommand(args.asString(0), inner);
        int outer = 0;
        if (!getCurrentResult(outer))
            return MStatus::kFailure;
        MString both("outer ");
        both += outer;
        both += MString(", inner ") + inner;
        setResult(both);
        return MStatus::kSuccess;
    }
};

class MPxCommandTest : public HostFixture {
protected:
    MPxCommandTest()
    {
        journal().clear();
        api::registerCommand(session(), "probes", "probe", Probe::creator, Probe::newSyntax);
        api::registerCommand(session(), "probes", "nesting", Nesting::creator, nullptr);
    }
    ~MPxCommandTest() override
    {
        session().undo.flush();
        for (const char* name : {"probe", "nesting"})
            api::deregisterCommand(session(), name);
        EXPECT_EQ(s_alive, 0) << "a command outlived the undo queue";
    }
};

}  // namespace

TEST_F(MPxCommandTest, IsKeptOnlyWhenUndoableAfterDoIt)
{
    ASSERT_TRUE(run("probe -words a"));
    EXPECT_EQ(s_alive, 0);
    EXPECT_EQ(session().undo.count(), 0u);

    ASSERT_TRUE(run("probe -words b -undoable"));
    EXPECT_EQ(s_alive, 1);
    ASSERT_TRUE(run("probe -words c; probe -u -s d"));
    EXPECT_EQ(session().undo.count(), 2u);
    EXPECT_EQ(s_alive, 2);

    session().undo.undo();
    session().undo.undo();
    session().undo.redo();
    EXPECT_THAT(journal(), ElementsAre("do a", "do b", "do c", "do d", "undo d", "undo b", "redo b"));
}

TEST_F(MPxCommandTest, MarksTheSceneAsChangedWhenUndoable)
{
    ASSERT_TRUE(run("probe -words a"));
    EXPECT_FALSE(session().scene.isModified());
    ASSERT_TRUE(run("probe -words b -undoable"));
    EXPECT_TRUE(session().scene.isModified());

    session().scene.setModified(false);
    session().undo.undo();
    EXPECT_TRUE(session().scene.isModified());
    session().scene.setModified(false);
    session().undo.redo();
    EXPECT_TRUE(session().scene.isModified());
}

TEST_F(MPxCommandTest, LeavesNothingBehindWhenDoItFails)
{
    EXPECT_FALSE(run("probe -words a -undoable -fail; probe -words never"));
    EXPECT_THAT(journal(), ElementsAre("do a"));
    EXPECT_EQ(s_alive, 0);
    EXPECT_EQ(session().undo.count(), 0u);
    EXPECT_THAT(errors(), ElementsAre("probe failed on purpose"));  // told once, by the command itself
}

TEST_F(MPxCommandTest, IsNotRunWhenItsArgumentsDoNotFitItsSyntax)
{
    const struct {
        const char* text;
        const char* error;
    } cases[] = {
        {"probe -zz", "Invalid flag '-zz'"},
        {"probe -edit", "Invalid flag '-edit'"},
        {"probe -times x", "Flag 'times' must be passed an integer argument"},
        {"probe a b c", "Incorrect number of objects specified"},
    };
    for (const auto& c : cases) {
        forgetLines();
        EXPECT_FALSE(run(c.text)) << c.text;
        ASSERT_EQ(errors().size(), 1u) << c.text;
        EXPECT_THAT(errors()[0], testing::HasSubstr(std::string("probe: ") + c.error));
    }
    EXPECT_TRUE(journal().empty());
}

TEST_F(MPxCommandTest, GivesEachExecutionAResultOfItsOwn)
{
    EXPECT_EQ(evaluate("nesting \"probe -words x\""), kernel::Value(std::string("outer 41, inner x")));
}

TEST_F(MPxCommandTest, ANameIsRegisteredOnceAndGoesWithItsModule)
{
    EXPECT_FALSE(api::registerCommand(session(), "others", "probe", Probe::creator, nullptr));
    EXPECT_FALSE(api::registerCommand(session(), "others", "createNode", Probe::creator, nullptr));
    EXPECT_THAT(api::commandsOf("probes"), ElementsAre("probe", "nesting"));

    EXPECT_FALSE(api::deregisterCommand(session(), "createNode"));  // the host's own
    EXPECT_THAT(api::dropLeftoversOf(session(), "probes"), testing::SizeIs(2));
    EXPECT_FALSE(run("probe"));
    EXPECT_THAT(errors(), testing::Contains(testing::HasSubstr("Cannot find procedure \"probe\"")));
}
