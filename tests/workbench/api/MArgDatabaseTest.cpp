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

TEST_F(MArgDatabaseTest, ReadsFlagsByEitherNameWithOrWithoutDash)
{
    const MArgDatabase parsed =
        parse({text("-n"), text("-3"), 2.5, text("a"), text("-label"), text("two words"), text("-1")});
    int whole = 0;
    double real = 0;
    MString label;
    EXPECT_TRUE(parsed.getFlagArgument("number", 0, whole));
    EXPECT_TRUE(parsed.getFlagArgument("-n", 1, real));
    EXPECT_TRUE(parsed.getFlagArgument("-nm", 0, label));
    EXPECT_EQ(whole, -3);
    EXPECT_EQ(real, 2.5);
    EXPECT_EQ(label, MString("two words"));
    EXPECT_EQ(objects(parsed), (std::vector<std::string>{"a", "-1"}));
    EXPECT_EQ(parsed.numberOfFlagsUsed(), 2u);

    MStatus status;
    EXPECT_FALSE(parsed.isFlagSet("count", &status));
    EXPECT_TRUE(status);
    EXPECT_FALSE(parsed.isFlagSet("nonsense", &status));
    EXPECT_FALSE(status);
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
