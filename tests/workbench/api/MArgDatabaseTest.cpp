#include "api/Access.h"
#include "support/HostFixture.h"

#include <maya/MArgDatabase.h>
#include <maya/MSyntax.h>

using kernel::ValueList;

namespace {

std::string text(const char* words)
{
    return words;
}

class MArgDatabaseTest : public HostFixture {
protected:
    static MSyntax newSyntax()
    {
        MSyntax syntax;
        EXPECT_TRUE(syntax.addFlag("-n", "-number", MSyntax::kLong, MSyntax::kDouble));
        EXPECT_TRUE(syntax.addFlag("nm", "label", MSyntax::kString));  // no dash: callers type one all the same
        EXPECT_TRUE(syntax.addFlag("-c", "-count", MSyntax::kUnsigned));
        EXPECT_TRUE(syntax.addFlag("-at", "-atTime", MSyntax::kTime));
        EXPECT_TRUE(syntax.addFlag("-on", "-switch", MSyntax::kBoolean));
        EXPECT_TRUE(syntax.addFlag("-tag", "-tagged", MSyntax::kString));
        EXPECT_TRUE(syntax.makeFlagMultiUse("-tagged"));
        EXPECT_TRUE(syntax.addFlag("-f", "-full", MSyntax::kString));
        EXPECT_TRUE(syntax.makeFlagQueryWithFullArgs("f", false));
        syntax.setObjectType(MSyntax::kStringObjects);
        syntax.enableEdit();
        syntax.enableQuery();
        return syntax;
    }

    static MArgDatabase parse(const ValueList& args, MStatus* status = nullptr)
    {
        return MArgDatabase(newSyntax(), api::Access::arguments(args), status);
    }

    static std::vector<std::string> objects(const MArgDatabase& parsed)
    {
        MStringArray list;
        EXPECT_TRUE(parsed.getObjects(list));
        std::vector<std::string> result;
        for (const MString& name : list)
            result.push_back(name.asUTF8());
        return result;
    }
};

}  // namespace

TEST(MSyntax, RefusesFlagNamesByTheirLengthWithoutTheDash)
{
    const struct {
        const char* shortName;
        const char* longName;
        bool isTaken;
    } cases[] = {
        {"-abc", "-four", true}, {"abc", "four", true},   {"-abcd", "-four", false}, {"-", "-four", false},
        {"-a", "-abc", false},   {"-a", "abcd", true},    {"-e", "-extra", false},   {"-ed", "-edit", false},
        {"q", "quest", false},   {"-qq", "query", false}, {"", "four", false},
    };
    for (const auto& c : cases) {
        MSyntax syntax;
        EXPECT_EQ(bool(syntax.addFlag(c.shortName, c.longName)), c.isTaken) << c.shortName << ' ' << c.longName;
    }
    MSyntax syntax;
    ASSERT_TRUE(syntax.addFlag("-a", "-alpha"));
    EXPECT_FALSE(syntax.addFlag("a", "-other"));
    EXPECT_FALSE(syntax.addFlag("-b", "alpha"));
    EXPECT_FALSE(syntax.makeFlagMultiUse("-missing"));
}

TEST(MSyntax, CopiesAreIndependent)
{
    MSyntax first;
    first.addFlag("-a", "-alpha");
    MSyntax second(first);
    second.enableQuery();
    EXPECT_TRUE(second.addFlag("-b", "-beta"));
    EXPECT_FALSE(first.canQuery());
    EXPECT_TRUE(first.addFlag("-b", "-beta"));
}

