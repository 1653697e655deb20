#pragma once

#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// An angle with its unit.
class MAngle {
public:
    enum Unit {
        kInvalid = 0,
        kRadians,
        kDegrees,
        kAngMinutes,
        kAngSeconds,
        kLast,
    };

    MAngle() = default;
    MAngle(double value, Unit unit = kRadians) : m_value(value), m_unit(unit) {}

    Unit unit() const { return m_unit; }
    double value() const { return m_value; }
    MStatus setUnit(Unit unit);  ///< reinterprets the value, does not convert it
    MStatus setValue(double value);
    double as(Unit unit) const;
    double asRadians() const { return as(kRadians); }
    double asDegrees() const { return as(kDegrees); }
    double asAngMinutes() const { return as(kAngMinutes); }
    double asAngSeconds() const { return as(kAngSeconds); }
    static Unit uiUnit();
    static Unit internalUnit() { return kRadians; }

private:
    double m_value = 0;
    Unit m_unit = kDegrees;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
