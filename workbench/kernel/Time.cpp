#include "kernel/Time.h"

#include <charconv>
#include <cmath>

namespace kernel {

namespace {

struct UnitRow {
    TimeUnit unit;
    const char* name;
    double ticks;
};

constexpr double perSecond(double frames)
{
    return kTicksPerSecond / frames;
}
/// The rates that video made 1000/1001 of a whole one.
constexpr double perSecondNtsc(double frames)
{
    return kTicksPerSecond * 1001.0 / (frames * 1000.0);
}

const UnitRow kUnits[] = {
    {TimeUnit::Hours, "hour", kTicksPerSecond * 3600},
    {TimeUnit::Minutes, "min", kTicksPerSecond * 60},
    {TimeUnit::Seconds, "sec", kTicksPerSecond},
    {TimeUnit::Milliseconds, "millisec", perSecond(1000)},
    {TimeUnit::Games, "game", perSecond(15)},
    {TimeUnit::Film, "film", perSecond(24)},
    {TimeUnit::PalFrame, "pal", perSecond(25)},
    {TimeUnit::NtscFrame, "ntsc", perSecond(30)},
    {TimeUnit::ShowScan, "show", perSecond(48)},
    {TimeUnit::PalField, "palf", perSecond(50)},
    {TimeUnit::NtscField, "ntscf", perSecond(60)},
    {TimeUnit::Fps2, "2fps", perSecond(2)},
    {TimeUnit::Fps3, "3fps", perSecond(3)},
    {TimeUnit::Fps4, "4fps", perSecond(4)},
    {TimeUnit::Fps5, "5fps", perSecond(5)},
    {TimeUnit::Fps6, "6fps", perSecond(6)},
    {TimeUnit::Fps8, "8fps", perSecond(8)},
    {TimeUnit::Fps10, "10fps", perSecond(10)},
    {TimeUnit::Fps12, "12fps", perSecond(12)},
    {TimeUnit::Fps16, "16fps", perSecond(16)},
    {TimeUnit::Fps20, "20fps", perSecond(20)},
    {TimeUnit::Fps40, "40fps", perSecond(40)},
    {TimeUnit::Fps75, "75fps", perSecond(75)},
    {TimeUnit::Fps80, "80fps", perSecond(80)},
    {TimeUnit::Fps100, "100fps", perSecond(100)},
    {TimeUnit::Fps120, "120fps", perSecond(120)},
    {TimeUnit::Fps125, "125fps", perSecond(125)},
    {TimeUnit::Fps150, "150fps", perSecond(150)},
    {TimeUnit::Fps200, "200fps", perSecond(200)},
    {TimeUnit::Fps240, "240fps", perSecond(240)},
    {TimeUnit::Fps250, "250fps", perSecond(250)},
    {TimeUnit::Fps300, "300fps", perSecond(300)},
    {TimeUnit::Fps375, "375fps", perSecond(375)},
    {TimeUnit::Fps400, "400fps", perSecond(400)},
    {TimeUnit::Fps500, "500fps", perSecond(500)},
    {TimeUnit::Fps600, "600fps", perSecond(600)},
    {TimeUnit::Fps750, "750fps", perSecond(750)},
    {TimeUnit::Fps1200, "1200fps", perSecond(1200)},
    {TimeUnit::Fps1500, "1500fps", perSecond(1500)},
    {TimeUnit::Fps2000, "2000fps", perSecond(2000)},
    {TimeUnit::Fps3000, "3000fps", perSecond(3000)},
    {TimeUnit::Fps6000, "6000fps", perSecond(6000)},
    {TimeUnit::Fps23_976, "23.976fps", perSecondNtsc(24)},
    {TimeUnit::Fps29_97, "29.97fps", perSecondNtsc(30)},
    {TimeUnit::Fps29_97Drop, "29.97df", perSecondNtsc(30)},
    {TimeUnit::Fps47_952, "47.952fps", perSecondNtsc(48)},
    {TimeUnit::Fps59_94, "59.94fps", perSecondNtsc(60)},
    {TimeUnit::Fps44100, "44100fps", perSecond(44100)},
    {TimeUnit::Fps48000, "48000fps", perSecond(48000)},
    {TimeUnit::Fps90, "90fps", perSecond(90)},
};

const UnitRow* row(TimeUnit unit)
{
    // The rows stand in the order of the enumeration, which begins with Invalid.
    const int index = static_cast<int>(unit) - 1;
    const int count = sizeof kUnits / sizeof kUnits[0];
    return index >= 0 && index < count ? &kUnits[index] : nullptr;
}

}  // namespace

double ticksPerUnit(TimeUnit unit)
{
    const UnitRow* known = row(unit);
    return known ? known->ticks : perSecond(24);
}

std::string timeUnitName(TimeUnit unit)
{
    const UnitRow* known = row(unit);
    return known ? known->name : "";
}

TimeUnit timeUnitFromName(const std::string& name)
{
    for (const UnitRow& known : kUnits) {
        if (name == known.name)
            return known.unit;
    }
    return TimeUnit::Invalid;
}

double Time::as(TimeUnit other) const
{
    if (other == unit)
        return value;
    // Both are whole numbers, so a whole quotient is exact.
    return ticks() / ticksPerUnit(other);
}

double Time::ticks() const
{
    // A frame that another unit can only hold as a fraction is a whole number of ticks all the same.
    return std::round(value * ticksPerUnit(unit));
}

bool parseTime(const std::string& text, TimeUnit unit, Time& out)
{
    const char* start = text.c_str() + (text.size() > 1 && text[0] == '+' ? 1 : 0);
    const char* digits = *start == '-' ? start + 1 : start;
    if (*digits != '.' && (*digits < '0' || *digits > '9'))
        return false;
    double number = 0;
    const auto result = std::from_chars(start, text.c_str() + text.size(), number);
    if (result.ec != std::errc())
        return false;
    TimeUnit read = unit;
    if (*result.ptr != '\0') {
        read = timeUnitFromName(result.ptr);
        if (read == TimeUnit::Invalid)
            return false;
    }
    out = Time{number, read};
    return true;
}

}  // namespace kernel
