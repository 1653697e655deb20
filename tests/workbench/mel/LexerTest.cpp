#include "mel/Lexer.h"

#include <gtest/gtest.h>

using mel::Lexer;
using mel::Tok;

namespace {

std::string argumentTokens(const std::string& text)
{
    Lexer lexer(text);
    std::string list;
    for (mel::Token token = lexer.nextArgument(); token.kind != Tok::End; token = lexer.nextArgument()) {
        const char* kind = token.kind == Tok::Flag    ? "flag"
                         : token.kind == Tok::Word    ? "word"
                         : token.kind == Tok::Integer ? "int"
                         : token.kind == Tok::Float   ? "float"
                         : token.kind == Tok::String  ? "string"
                         : token.kind == Tok::Bad     ? "bad"
                                                      : "mark";
        list += (list.empty() ? "" : " ") + std::string(kind) + ":" + std::string(lexer.text(token));
        if (token.kind == Tok::Bad)
            break;
    }
    return list;
}

}  // namespace

TEST(Lexer, TellsFlagsNumbersAndWordsOfArgumentsApart)
{
    const struct {
        const char* text;
        const char* tokens;
    } cases[] = {
        {"-e -1 -x", "flag:-e int:-1 flag:-x"},
        {"-.5 .25 1. -1e3 1.5E-3", "float:-.5 float:.25 float:1. float:-1e3 float:1.5E-3"},
        {"-_a-b", "flag:-_a flag:-b"},
        {"12film 2sec 1:20 -5cm", "word:12film word:2sec word:1:20 word:-5cm"},
        {"0x1f -0x10", "int:0x1f int:-0x10"},
        {"|grp|shape ns:node.attr cv[0:3] .w[4].x", "word:|grp|shape word:ns:node.attr word:cv[0:3] word:.w[4].x"},
        {":time1 .. |", "word::time1 word:.. word:|"},
        {"arm* ?b", "word:arm* word:?b"},
        {"\"\" \"a b\"", "string:\"\" string:\"a b\""},
        {"persp; x", "word:persp mark:; word:x"},
        {"a/*b*/c // d\ne", "word:a word:c word:e"},
        {"a /* still open", "word:a"},
        {"-- x", "mark:-- word:x"},
        {"\"open", "bad:\"open"},
        {"\"a\nb\"", "bad:\"a"},
        {"\"ends in \\", "bad:\"ends in \\"},
        {"$ x", "bad:$"},
        {"\x01", "bad:\x01"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(argumentTokens(c.text), c.tokens) << c.text;
}

TEST(Lexer, TakesTheEscapesOutOfStrings)
{
    const struct {
        std::string text;
        std::string content;
    } cases[] = {
        {R"("plain")", "plain"}, {R"("a\tb\\n\n\r")", "a\tb\\n\n\r"},  {R"("say \"x\"")", "say \"x\""},
        {R"("\q\\")", "q\\"},    {"\"two\\\nlines\"", "twolines"},     {"\"two\\\r\nlines\"", "twolines"},
        {"\"\\\"\"", "\""},      {"\"\xC3\xA9\xFF\"", "\xC3\xA9\xFF"},
    };
    for (const auto& c : cases) {
        Lexer lexer(c.text);
        const mel::Token token = lexer.next();
        ASSERT_EQ(token.kind, Tok::String) << c.text;
        EXPECT_EQ(token.end, c.text.size()) << c.text;
        EXPECT_EQ(lexer.stringContent(token), c.content) << c.text;
    }
}

TEST(Lexer, ReadsNumbersWithTheirTypes)
{
    const struct {
        const char* text;
        kernel::Value value;
    } cases[] = {
        {"0007", 7},
        {"0x10", 16},
        {"0xffffffff", -1},
        {"2147483647", 2147483647},
        {"2147483648", 2147483648.0},
        {"-2147483648", -2147483647 - 1},
        {"1e3", 1000.0},
        {"5.", 5.0},
    };
    for (const auto& c : cases) {
        Lexer lexer(c.text);
        EXPECT_EQ(lexer.numberValue(lexer.nextArgument()), c.value) << c.text;
    }
}
