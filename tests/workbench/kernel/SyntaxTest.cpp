#include "kernel/Syntax.h"

#include "kernel/Session.h"

#include <gtest/gtest.h>

using namespace kernel;

namespace {

Value word(const char* text)
{
    return std::string(text);
}

/// Flags as modules register them: with a dash, without, with values, with several uses.
Syntax strokeSyntax()
{
    Syntax syntax;
    syntax.addFlag("-c", "-camera", {ArgType::String});
    syntax.addFlag("ret", "retime", {ArgType::Int, ArgType::Int});
    syntax.addFlag("-on", "-visible", {ArgType::Bool});
    syntax.addFlag("-t", "-time", {ArgType::Time});
    syntax.addFlag("-n", "-count", {ArgType::Unsigned});
    syntax.addFlag("-a", "-add");
    syntax.addFlag("-m", "-mark", {ArgType::Double});
    syntax.makeMultiUse("-mark");
    syntax.enableQuery();
    syntax.setObjects(Syntax::Objects::Strings);
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

TEST(Syntax, NamesAreTakenOnceWithOrWithoutTheirDash)
{
    Syntax syntax = strokeSyntax();
    EXPECT_FALSE(syntax.addFlag("retime", "other"));
    EXPECT_FALSE(syntax.addFlag("x", "-camera"));
    EXPECT_FALSE(syntax.addFlag("", "-"));
    EXPECT_EQ(syntax.flag("x"), nullptr) << "a refused flag leaves nothing behind";
    EXPECT_EQ(syntax.flag("-ret"), syntax.flag("retime"));
    EXPECT_EQ(syntax.flag("Camera"), nullptr);
}

TEST(Syntax, FlagsTakeTheirValuesAndLeaveTheRestAsObjects)
{
    const ParsedArgs args =
        parsed(strokeSyntax(), {word("one"), word("-retime"), 7.9, word("3"), word("-add"), word("on"), word("-on"),
                                word("yes"), word("-t"), word("12film"), word("-c"), 5, -2});
    EXPECT_EQ(args.integer("retime", 0), 7);
    EXPECT_EQ(args.integer("retime", 1), 3);
    EXPECT_EQ(args.integer("visible"), 1);
    EXPECT_EQ(args.text("time"), "12film");
    EXPECT_EQ(args.text("camera"), "5");
    EXPECT_EQ(args.objects, (ValueList{word("one"), word("on"), -2}));
    EXPECT_EQ(args.flagsUsed(), 5u);
}

TEST(Syntax, AnAwaitedValueMayLookLikeAFlag)
{
    const ParsedArgs args = parsed(strokeSyntax(), {word("-camera"), word("-odd")});
    EXPECT_EQ(args.text("camera"), "-odd");
}

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

TEST(Syntax, FlagsBehindQueryTakeNoValuesUnlessDeclaredSo)
{
    Syntax syntax = strokeSyntax();
    ParsedArgs args = parsed(syntax, {word("-on"), 1, word("-q"), word("-c"), word("persp")});
    EXPECT_TRUE(args.query);
    EXPECT_TRUE(args.values("camera")->empty());
    EXPECT_EQ(args.integer("visible"), 1);
    EXPECT_EQ(args.objects, (ValueList{word("persp")}));

    syntax.makeQueryWithFullArgs("c");
    args = parsed(syntax, {word("-query"), word("-c"), word("persp")});
    EXPECT_EQ(args.text("camera"), "persp");
    EXPECT_TRUE(args.objects.empty());
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

TEST(Syntax, ObjectsAreCounted)
{
    Syntax syntax;
    EXPECT_EQ(errorOf(syntax, {word("a")}), "Incorrect number of objects specified");
    syntax.setObjects(Syntax::Objects::Strings, 1, 2);
    EXPECT_EQ(errorOf(syntax, {}), "No object was specified");
    EXPECT_EQ(errorOf(syntax, {word("a"), word("b"), word("c")}), "Incorrect number of objects specified");
    EXPECT_EQ(parsed(syntax, {word("a"), word("b")}).objects.size(), 2u);
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
