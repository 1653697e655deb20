#include "kernel/Syntax.h"

#include "kernel/Session.h"

#include <gtest/gtest.h>

using namespace kernel;

namespace {

Value word(const char* text)
{
    return std::string(text);
}

/// Flags as modules register them: with a dash, without, with several uses.
Syntax strokeSyntax()
{
    Syntax syntax;
    syntax.addFlag("-c", "-camera", {ArgType::String});
    syntax.addFlag("ret", "retime", {ArgType::Int, ArgType::Int});
    syntax.addFlag("-on", "-visible", {ArgType::Bool});
    syntax.addFlag("-t", "-time", {ArgType::Time});
    syntax.addFlag("-n", "-count", {ArgType::Unsigned});
    syntax.addFlag("-m", "-mark", {ArgType::Double});
    syntax.makeMultiUse("-mark");
    return syntax;
}

std::string errorOf(const Syntax& syntax, const ValueList& args)
{
    ParsedArgs parsed;
    std::string error;
    EXPECT_FALSE(parseArguments(syntax, args, parsed, error));
    return error;
}

ParsedArgs parsed(const Syntax& syntax, const ValueList& args)
{
    ParsedArgs result;
    std::string error;
    EXPECT_TRUE(parseArguments(syntax, args, result, error)) << error;
    return result;
}

}  // namespace

TEST(Syntax, RepeatedFlagsAddUpOrTheLastWins)
{
    const ParsedArgs args =
        parsed(strokeSyntax(), {word("-m"), 1, word("-mark"), 2.5, word("-c"), word("a"), word("-camera"), word("b")});
    EXPECT_EQ(args.useCount("mark"), 2u);
    EXPECT_EQ(*args.values("mark", 1), (ValueList{2.5}));
    EXPECT_EQ(args.useCount("camera"), 1u);
    EXPECT_EQ(args.text("camera"), "b");
    EXPECT_EQ(args.values("mark", 2), nullptr);
}

TEST(Syntax, RefusalsAreWordedAsTheHostDoes)
{
    const Syntax syntax = strokeSyntax();
    EXPECT_EQ(errorOf(syntax, {word("-zz")}), "Invalid flag '-zz'");
    EXPECT_EQ(errorOf(syntax, {word("-cam"), word("x")}), "Invalid flag '-cam'") << "no abbreviations";
    EXPECT_EQ(errorOf(syntax, {word("-e")}), "Invalid flag '-e'") << "edit is not enabled";
    EXPECT_EQ(errorOf(syntax, {word("-on"), word("maybe")}), "Flag 'on' must be passed a boolean argument");
    EXPECT_EQ(errorOf(syntax, {word("-ret"), 1}), "Flag '-ret' must be passed 2 arguments");
    EXPECT_EQ(errorOf(syntax, {word("-ret"), 1, word("x")}), "Flag 'ret' must be passed an integer argument");
    EXPECT_EQ(errorOf(syntax, {word("-c")}), "Flag 'c' must be passed a string argument");
    EXPECT_EQ(errorOf(syntax, {word("-n"), -1}), "Flag 'n' must be passed an unsigned integer argument");
    EXPECT_EQ(errorOf(syntax, {word("-t"), word("12ells")}), "Flag 't' must be passed a time argument");
}

TEST(Syntax, TheSelectionStandsInForMissingObjects)
{
    Session session;
    Syntax syntax;
    syntax.setObjects(Syntax::Objects::Selection, 1);
    syntax.useSelectionAsDefault(true);
    EXPECT_EQ(errorOf(syntax, {}), "No object was specified");
    session.scene.setSelection({session.scene.findOne("persp"), session.scene.findOne("topShape")});
    EXPECT_EQ(parsed(syntax, {}).objects, (ValueList{word("persp"), word("topShape")}));
    EXPECT_EQ(parsed(syntax, {word("side")}).objects, (ValueList{word("side")}));
}

TEST(Syntax, CommandArgumentsAreConvertedInPlace)
{
    Syntax syntax;
    syntax.addArg(ArgType::Double);
    syntax.addArg(ArgType::Bool);
    EXPECT_EQ(parsed(syntax, {2, word("off")}).objects, (ValueList{2.0, 0}));
    EXPECT_EQ(errorOf(syntax, {2}), "Incorrect number of arguments specified");
    EXPECT_EQ(errorOf(syntax, {2, word("x")}), "Argument 2 must be a boolean argument");
}
