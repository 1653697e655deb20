#pragma once

#include <maya/MStatus.h>

#include <iosfwd>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// An instant or a span, kept in the unit it was made in so that its value comes back exactly.
class MTime {
public:
    enum Unit {
        kInvalid = 0,
        kHours = 1,
        kMinutes = 2,
        kSeconds = 3,
        kMilliseconds = 4,
        kGames = 5,
        k15FPS = kGames,
        kFilm = 6,
        k24FPS = kFilm,
        kPALFrame = 7,
        k25FPS = kPALFrame,
        kNTSCFrame = 8,
        k30FPS = kNTSCFrame,
        kShowScan = 9,
        k48FPS = kShowScan,
        kPALField = 10,
        k50FPS = kPALField,
        kNTSCField = 11,
        k60FPS = kNTSCField,
        k2FPS = 12,
        k3FPS = 13,
        k4FPS = 14,
        k5FPS = 15,
        k6FPS = 16,
        k8FPS = 17,
        k10FPS = 18,
        k12FPS = 19,
        k16FPS = 20,
        k20FPS = 21,
        k40FPS = 22,
        k75FPS = 23,
        k80FPS = 24,
        k100FPS = 25,
        k120FPS = 26,
        k125FPS = 27,
        k150FPS = 28,
        k200FPS = 29,
        k240FPS = 30,
        k250FPS = 31,
        k300FPS = 32,
        k375FPS = 33,
        k400FPS = 34,
        k500FPS = 35,
        k600FPS = 36,
        k750FPS = 37,
        k1200FPS = 38,
        k1500FPS = 39,
        k2000FPS = 40,
        k3000FPS = 41,
        k6000FPS = 42,
        k23_976FPS = 43,
        k29_97FPS = 44,
        k29_97DF = 45,
        k47_952FPS = 46,
        k59_94FPS = 47,
        k44100FPS = 48,
        k48000FPS = 49,
        k90FPS = 50,
        kUserDef = 51,
        kLast = 52,
    };
    typedef MInt64 MTick;

    MTime();  ///< one UI unit
    MTime(double value, Unit unit = kFilm);

    Unit unit() const { return m_unit; }
    double value() const { return m_value; }  ///< in this instance's own unit
    MStatus setUnit(Unit unit);               ///< reinterprets the value, does not convert it
    MStatus setValue(double value);
    /// The value in another unit; whole frames stay whole where they can.
    double as(Unit unit) const;
    double asUnits(Unit unit) const;

    static Unit uiUnit();
    static MStatus setUIUnit(Unit unit);
    static MTick ticksPerSecond();

    // The left operand's unit is kept; a bare number is in that unit.
    MTime operator+(const MTime& other) const;
    MTime operator+(double value) const;
    MTime operator-(const MTime& other) const;
    MTime operator-(double value) const;
    MTime operator*(double factor) const;
    MTime operator/(double divisor) const;
    double operator/(const MTime& other) const;
    MTime& operator+=(const MTime& other);
    MTime& operator+=(double value);
    MTime& operator-=(const MTime& other);
    MTime& operator-=(double value);
    MTime& operator*=(double factor);
    MTime& operator/=(double divisor);
    MTime operator++(int);
    MTime& operator++();
    MTime operator--(int);
    MTime& operator--();

    // Instants are compared, in whole ticks.
    bool operator==(const MTime& other) const;
    bool operator!=(const MTime& other) const;
    bool operator<(const MTime& other) const;
    bool operator<=(const MTime& other) const;
    bool operator>(const MTime& other) const;
    bool operator>=(const MTime& other) const;

private:
    double m_value;
    Unit m_unit;
};

/// Prints the value in the UI unit with as many digits as needed to read the same value back.
std::ostream& operator<<(std::ostream& out, const MTime& time);

OPENMAYA_MAJOR_NAMESPACE_CLOSE
