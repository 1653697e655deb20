#include <maya/MSyntax.h>

#include "api/Access.h"

#include <cstring>
#include <initializer_list>
#include <optional>

namespace {

const char* withoutDash(const char* name)
{
    return name[0] == '-' ? name + 1 : name;
}

std::optional<kernel::ArgType> argType(MSyntax::MArgType type)
{
    switch (type) {
    case MSyntax::kBoolean: return kernel::ArgType::Bool;
    case MSyntax::kLong: return kernel::ArgType::Int;
    case MSyntax::kUnsigned: return kernel::ArgType::Unsigned;
    case MSyntax::kDouble: return kernel::ArgType::Double;
    case MSyntax::kString: return kernel::ArgType::String;
    case MSyntax::kDistance: return kernel::ArgType::Distance;
    case MSyntax::kAngle: return kernel::ArgType::Angle;
    case MSyntax::kTime: return kernel::ArgType::Time;
    case MSyntax::kSelectionItem: return kernel::ArgType::SelectionItem;
    case MSyntax::kInvalidArgType:
    case MSyntax::kNoArg:
    case MSyntax::kLastArgType: break;
    }
    return std::nullopt;
}

bool isReserved(const char* name)
{
    for (const char* reserved : {"e", "edit", "q", "query"}) {
        if (std::strcmp(name, reserved) == 0)
            return true;
    }
    return false;
}

kernel::Syntax::Objects objectKind(MSyntax::MObjectFormat format)
{
    switch (format) {
    case MSyntax::kStringObjects: return kernel::Syntax::Objects::Strings;
    case MSyntax::kSelectionList: return kernel::Syntax::Objects::Selection;
    default: return kernel::Syntax::Objects::None;
    }
}

}  // namespace

namespace api {

MSyntax Access::aliasOf(std::shared_ptr<kernel::Syntax> own)
{
    MSyntax syntax;
    syntax.m_syntax = std::move(own);
    return syntax;
}

}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

MSyntax::MSyntax() : m_syntax(std::make_shared<kernel::Syntax>()) {}

MSyntax::MSyntax(const MSyntax& other) : m_syntax(std::make_shared<kernel::Syntax>(*other.m_syntax)) {}

// A moved-from syntax stays usable, as the same one: it has no state of its own to lose.
MSyntax::MSyntax(MSyntax&& other) : m_syntax(other.m_syntax) {}

MSyntax& MSyntax::operator=(const MSyntax& other)
{
    if (this != &other)
        m_syntax = std::make_shared<kernel::Syntax>(*other.m_syntax);
    return *this;
}

MSyntax& MSyntax::operator=(MSyntax&& other)
{
    m_syntax = other.m_syntax;
    return *this;
}

MSyntax::~MSyntax() = default;

MStatus MSyntax::addFlag(const char* shortName, const char* longName, MArgType argType1, MArgType argType2,
                         MArgType argType3, MArgType argType4, MArgType argType5, MArgType argType6)
{
    if (!shortName || !longName)
        return MStatus::kInvalidParameter;
    const char* const shortText = withoutDash(shortName);
    const char* const longText = withoutDash(longName);
    const std::size_t shortLength = std::strlen(shortText);
    if (shortLength < 1 || shortLength > 3 || std::strlen(longText) < 4)
        return MStatus::kInvalidParameter;
    if (isReserved(shortText) || isReserved(longText))
        return MStatus::kInvalidParameter;

    std::vector<kernel::ArgType> types;
    for (const MArgType type : {argType1, argType2, argType3, argType4, argType5, argType6}) {
        if (type == kNoArg)
            break;
        const auto kernelType = argType(type);
        if (!kernelType)
            return MStatus::kInvalidParameter;
        types.push_back(*kernelType);
    }
    return m_syntax->addFlag(shortText, longText, std::move(types)) ? MStatus::kSuccess : MStatus::kFailure;
}

MStatus MSyntax::addArg(MArgType type)
{
    const auto kernelType = argType(type);
    if (!kernelType)
        return MStatus::kInvalidParameter;
    m_syntax->addArg(*kernelType);
    return MStatus::kSuccess;
}

MStatus MSyntax::makeFlagMultiUse(const char* flag)
{
    return flag && m_syntax->makeMultiUse(flag) ? MStatus::kSuccess : MStatus::kInvalidParameter;
}

MStatus MSyntax::makeFlagQueryWithFullArgs(const char* flag, bool /*queryArgsAreOptional*/)
{
    return flag && m_syntax->makeQueryWithFullArgs(flag) ? MStatus::kSuccess : MStatus::kInvalidParameter;
}

void MSyntax::setObjectType(MObjectFormat format, unsigned int minimumObjects)
{
    m_syntax->setObjects(objectKind(format), minimumObjects);
}

void MSyntax::setObjectType(MObjectFormat format, unsigned int minimumObjects, unsigned int maximumObjects)
{
    m_syntax->setObjects(objectKind(format), minimumObjects, maximumObjects);
}

void MSyntax::setMinObjects(unsigned int minimum)
{
    m_syntax->setMinObjects(minimum);
}

void MSyntax::setMaxObjects(unsigned int maximum)
{
    m_syntax->setMaxObjects(maximum);
}

unsigned int MSyntax::minObjects() const
{
    return m_syntax->minObjects();
}

unsigned int MSyntax::maxObjects() const
{
    return m_syntax->maxObjects();
}

void MSyntax::useSelectionAsDefault(bool use)
{
    m_syntax->useSelectionAsDefault(use);
}

void MSyntax::enableQuery(bool enable)
{
    m_syntax->enableQuery(enable);
}

void MSyntax::enableEdit(bool enable)
{
    m_syntax->enableEdit(enable);
}

bool MSyntax::canQuery() const
{
    return m_syntax->canQuery();
}

bool MSyntax::canEdit() const
{
    return m_syntax->canEdit();
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
