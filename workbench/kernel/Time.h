#pragma once

#include <string>

namespace kernel {

/// Time units; the numbers equal the host API's MTime::Unit.
enum class TimeUnit : int {
    Invalid = 0,
    Hours,
    Minutes,
    Seconds,
    Milliseconds,
    Games,
    Film,
    PalFrame,
    NtscFrame,
    ShowScan,
    PalField,
    NtscField,
    Fps2,
    Fps3,
    Fps4,
    Fps5,
    Fps6,
    Fps8,
    Fps10,
    Fps12,
    Fps16,
    Fps20,
    Fps40,
    Fps75,
    Fps80,
    Fps100,
    Fps120,
    Fps125,
    Fps150,
    Fps200,
    Fps240,
    Fps250,
    Fps300,
    Fps375,
    Fps400,
    Fps500,
    Fps600,
    Fps750,
    Fps1200,
    Fps1500,
    Fps2000,
    Fps3000,
    Fps6000,
    Fps23_976,
    Fps29_97,
    Fps29_97Drop,
    Fps47_952,
    Fps59_94,
    Fps44100,
    Fps48000,
    Fps90,
    UserDefined,
    Last
};

/// Ticks per second; divisible by every frame rate, so whole frames convert without loss.
constexpr double kTicksPerSecond = 141120000.0;

double ticksPerUnit(TimeUnit unit);
/// Script name of a unit ("film", "pal", "sec", "90fps"); empty for Invalid.
std::string timeUnitName(TimeUnit unit);
/// The unit of a script name, Invalid when there is none.
TimeUnit timeUnitFromName(const std::string& name);

/// An instant, kept in the unit it was made in so that its value comes back exactly.
struct Time {
    double value = 0;
    TimeUnit unit = TimeUnit::Film;

    /// The value in another unit. The same unit gives `value` untouched; whole frames stay whole where they can, and
    /// come back whole from every unit.
    double as(TimeUnit other) const;
    double ticks() const;  ///< whole
};

/// Reads "12", "12.5", "12film", "2sec"; a bare number is in `unit`. False when the text is no time.
bool parseTime(const std::string& text, TimeUnit unit, Time& out);

}  // namespace kernel
