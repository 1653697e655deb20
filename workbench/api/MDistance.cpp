#include <maya/MDistance.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

double centimetresPer(MDistance::Unit unit)
{
    switch (unit) {
    case MDistance::kInches: return 2.54;
    case MDistance::kFeet: return 30.48;
    case MDistance::kYards: return 91.44;
    case MDistance::kMiles: return 160934.4;
    case MDistance::kMillimeters: return 0.1;
    case MDistance::kKilometers: return 100000;
    case MDistance::kMeters: return 100;
    default: return 1;
    }
}

}  // namespace

MStatus MDistance::setUnit(Unit unit)
{
    m_unit = unit;
    return MStatus::kSuccess;
}

MStatus MDistance::setValue(double value)
{
    m_value = value;
    return MStatus::kSuccess;
}

double MDistance::as(Unit unit) const
{
    return unit == m_unit ? m_value : m_value * centimetresPer(m_unit) / centimetresPer(unit);
}

MDistance::Unit MDistance::uiUnit()
{
    return kCentimeters;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
