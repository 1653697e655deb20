#include <maya/MTime.h>

#include "api/Handles.h"
#include "kernel/Session.h"

#include <ostream>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

double ticks(const MTime& time)
{
    return api::toKernel(time).ticks();
}

}  // namespace

MTime::MTime() : m_value(1), m_unit(uiUnit()) {}
MTime::MTime(double value, Unit unit) : m_value(value), m_unit(unit) {}

MStatus MTime::setUnit(Unit unit)
{
    m_unit = unit;
    return MStatus::kSuccess;
}

MStatus MTime::setValue(double value)
{
    m_value = value;
    return MStatus::kSuccess;
}

double MTime::as(Unit unit) const
{
    return api::toKernel(*this).as(static_cast<kernel::TimeUnit>(unit));
}

double MTime::asUnits(Unit unit) const
{
    return as(unit);
}

MTime::Unit MTime::uiUnit()
{
    return kernel::Session::exists() ? static_cast<Unit>(kernel::Session::current().scene.timeUnit()) : kFilm;
}

MStatus MTime::setUIUnit(Unit unit)
{
    if (unit <= kInvalid || unit >= kLast)
        return MStatus::kInvalidParameter;
    kernel::Session::current().scene.setTimeUnit(static_cast<kernel::TimeUnit>(unit));
    return MStatus::kSuccess;
}

MTime::MTick MTime::ticksPerSecond()
{
    return MTick(kernel::kTicksPerSecond);
}

MTime MTime::operator+(const MTime& other) const
{
    return MTime(m_value + other.as(m_unit), m_unit);
}

MTime MTime::operator+(double value) const
{
    return MTime(m_value + value, m_unit);
}

MTime MTime::operator-(const MTime& other) const
{
    return MTime(m_value - other.as(m_unit), m_unit);
}

MTime MTime::operator-(double value) const
{
    return MTime(m_value - value, m_unit);
}

MTime MTime::operator*(double factor) const
{
    return MTime(m_value * factor, m_unit);
}

MTime MTime::operator/(double divisor) const
{
    return MTime(m_value / divisor, m_unit);
}

double MTime::operator/(const MTime& other) const
{
    return m_value / other.as(m_unit);
}

MTime& MTime::operator+=(const MTime& other)
{
    return *this = *this + other;
}

MTime& MTime::operator+=(double value)
{
    return *this = *this + value;
}

MTime& MTime::operator-=(const MTime& other)
{
    return *this = *this - other;
}

MTime& MTime::operator-=(double value)
{
    return *this = *this - value;
}

MTime& MTime::operator*=(double factor)
{
    return *this = *this * factor;
}

MTime& MTime::operator/=(double divisor)
{
    return *this = *this / divisor;
}

MTime MTime::operator++(int)
{
    const MTime before(*this);
    m_value += 1;
    return before;
}

MTime& MTime::operator++()
{
    m_value += 1;
    return *this;
}

MTime MTime::operator--(int)
{
    const MTime before(*this);
    m_value -= 1;
    return before;
}

MTime& MTime::operator--()
{
    m_value -= 1;
    return *this;
}

bool MTime::operator==(const MTime& other) const
{
    return ticks(*this) == ticks(other);
}

bool MTime::operator!=(const MTime& other) const
{
    return !(*this == other);
}

bool MTime::operator<(const MTime& other) const
{
    return ticks(*this) < ticks(other);
}

bool MTime::operator<=(const MTime& other) const
{
    return !(other < *this);
}

bool MTime::operator>(const MTime& other) const
{
    return other < *this;
}

bool MTime::operator>=(const MTime& other) const
{
    return !(*this < other);
}

std::ostream& operator<<(std::ostream& out, const MTime& time)
{
    return out << kernel::exactNumberText(time.as(MTime::uiUnit()));
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
