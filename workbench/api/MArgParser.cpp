#include <maya/MArgParser.h>

#include "api/Access.h"
#include "api/Handles.h"

#include <maya/MArgDatabase.h>

#include <cstring>

using api::report;

namespace {

bool isOneOf(const char* flag, const char* shortName, const char* longName)
{
    const char* const name = flag[0] == '-' ? flag + 1 : flag;
    return std::strcmp(name, shortName) == 0 || std::strcmp(name, longName) == 0;
}

/// The flag as it was declared; null for an unknown one and before anything was parsed.
const kernel::FlagSpec* specOf(const std::shared_ptr<const api::ParsedArguments>& parsed, const char* flag)
{
    return parsed && flag ? parsed->syntax.flag(flag) : nullptr;
}

const kernel::Value* flagValue(const std::shared_ptr<const api::ParsedArguments>& parsed, const char* flag,
                               unsigned index)
{
    const kernel::FlagSpec* spec = specOf(parsed, flag);
    const kernel::ValueList* values = spec ? parsed->args.values(spec->longName) : nullptr;
    return values && index < values->size() ? &(*values)[index] : nullptr;
}

/// Command arguments stand where objects would, in a syntax that declares them.
const kernel::Value* commandValue(const std::shared_ptr<const api::ParsedArguments>& parsed, unsigned index)
{
    if (!parsed || parsed->syntax.objects() != kernel::Syntax::Objects::None)
        return nullptr;
    return index < parsed->args.objects.size() ? &parsed->args.objects[index] : nullptr;
}

bool read(const kernel::Value& value, bool& result)
{
    return kernel::toBool(value, result);
}

bool read(const kernel::Value& value, int& result)
{
    return kernel::toInt(value, result);
}

bool read(const kernel::Value& value, unsigned int& result)
{
    int number = 0;
    if (!kernel::toInt(value, number) || number < 0)
        return false;
    result = unsigned(number);
    return true;
}

bool read(const kernel::Value& value, double& result)
{
    return kernel::toDouble(value, result);
}

bool read(const kernel::Value& value, MString& result)
{
    if (!kernel::hasValue(value) || kernel::isArray(value))
        return false;
    result = api::toHost(kernel::toText(value));
    return true;
}

bool read(const kernel::Value& value, MTime& result)
{
    return api::toTime(value, result);
}

bool read(const kernel::Value& value, MDistance& result)
{
    double number = 0;
    if (!kernel::toDouble(value, number))
        return false;
    result = MDistance(number, MDistance::uiUnit());
    return true;
}

bool read(const kernel::Value& value, MAngle& result)
{
    double number = 0;
    if (!kernel::toDouble(value, number))
        return false;
    result = MAngle(number, MAngle::uiUnit());
    return true;
}

template <typename T>
MStatus readInto(const kernel::Value* value, T& result)
{
    return value && read(*value, result) ? MStatus::kSuccess : MStatus::kFailure;
}

template <typename T>
T readOr(const kernel::Value* value, T fallback, MStatus* status)
{
    const MStatus read = readInto(value, fallback);
    report(status, read.statusCode());
    return fallback;
}

MTime noTime()
{
    return MTime(0.0, MTime::uiUnit());
}

}  // namespace

namespace api {

MArgParser Access::parser(std::shared_ptr<const ParsedArguments> parsed)
{
    MArgParser parser;
    parser.m_parsed = std::move(parsed);
    return parser;
}

}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

MArgParser::MArgParser() = default;

MArgParser::MArgParser(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus)
{
    auto parsed = std::make_shared<api::ParsedArguments>();
    parsed->syntax = *api::Access::syntax(syntax);
    // The host has checked the arguments of the invocation, and said what is wrong with them, before the command ran.
    std::string unused;
    if (kernel::parseArguments(parsed->syntax, api::Access::values(argList), parsed->args, unused))
        m_parsed = std::move(parsed);
    report(ReturnStatus, m_parsed ? MStatus::kSuccess : MStatus::kInvalidParameter);
}

MArgParser::MArgParser(const MArgParser& other) = default;

MArgParser& MArgParser::operator=(const MArgParser& other) = default;

MArgParser::~MArgParser() = default;

bool MArgParser::isFlagSet(const char* flag, MStatus* ReturnStatus) const
{
    if (m_parsed && flag && isOneOf(flag, "e", "edit"))
        return isEdit(ReturnStatus);
    if (m_parsed && flag && isOneOf(flag, "q", "query"))
        return isQuery(ReturnStatus);
    const kernel::FlagSpec* spec = specOf(m_parsed, flag);
    report(ReturnStatus, spec ? MStatus::kSuccess : MStatus::kInvalidParameter);
    return spec && m_parsed->args.has(spec->longName);
}

bool MArgParser::isEdit(MStatus* ReturnStatus) const
{
    report(ReturnStatus, m_parsed ? MStatus::kSuccess : MStatus::kFailure);
    return m_parsed && m_parsed->args.edit;
}

bool MArgParser::isQuery(MStatus* ReturnStatus) const
{
    report(ReturnStatus, m_parsed ? MStatus::kSuccess : MStatus::kFailure);
    return m_parsed && m_parsed->args.query;
}

unsigned int MArgParser::numberOfFlagsUsed() const
{
    return m_parsed ? m_parsed->args.flagsUsed() : 0;
}

