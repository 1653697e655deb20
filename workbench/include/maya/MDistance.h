#pragma once

#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A length with its unit.
class MDistance {
public:
    enum Unit {
        kInvalid = 0,
        kInches,
        kFeet,
        kYards,
        kMiles,
        kMillimeters,
        kCentimeters,
        kKilometers,
        kMeters,
        kLast,
    };

    MDistance() = default;
    MDistance(double value, Unit unit = kCentimeters) : m_value(value), m_unit(unit) {}

    Unit unit() const { return m_unit; }
    double value() const { return m_value; }
    MStatus setUnit(Unit unit);  ///< reinterprets the value, does not convert it
    MStatus setValue(double value);
    double as(Unit unit) const;
    double asInches() const { return as(kInches); }
    double asFeet() const { return as(kFeet); }
    double asYards() const { return as(kYards); }
    double asMiles() const { return as(kMiles); }
    double asMillimeters() const { return as(kMillimeters); }
    double asCentimeters() const { return as(kCentimeters); }
    double asKilometers() const { return as(kKilometers); }
    double asMeters() const { return as(kMeters); }
    static Unit uiUnit();
    static Unit internalUnit() { return kCentimeters; }

private:
    double m_value = 0;
    Unit m_unit = kCentimeters;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
