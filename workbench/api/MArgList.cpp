#include <maya/MArgList.h>

#include "api/Access.h"
#include "api/Handles.h"
#include "kernel/Session.h"

using api::report;

namespace {

const char* withoutDash(const char* name)
{
    return name[0] == '-' ? name + 1 : name;
}

bool isScalar(const kernel::Value& value)
{
    return std::holds_alternative<int>(value) || std::holds_alternative<double>(value)
        || std::holds_alternative<std::string>(value);
}

/// Up to `count` numbers: the components of one vector argument, or so many arguments. False, and index as it was,
/// when they are not there.
bool takeNumbers(const api::ArgumentValues& list, unsigned& index, double* numbers, unsigned count)
{
    const kernel::Value* first = list.at(index);
    if (first && count == 3 && std::holds_alternative<kernel::Vector3>(*first)) {
        const auto& vector = std::get<kernel::Vector3>(*first);
        numbers[0] = vector.x;
        numbers[1] = vector.y;
        numbers[2] = vector.z;
        ++index;
        return true;
    }
    for (unsigned i = 0; i < count; ++i) {
        const kernel::Value* value = list.at(index + i);
        if (!value || !kernel::toDouble(*value, numbers[i]))
            return false;
    }
    index += count;
    return true;
}

/// The elements of one array argument, or as many arguments in a row as `convert` takes.
template <typename Array, typename Element>
Array takeArray(const api::ArgumentValues& list, unsigned& index, bool (*convert)(const kernel::Value&, Element&),
                MStatus* status)
{
    Array result;
    const auto take = [&](const kernel::Value& value) {
        Element element{};
        if (!convert(value, element))
            return false;
        result.append(element);
        return true;
    };
    const kernel::Value* first = list.at(index);
    bool ok = first != nullptr;
    if (ok && kernel::isArray(*first)) {
        if (const auto* ints = std::get_if<kernel::IntArray>(first)) {
            for (const int number : *ints)
                ok = ok && take(number);
        } else if (const auto* doubles = std::get_if<kernel::DoubleArray>(first)) {
            for (const double number : *doubles)
                ok = ok && take(number);
        } else if (const auto* texts = std::get_if<kernel::StringArray>(first)) {
            for (const std::string& text : *texts)
                ok = ok && take(text);
        } else {
            ok = false;
        }
        if (ok)
            ++index;
        else
            result.clear();
    } else if (ok) {
        for (; first && take(*first); first = list.at(index))
            ++index;
        ok = result.length() > 0;
    }
    report(status, ok ? MStatus::kSuccess : MStatus::kFailure);
    return result;
}

bool toHostText(const kernel::Value& value, MString& out)
{
    if (!isScalar(value))
        return false;
    out = api::toHost(kernel::toText(value));
    return true;
}

}  // namespace

namespace api {

bool toTime(const kernel::Value& value, MTime& time)
{
    const kernel::TimeUnit unit = kernel::Session::current().scene.timeUnit();
    kernel::Time read;
    if (const auto* text = std::get_if<std::string>(&value)) {
        if (!kernel::parseTime(*text, unit, read))
            return false;
    } else if (kernel::toDouble(value, read.value)) {
        read.unit = unit;
    } else {
        return false;
    }
    time = toHost(read);
    return true;
}

ArgumentValues& ArgumentValues::operator=(const ArgumentValues& other)
{
    m_values = other.all();
    m_lent = nullptr;
    return *this;
}

const kernel::Value* ArgumentValues::at(std::size_t index) const
{
    if (index >= size())
        return nullptr;
    if (!m_lent)
        return &m_values[index];
    m_made = m_lent->at(index);
    return &m_made;
}

kernel::ValueList ArgumentValues::all() const
{
    if (!m_lent)
        return m_values;
    kernel::ValueList values;
    for (std::size_t i = 0; i < m_lent->size(); ++i)
        values.push_back(m_lent->at(i));
    return values;
}

MArgList Access::arguments(kernel::ValueList values)
{
    MArgList list;
    list.m_values = std::make_unique<ArgumentValues>(std::move(values));
    return list;
}

MArgList Access::lent(const kernel::Arguments& args)
{
    MArgList list;
    list.m_values = std::make_unique<ArgumentValues>(args);
    return list;
}

}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

MArgList::MArgList() : m_values(new api::ArgumentValues) {}

MArgList::MArgList(const MArgList& other) : m_values(new api::ArgumentValues(*other.m_values)) {}

MArgList& MArgList::operator=(const MArgList& other)
{
    *m_values = *other.m_values;
    return *this;
}