unsigned int MArgParser::numberOfFlagUses(const char* flag) const
{
    const kernel::FlagSpec* spec = specOf(m_parsed, flag);
    return spec ? m_parsed->args.useCount(spec->longName) : 0;
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, bool& result) const
{
    return readInto(flagValue(m_parsed, flag, index), result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, int& result) const
{
    return readInto(flagValue(m_parsed, flag, index), result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const
{
    return readInto(flagValue(m_parsed, flag, index), result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, double& result) const
{
    return readInto(flagValue(m_parsed, flag, index), result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, MString& result) const
{
    return readInto(flagValue(m_parsed, flag, index), result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, MDistance& result) const
{
    return readInto(flagValue(m_parsed, flag, index), result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, MAngle& result) const
{
    return readInto(flagValue(m_parsed, flag, index), result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, MTime& result) const
{
    return readInto(flagValue(m_parsed, flag, index), result);
}

bool MArgParser::flagArgumentBool(const char* flag, unsigned int index, MStatus* ReturnStatus) const
{
    return readOr(flagValue(m_parsed, flag, index), false, ReturnStatus);
}

int MArgParser::flagArgumentInt(const char* flag, unsigned int index, MStatus* ReturnStatus) const
{
    return readOr(flagValue(m_parsed, flag, index), 0, ReturnStatus);
}

double MArgParser::flagArgumentDouble(const char* flag, unsigned int index, MStatus* ReturnStatus) const
{
    return readOr(flagValue(m_parsed, flag, index), 0.0, ReturnStatus);
}

MString MArgParser::flagArgumentString(const char* flag, unsigned int index, MStatus* ReturnStatus) const
{
    return readOr(flagValue(m_parsed, flag, index), MString(), ReturnStatus);
}

MDistance MArgParser::flagArgumentMDistance(const char* flag, unsigned int index, MStatus* ReturnStatus) const
{
    return readOr(flagValue(m_parsed, flag, index), MDistance(), ReturnStatus);
}

MAngle MArgParser::flagArgumentMAngle(const char* flag, unsigned int index, MStatus* ReturnStatus) const
{
    return readOr(flagValue(m_parsed, flag, index), MAngle(), ReturnStatus);
}

MTime MArgParser::flagArgumentMTime(const char* flag, unsigned int index, MStatus* ReturnStatus) const
{
    return readOr(flagValue(m_parsed, flag, index), noTime(), ReturnStatus);
}

MStatus MArgParser::getFlagArgumentList(const char* flag, unsigned int use, MArgList& args) const
{
    const kernel::FlagSpec* spec = specOf(m_parsed, flag);
    const kernel::ValueList* values = spec ? m_parsed->args.values(spec->longName, use) : nullptr;
    if (!values)
        return MStatus::kFailure;
    args = api::Access::arguments(*values);
    return MStatus::kSuccess;
}

MStatus MArgParser::getCommandArgument(unsigned int index, bool& result) const
{
    return readInto(commandValue(m_parsed, index), result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, int& result) const
{
    return readInto(commandValue(m_parsed, index), result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, double& result) const
{
    return readInto(commandValue(m_parsed, index), result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, MString& result) const
{
    return readInto(commandValue(m_parsed, index), result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, MTime& result) const
{
    return readInto(commandValue(m_parsed, index), result);
}

bool MArgParser::commandArgumentBool(unsigned int index, MStatus* ReturnStatus) const
{
    return readOr(commandValue(m_parsed, index), false, ReturnStatus);
}

int MArgParser::commandArgumentInt(unsigned int index, MStatus* ReturnStatus) const
{
    return readOr(commandValue(m_parsed, index), 0, ReturnStatus);
}

double MArgParser::commandArgumentDouble(unsigned int index, MStatus* ReturnStatus) const
{
    return readOr(commandValue(m_parsed, index), 0.0, ReturnStatus);
}

MString MArgParser::commandArgumentString(unsigned int index, MStatus* ReturnStatus) const
{
    return readOr(commandValue(m_parsed, index), MString(), ReturnStatus);
}

MTime MArgParser::commandArgumentMTime(unsigned int index, MStatus* ReturnStatus) const
{
    return readOr(commandValue(m_parsed, index), noTime(), ReturnStatus);
}

MStatus MArgParser::getObjects(MStringArray& result) const
{
    if (!m_parsed || m_parsed->syntax.objects() != kernel::Syntax::Objects::Strings)
        return MStatus::kFailure;
    result.clear();
    for (const kernel::Value& object : m_parsed->args.objects)
        result.append(api::toHost(kernel::toText(object)));
    return MStatus::kSuccess;
}

MArgDatabase::MArgDatabase() = default;

MArgDatabase::MArgDatabase(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus)
    : MArgParser(syntax, argList, ReturnStatus)
{}

MArgDatabase::~MArgDatabase() = default;

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, MSelectionList& result) const
{
    const kernel::Value* value = flagValue(m_parsed, flag, index);
    MString name;
    if (!value || !read(*value, name))
        return MStatus::kFailure;
    MSelectionList found;
    const MStatus status = found.add(name);
    if (status)
        result = found;
    return status;
}

MStatus MArgDatabase::getObjects(MSelectionList& result) const
{
    if (!m_parsed || m_parsed->syntax.objects() != kernel::Syntax::Objects::Selection)
        return MStatus::kFailure;
    MSelectionList found;
    for (const kernel::Value& object : m_parsed->args.objects) {
        const MStatus status = found.add(api::toHost(kernel::toText(object)));
        if (!status)
            return status;
    }
    result = found;
    return MStatus::kSuccess;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
