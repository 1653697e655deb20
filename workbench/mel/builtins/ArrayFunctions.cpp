#include "mel/Conversion.h"
#include "mel/Interpreter.h"
#include "mel/builtins/Subjects.h"

#include <algorithm>
#include <set>

namespace mel {

using kernel::CommandError;
using kernel::StringArray;
using kernel::Value;

namespace {

Value clear(FunctionCall& call)
{
    Variable* const variable = call.args[0].variable;
    if (!variable || !variable->type.array)
        throw CommandError("clear: The argument must be an array variable.");
    variable->value = freshValue(variable->type);
    return {};
}

Value contains(FunctionCall& call)
{
    const StringArray array = call.strings(1);
    return int(std::find(array.begin(), array.end(), call.text(0)) != array.end());
}

Value count(FunctionCall& call)
{
    const StringArray array = call.strings(1);
    return int(std::count(array.begin(), array.end(), call.text(0)));
}

/// The place of an item from a start on; -1 when there is none.
Value find(FunctionCall& call)
{
    const StringArray array = call.strings(2);
    const std::size_t start = std::min(array.size(), std::size_t(std::max(0, call.integer(1))));
    const auto found = std::find(array.begin() + std::ptrdiff_t(start), array.end(), call.text(0));
    return found == array.end() ? -1 : int(found - array.begin());
}

Value removeAll(FunctionCall& call)
{
    const StringArray items = call.strings(0);
    const std::set<std::string> gone(items.begin(), items.end());
    StringArray array = call.strings(1);
    array.erase(std::remove_if(array.begin(), array.end(), [&](const auto& item) { return gone.count(item) != 0; }),
                array.end());
    return array;
}

Value removeDuplicates(FunctionCall& call)
{
    std::set<std::string> seen;
    StringArray unique;
    for (const std::string& item : call.strings(0)) {
        if (seen.insert(item).second)
            unique.push_back(item);
    }
    return unique;
}

Value catenate(FunctionCall& call)
{
    StringArray joined = call.strings(0);
    const StringArray second = call.strings(1);
    joined.insert(joined.end(), second.begin(), second.end());
    return joined;
}

Value insertAtIndex(FunctionCall& call)
{
    StringArray& array = call.stringsToChange(1);
    const int index = call.integer(0);
    if (index < 0 || std::size_t(index) > array.size())
        return 0;
    array.insert(array.begin() + index, call.text(2));
    return 1;
}

Value removeAtIndex(FunctionCall& call)
{
    StringArray& array = call.stringsToChange(1);
    const int index = call.integer(0);
    if (index < 0 || std::size_t(index) >= array.size())
        return 0;
    array.erase(array.begin() + index);
    return 1;
}

Value append(FunctionCall& call)
{
    const StringArray second = call.strings(1);
    const std::size_t wanted = std::size_t(std::max(0, call.integer(2)));
    StringArray& array = call.stringsToChange(0);
    array.insert(array.end(), second.begin(), second.begin() + std::ptrdiff_t(std::min(wanted, second.size())));
    return {};
}

}  // namespace

void addArrayFunctions(Interpreter& interpreter)
{
    FunctionTable& table = interpreter.functions();
    table["clear"] = {clear, 1, 1};
    table["stringArrayContains"] = {contains, 2, 2};
    table["stringArrayCount"] = {count, 2, 2};
    table["stringArrayFind"] = {find, 3, 3};
    table["stringArrayRemove"] = {removeAll, 2, 2};
    table["stringArrayRemoveDuplicates"] = {removeDuplicates, 1, 1};
    table["stringArrayCatenate"] = {catenate, 2, 2};
    table["stringArrayInsertAtIndex"] = {insertAtIndex, 3, 3};
    table["stringArrayRemoveAtIndex"] = {removeAtIndex, 2, 2};
    table["appendStringArray"] = {append, 3, 3};
}

}  // namespace mel
