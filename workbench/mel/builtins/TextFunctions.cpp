#include "mel/Conversion.h"
#include "mel/Interpreter.h"
#include "mel/builtins/Quoting.h"
#include "mel/builtins/Subjects.h"
#include "mel/builtins/TextPattern.h"

#include <algorithm>

namespace mel {

using kernel::CommandError;
using kernel::StringArray;
using kernel::Value;

namespace {

/// The parts between separators, which are single characters; empty parts are left out.
StringArray tokens(const std::string& text, const std::string& separators)
{
    StringArray parts;
    for (std::size_t begin = text.find_first_not_of(separators); begin != std::string::npos;) {
        const std::size_t end = std::min(text.find_first_of(separators, begin), text.size());
        parts.push_back(text.substr(begin, end - begin));
        begin = text.find_first_not_of(separators, end);
    }
    return parts;
}

Value tokenize(FunctionCall& call)
{
    const bool hasSeparators = call.args.size() == 3;
    StringArray parts = tokens(call.text(0), hasSeparators ? call.text(1) : " ");
    const int count = int(parts.size());
    call.stringsToChange(hasSeparators ? 2 : 1) = std::move(parts);
    return count;
}

Value arrayToString(FunctionCall& call)
{
    const StringArray array = call.strings(0);
    const std::string separator = call.text(1);
    std::string joined;
    for (std::size_t i = 0; i < array.size(); ++i)
        joined += (i == 0 ? "" : separator) + array[i];
    return joined;
}

Value stringToArray(FunctionCall& call)
{
    return tokens(call.text(0), call.text(1));
}

/// Both ends count, the first character is 1.
Value substring(FunctionCall& call)
{
    const std::string text = call.text(0);
    const int first = std::max(1, call.integer(1));
    const int last = std::min(int(text.size()), call.integer(2));
    return last < first ? std::string() : text.substr(std::size_t(first - 1), std::size_t(last - first + 1));
}

Value substitute(FunctionCall& call)
{
    std::string text = call.text(1);
    const auto found = TextPattern(call.text(0)).find(text);
    if (found.first != std::string::npos)
        text.replace(found.first, found.second - found.first, call.text(2));
    return text;
}

Value match(FunctionCall& call)
{
    const std::string text = call.text(1);
    const auto found = TextPattern(call.text(0)).find(text);
    return found.first == std::string::npos ? std::string() : text.substr(found.first, found.second - found.first);
}

/// As it is written between quotes.
Value encodeString(FunctionCall& call)
{
    const std::string text = quoted(call.text(0));
    return text.substr(1, text.size() - 2);
}

Value globMatch(FunctionCall& call)
{
    return int(matchesGlob(call.text(1), call.text(0)));
}

Value startsWith(FunctionCall& call)
{
    const std::string start = call.text(1);
    return int(call.text(0).compare(0, start.size(), start) == 0);
}

Value endsWith(FunctionCall& call)
{
    const std::string text = call.text(0);
    const std::string end = call.text(1);
    return int(text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0);
}

Value strip(FunctionCall& call)
{
    constexpr const char* kBlanks = " \t\r\n\f\v";
    const std::string text = call.text(0);
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string::npos)
        return std::string();
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// ASCII only: bytes of other letters stay.
std::string inCase(std::string text, char from, char to)
{
    for (char& c : text) {
        if (c >= from && c < from + 26)
            c = char(c - from + to);
    }
    return text;
}

Value toLower(FunctionCall& call)
{
    return inCase(call.text(0), 'A', 'a');
}

Value toUpper(FunctionCall& call)
{
    return inCase(call.text(0), 'a', 'A');
}

Value compare(FunctionCall& call)
{
    const int order = call.text(0).compare(call.text(1));
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

/// format -s a -s b "^1s and ^2s": the texts take the places of their numbers.
Value format(FunctionCall& call)
{
    StringArray values;
    std::string pattern;
    for (std::size_t i = 0; i < call.args.size(); ++i) {
        const std::string word = call.text(i);
        if (word != "-s" && word != "-stringArg")
            pattern = word;
        else if (++i < call.args.size())
            values.push_back(call.text(i));
        else
            throw CommandError("Flag 's' must be passed a string argument");
    }
    std::string text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const bool isPlace = pattern[i] == '^' && i + 2 < pattern.size() && pattern[i + 1] >= '1'
                          && pattern[i + 1] <= '9' && pattern[i + 2] == 's';
        if (!isPlace) {
            text += pattern[i];
            continue;
        }
        const std::size_t number = std::size_t(pattern[i + 1] - '1');
        if (number < values.size())
            text += values[number];
        i += 2;
    }
    return text;
}

}  // namespace

void addTextFunctions(Interpreter& interpreter)
{
    FunctionTable& table = interpreter.functions();
    table["tokenize"] = {tokenize, 2, 3};
    table["stringArrayToString"] = {arrayToString, 2, 2};
    table["stringToStringArray"] = {stringToArray, 2, 2};
    table["substring"] = {substring, 3, 3};
    table["substitute"] = {substitute, 3, 3};
    table["match"] = {match, 2, 2};
    table["encodeString"] = {encodeString, 1, 1};
    table["gmatch"] = {globMatch, 2, 2};
    table["startsWith"] = {startsWith, 2, 2};
    table["endsWith"] = {endsWith, 2, 2};
    table["strip"] = {strip, 1, 1};
    table["tolower"] = {toLower, 1, 1};
    table["toupper"] = {toUpper, 1, 1};
    table["strcmp"] = {compare, 2, 2};
    table["format"] = {format, 1, kAnyNumber};
}

}  // namespace mel
