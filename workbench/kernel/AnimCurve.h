#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace kernel {

/// How a curve enters and leaves a key, by the numbers that scenes hold. Those of other tangents are kept, and the
/// curve runs straight there.
constexpr int kLinearTangent = 2;
constexpr int kStepTangent = 5;
constexpr int kStepNextTangent = 17;  ///< a step too

/// One key of a curve.
struct CurveKey {
    double ticks;  ///< whole, so that no time unit is lost in another
    double value;  ///< as the driven attributes hold it
    int inTangent;
    int outTangent;
};
bool operator==(const CurveKey& a, const CurveKey& b);

/// Values over time: straight from key to key, or held until the next one; constant outside. What a curve node holds.
class AnimCurve {
public:
    bool isEmpty() const { return m_keys.empty(); }
    /// In ascending time, never two at once.
    const std::vector<CurveKey>& keys() const { return m_keys; }
    /// The value at an instant; 0 without keys.
    double valueAt(double ticks) const;
    /// The key that stands at an instant; null for none.
    const CurveKey* keyAt(double ticks) const;

    /// Puts a key in; it takes the place of one at the same instant.
    void set(const CurveKey& key);
    /// Puts keys behind all others. False, and nothing done, when they are not in order or do not lie behind them.
    bool append(const std::vector<CurveKey>& keys);
    void setTangents(std::size_t index, int in, int out);
    /// Takes out the keys of a span, both ends included; gives how many there were.
    int erase(double firstTicks, double lastTicks);
    /// Exchanges `count` keys from `first` on for others, which belong there by their time; gives those taken out. The
    /// statements stay.
    std::vector<CurveKey> exchange(std::size_t first, std::size_t count, const std::vector<CurveKey>& keys);
    /// Puts what is made of it in place of every value.
    void changeValues(const std::function<double(double value)>& change);

    /// Statements of a scene that fit these very keys (the slopes of smooth tangents, for one) and are written back
    /// with them. Any change of the keys drops them.
    std::vector<std::string> statements;

private:
    std::vector<CurveKey> m_keys;
};

}  // namespace kernel