TEST_F(MArgDatabaseTest, ReadsFlagsByEitherNameWithOrWithoutDash)
{
    const MArgDatabase parsed = parse({text("-n"), -3, 2.5, text("a"), text("-label"), text("two words"), text("b")});
    int whole = 0;
    double real = 0;
    MString label;
    EXPECT_TRUE(parsed.getFlagArgument("number", 0, whole));
    EXPECT_TRUE(parsed.getFlagArgument("-n", 1, real));
    EXPECT_TRUE(parsed.getFlagArgument("-nm", 0, label));
    EXPECT_EQ(whole, -3);
    EXPECT_EQ(real, 2.5);
    EXPECT_EQ(label, MString("two words"));
    EXPECT_EQ(objects(parsed), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(parsed.numberOfFlagsUsed(), 2u);

    MStatus status;
    EXPECT_FALSE(parsed.isFlagSet("count", &status));
    EXPECT_TRUE(status);
    EXPECT_FALSE(parsed.isFlagSet("nonsense", &status));
    EXPECT_FALSE(status);
}

TEST_F(MArgDatabaseTest, LeavesTheOutputWhenThereIsNothingToRead)
{
    const MArgDatabase parsed = parse({text("-label"), text("x")});
    int number = 17;
    EXPECT_FALSE(parsed.getFlagArgument("number", 0, number));
    EXPECT_FALSE(parsed.getFlagArgument("label", 0, number));  // no number
    EXPECT_FALSE(parsed.getFlagArgument("label", 1, number));
    EXPECT_EQ(number, 17);
    MStatus status;
    EXPECT_EQ(parsed.flagArgumentInt("number", 0, &status), 0);
    EXPECT_FALSE(status);
}

TEST_F(MArgDatabaseTest, TakesNoValuesAfterQuery)
{
    const MArgDatabase query = parse({text("-q"), text("-label"), text("cam1")});
    EXPECT_TRUE(query.isQuery());
    EXPECT_TRUE(query.isFlagSet("label"));
    EXPECT_EQ(objects(query), std::vector<std::string>{"cam1"});
    MString label;
    EXPECT_FALSE(query.getFlagArgument("label", 0, label));

    const MArgDatabase full = parse({text("-q"), text("-full"), text("v"), text("cam1")});
    EXPECT_EQ(full.flagArgumentString("full", 0), MString("v"));
    EXPECT_EQ(objects(full), std::vector<std::string>{"cam1"});

    const MArgDatabase edit = parse({text("-edit"), text("-label"), text("v"), text("cam1")});
    EXPECT_TRUE(edit.isEdit());
    EXPECT_TRUE(edit.isFlagSet("-e"));
    EXPECT_EQ(edit.flagArgumentString("label", 0), MString("v"));
}

TEST_F(MArgDatabaseTest, KeepsEveryUseOfAMultiUseFlag)
{
    const MArgDatabase parsed = parse({text("-tag"), text("a"), text("-tagged"), text("b")});
    ASSERT_EQ(parsed.numberOfFlagUses("tag"), 2u);
    MArgList second;
    ASSERT_TRUE(parsed.getFlagArgumentList("tag", 1, second));
    EXPECT_EQ(second.asString(0), MString("b"));
    EXPECT_FALSE(parsed.getFlagArgumentList("tag", 2, second));
    EXPECT_EQ(parsed.flagArgumentString("tag", 0), MString("a"));
}

TEST_F(MArgDatabaseTest, FailsAsAWholeForArgumentsThatDoNotFit)
{
    const ValueList cases[] = {
        {text("-unknown")},        {text("-n"), 1},          {text("-c"), -1},
        {text("-on"), text("up")}, {text("-at"), text("x")}, {text("-N"), 1, 2.0},
    };
    for (const ValueList& args : cases) {
        MStatus status;
        const MArgDatabase parsed = parse(args, &status);
        EXPECT_FALSE(status) << kernel::toText(args[0]);
        MStringArray list;
        EXPECT_FALSE(parsed.getObjects(list));
        EXPECT_EQ(parsed.numberOfFlagsUsed(), 0u);
    }
}

TEST_F(MArgDatabaseTest, ResolvesSelectionObjects)
{
    MSyntax syntax;
    syntax.setObjectType(MSyntax::kSelectionList);
    MSelectionList list;
    EXPECT_TRUE(MArgDatabase(syntax, api::Access::arguments({text("persp")})).getObjects(list));
    EXPECT_EQ(list.length(), 1u);
    EXPECT_FALSE(MArgDatabase(syntax, api::Access::arguments({text("nobody")})).getObjects(list));
    EXPECT_EQ(list.length(), 1u);
    MStringArray names;
    EXPECT_FALSE(MArgDatabase(syntax, api::Access::arguments({text("persp")})).getObjects(names));
}

TEST_F(MArgDatabaseTest, ReadsPositionalArguments)
{
    MSyntax syntax;
    syntax.addArg(MSyntax::kLong);
    syntax.addArg(MSyntax::kString);
    const MArgDatabase parsed(syntax, api::Access::arguments({4, text("x")}));
    EXPECT_EQ(parsed.commandArgumentInt(0), 4);
    EXPECT_EQ(parsed.commandArgumentString(1), MString("x"));
    MStatus status;
    EXPECT_EQ(parsed.commandArgumentInt(2, &status), 0);
    EXPECT_FALSE(status);
}
