#include <maya/MAngle.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

double radiansPer(MAngle::Unit unit)
{
    constexpr double kDegree = 3.14159265358979323846 / 180;
    switch (unit) {
    case MAngle::kDegrees: return kDegree;
    case MAngle::kAngMinutes: return kDegree / 60;
    case MAngle::kAngSeconds: return kDegree / 3600;
    default: return 1;
    }
}

}  // namespace

MStatus MAngle::setUnit(Unit unit)
{
    m_unit = unit;
    return MStatus::kSuccess;
}

MStatus MAngle::setValue(double value)
{
    m_value = value;
    return MStatus::kSuccess;
}

double MAngle::as(Unit unit) const
{
    return unit == m_unit ? m_value : m_value * radiansPer(m_unit) / radiansPer(unit);
}

MAngle::Unit MAngle::uiUnit()
{
    return kDegrees;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
