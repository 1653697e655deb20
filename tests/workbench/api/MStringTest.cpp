#include <maya/MString.h>

#include <gtest/gtest.h>

#include <clocale>

namespace {

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

}  // namespace
