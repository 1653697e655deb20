#include "mel/Functions.h"

#include "kernel/Command.h"
#include "mel/Conversion.h"

namespace mel {

std::string FunctionCall::text(std::size_t i) const
{
    return asText(args[i].value());
}

int FunctionCall::integer(std::size_t i) const
{
    return asInteger(args[i].value());
}

double FunctionCall::number(std::size_t i) const
{
    return asNumber(args[i].value());
}

kernel::StringArray FunctionCall::strings(std::size_t i) const
{
    return std::get<kernel::StringArray>(converted(args[i].value(), {BaseType::String, true}));
}

kernel::StringArray& FunctionCall::stringsToChange(std::size_t i) const
{
    Variable* const variable = args[i].variable;
    if (!variable || variable->type != Type{BaseType::String, true})
        failConversion(variable ? variable->type : typeOf(args[i].own), {BaseType::String, true});
    return std::get<kernel::StringArray>(variable->value);
}

}  // namespace mel
