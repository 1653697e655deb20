#include "support/HostFixture.h"

#include <maya/MDagPath.h>
#include <maya/MGlobal.h>

namespace {

class MGlobalTest : public HostFixture {
protected:
    std::vector<std::string> selected()
    {
        std::vector<std::string> names;
        for (const kernel::NodePtr& node : session().scene.selection())
            names.push_back(node->name());
        return names;
    }
};

using Names = std::vector<std::string>;

}  // namespace

TEST_F(MGlobalTest, GivesAResultOnlyInTheTypeTheTextHas)
{
    int whole = -1;
    double real = -1;
    MString text("untouched");
    MDoubleArray reals;
    EXPECT_TRUE(MGlobal::executeCommand("exists \"createNode\"", whole));
    EXPECT_EQ(whole, 1);
    EXPECT_TRUE(MGlobal::executeCommand("exists \"createNode\"", real));  // an int is a double
    EXPECT_EQ(real, 1.0);
    EXPECT_FALSE(MGlobal::executeCommand("exists \"createNode\"", text));
    EXPECT_EQ(text, MString("untouched"));
    EXPECT_FALSE(MGlobal::executeCommand("createNode \"transform\"", reals));
    EXPECT_FALSE(MGlobal::executeCommand("noSuchCommand", whole));

    MCommandResult result;
    EXPECT_TRUE(MGlobal::executeCommand("createNode \"transform\"", result));
    EXPECT_EQ(result.resultType(), MCommandResult::kString);
    EXPECT_EQ(result.stringResult(), MString("transform2"));
    EXPECT_FALSE(result.getResult(whole));
    EXPECT_TRUE(MGlobal::executeCommand("int $a[] = {3, 4}; $a = $a;", result));
    MIntArray wholes;
    EXPECT_TRUE(result.getResult(wholes));
    EXPECT_EQ(wholes.length(), 2u);
    EXPECT_TRUE(result.getResult(reals));
    EXPECT_EQ(reals.length(), 2u);
}

TEST_F(MGlobalTest, RecordsForUndoOnlyWhenAsked)
{
    ASSERT_TRUE(MGlobal::executeCommand("createNode \"transform\" -n \"quiet\""));
    EXPECT_EQ(session().undo.count(), 0u);
    ASSERT_TRUE(MGlobal::executeCommand("createNode \"transform\" -n \"loud\"", false, true));
    EXPECT_EQ(session().undo.count(), 1u);
    session().undo.undo();
    EXPECT_FALSE(session().scene.findOrNull("loud"));
    EXPECT_TRUE(session().scene.findOrNull("quiet"));
}

TEST_F(MGlobalTest, RunsIdleCommandsLaterInOrderEachAStepOfItsOwn)
{
    MGlobal::executeCommandOnIdle("createNode \"transform\" -n \"first\"");
    MGlobal::executeCommandOnIdle("noSuchCommand");
    MGlobal::executeCommandOnIdle("createNode \"transform\" -n \"second\"");
    EXPECT_FALSE(session().scene.findOrNull("first"));
    host().drainIdle();
    EXPECT_TRUE(session().scene.findOrNull("second"));
    EXPECT_EQ(session().undo.count(), 2u);
    session().undo.undo();
    EXPECT_TRUE(session().scene.findOrNull("first"));
    EXPECT_FALSE(session().scene.findOrNull("second"));
}

TEST_F(MGlobalTest, AdjustsTheSelection)
{
    ASSERT_TRUE(run("createNode \"transform\" -n \"a\"; createNode \"transform\" -n \"b\"; select -clear;"));
    MSelectionList a;
    MSelectionList both;
    a.add("a");
    both.add("b");
    both.add("a");
    const struct {
        MGlobal::ListAdjustment adjustment;
        Names expected;
    } cases[] = {
        {MGlobal::kReplaceList, {"b", "a"}},     {MGlobal::kXORWithList, {"b"}}, {MGlobal::kAddToList, {"a", "b"}},
        {MGlobal::kAddToHeadOfList, {"b", "a"}}, {MGlobal::kRemoveFromList, {}},
    };
    for (const auto& c : cases) {
        MGlobal::setActiveSelectionList(a);
        MGlobal::setActiveSelectionList(both, c.adjustment);
        EXPECT_EQ(selected(), c.expected) << c.adjustment;
    }
    EXPECT_FALSE(MGlobal::selectByName("nobody"));

    session().undo.flush();
    MGlobal::setActiveSelectionList(both);
    EXPECT_EQ(session().undo.count(), 0u);
    EXPECT_TRUE(MGlobal::selectCommand(a));
    EXPECT_EQ(selected(), Names{"a"});
    session().undo.undo();
    EXPECT_EQ(selected(), (Names{"b", "a"}));
}
