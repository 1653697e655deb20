#include <maya/MString.h>
#include <maya/MStringArray.h>

#include <gtest/gtest.h>

#include <clocale>

namespace {

std::vector<std::string> pieces(const MString& text, char separator)
{
    MStringArray array;
    text.split(separator, array);
    std::vector<std::string> out;
    for (const MString& piece : array)
        out.push_back(piece.asUTF8());
    return out;
}

TEST(MString, HoldsUtf8WhateverTheLocaleSays)
{
    const std::string text = "gr\xc3\xbc\xc3\x9f \xe2\x82\xac \xf0\x9f\x98\x80";
    MString string;
    string.setUTF8(text.c_str());
    EXPECT_EQ(string.asUTF8(), text);
    EXPECT_EQ(string.asChar(), text);
    EXPECT_EQ(string.length(), text.size());
    EXPECT_EQ(string.numChars(), 8u);
    int length = 0;
    const wchar_t* wide = string.asWChar(length);
    EXPECT_EQ(std::wstring(wide, std::size_t(length)), L"gr\u00fc\u00df \u20ac \U0001f600");
    EXPECT_EQ(MString(wide), string);
}

TEST(MString, CountsBytesThatAreNoCharacterAsOneEach)
{
    EXPECT_EQ(MString("a\xff\x80z").numChars(), 4u);
    EXPECT_EQ(MString("ab\xe2\x82").numChars(), 3u);  // cut short
}

TEST(MString, WritesAndReadsNumbersWithAPoint)
{
    const char* before = std::setlocale(LC_NUMERIC, nullptr);
    const std::string kept = before;
    std::setlocale(LC_NUMERIC, "de_DE.UTF-8");  // a comma, where that locale is installed
    MString text("x ");
    text += 0.1;
    text += " ";
    text += 0.1f;
    text += " ";
    text += -7;
    text += " ";
    text += 4000000000u;
    EXPECT_EQ(text, "x 0.1 0.1 -7 4000000000");
    EXPECT_EQ(MString("2.75 rest").asDouble(), 2.75);
    EXPECT_EQ(MString("-12.9").asInt(), -12);
    std::setlocale(LC_NUMERIC, kept.c_str());
}

TEST(MString, TellsWhatIsANumber)
{
    const struct {
        const char* text;
        bool isInt;
        bool isUnsigned;
        bool isDouble;
    } cases[] = {{"12", true, true, true},     {" -4 ", true, false, true},         {"+3", true, true, true},
                 {"1.5", false, false, true},  {"1e3", false, false, true},         {"", false, false, false},
                 {"12x", false, false, false}, {"99999999999", false, false, true}, {"+-3", false, false, false}};
    for (const auto& c : cases) {
        EXPECT_EQ(MString(c.text).isInt(), c.isInt) << c.text;
        EXPECT_EQ(MString(c.text).isUnsigned(), c.isUnsigned) << c.text;
        EXPECT_EQ(MString(c.text).isDouble(), c.isDouble) << c.text;
    }
}

TEST(MString, FillsPlaceholdersOfAFormat)
{
    MString text;
    text.format("^1s of ^2s, ^^ and ^10s, ^3s", "one", "two", "3", "", "", "", "", "", "", "ten");
    EXPECT_EQ(text, "one of two, ^ and ten, 3");
    MStringArray arguments;
    arguments.append("a");
    text.format("^1s ^2s ^x ^", arguments);
    EXPECT_EQ(text, "a  ^x ^");
}

TEST(MString, CutsAndFinds)
{
    const MString text("one|two||three|");
    EXPECT_EQ(pieces(text, '|'), (std::vector<std::string>{"one", "two", "three"}));
    EXPECT_EQ(pieces("", '|'), std::vector<std::string>());
    EXPECT_EQ(text.substring(4, 6), "two");
    EXPECT_EQ(text.substring(-5, 2), "one");
    EXPECT_EQ(text.substring(9, 100), "three|");
    EXPECT_EQ(text.substring(6, 4), "");
    EXPECT_EQ(text.index('|'), 3);
    EXPECT_EQ(text.rindex('|'), 14);
    EXPECT_EQ(text.index('#'), -1);
    MString self("ab");
    self += self;
    EXPECT_EQ(self, "abab");
}

}  // namespace