MArgList::~MArgList() = default;

unsigned int MArgList::length(MStatus* ReturnStatus) const
{
    report(ReturnStatus, MStatus::kSuccess);
    return static_cast<unsigned int>(m_values->size());
}

bool MArgList::asBool(unsigned int index, MStatus* ReturnStatus) const
{
    const kernel::Value* value = m_values->at(index);
    bool result = false;
    const bool ok = value && kernel::toBool(*value, result);
    report(ReturnStatus, ok ? MStatus::kSuccess : MStatus::kFailure);
    return result;
}

int MArgList::asInt(unsigned int index, MStatus* ReturnStatus) const
{
    const kernel::Value* value = m_values->at(index);
    int result = 0;
    const bool ok = value && kernel::toInt(*value, result);
    report(ReturnStatus, ok ? MStatus::kSuccess : MStatus::kFailure);
    return result;
}

double MArgList::asDouble(unsigned int index, MStatus* ReturnStatus) const
{
    const kernel::Value* value = m_values->at(index);
    double result = 0;
    const bool ok = value && kernel::toDouble(*value, result);
    report(ReturnStatus, ok ? MStatus::kSuccess : MStatus::kFailure);
    return result;
}

MString MArgList::asString(unsigned int index, MStatus* ReturnStatus) const
{
    const kernel::Value* value = m_values->at(index);
    MString result;
    const bool ok = value && toHostText(*value, result);
    report(ReturnStatus, ok ? MStatus::kSuccess : MStatus::kFailure);
    return result;
}

MTime MArgList::asTime(unsigned int index, MStatus* ReturnStatus) const
{
    const kernel::Value* value = m_values->at(index);
    MTime result(0.0, MTime::uiUnit());
    const bool ok = value && api::toTime(*value, result);
    report(ReturnStatus, ok ? MStatus::kSuccess : MStatus::kFailure);
    return result;
}

MVector MArgList::asVector(unsigned int& index, unsigned int numElements, MStatus* ReturnStatus) const
{
    double numbers[3] = {0, 0, 0};
    const bool ok = numElements >= 1 && numElements <= 3 && takeNumbers(*m_values, index, numbers, numElements);
    report(ReturnStatus, ok ? MStatus::kSuccess : MStatus::kFailure);
    return ok ? MVector(numbers) : MVector();
}

MPoint MArgList::asPoint(unsigned int& index, unsigned int numElements, MStatus* ReturnStatus) const
{
    double numbers[4] = {0, 0, 0, 1};
    const bool ok = numElements >= 1 && numElements <= 4 && takeNumbers(*m_values, index, numbers, numElements);
    report(ReturnStatus, ok ? MStatus::kSuccess : MStatus::kFailure);
    return ok ? MPoint(numbers) : MPoint();
}

MIntArray MArgList::asIntArray(unsigned int& index, MStatus* ReturnStatus) const
{
    return takeArray<MIntArray, int>(*m_values, index, kernel::toInt, ReturnStatus);
}

MDoubleArray MArgList::asDoubleArray(unsigned int& index, MStatus* ReturnStatus) const
{
    return takeArray<MDoubleArray, double>(*m_values, index, kernel::toDouble, ReturnStatus);
}

MStringArray MArgList::asStringArray(unsigned int& index, MStatus* ReturnStatus) const
{
    return takeArray<MStringArray, MString>(*m_values, index, toHostText, ReturnStatus);
}

MStatus MArgList::addArg(bool arg)
{
    m_values->append(arg ? 1 : 0);
    return MStatus::kSuccess;
}

MStatus MArgList::addArg(int arg)
{
    m_values->append(arg);
    return MStatus::kSuccess;
}

MStatus MArgList::addArg(double arg)
{
    m_values->append(arg);
    return MStatus::kSuccess;
}

MStatus MArgList::addArg(const MString& arg)
{
    m_values->append(api::toKernel(arg));
    return MStatus::kSuccess;
}

MStatus MArgList::addArg(const MTime& arg)
{
    return addArg(arg.as(MTime::uiUnit()));
}

unsigned int MArgList::flagIndex(const char* shortFlag, const char* longFlag) const
{
    for (unsigned i = 0; i < m_values->size(); ++i) {
        const auto* text = std::get_if<std::string>(m_values->at(i));
        if (!text || text->size() < 2 || text->front() != '-')
            continue;
        const std::string name = text->substr(1);
        if ((shortFlag && name == withoutDash(shortFlag)) || (longFlag && name == withoutDash(longFlag)))
            return i;
    }
    return kInvalidArgIndex;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
