#include "kernel/AnimCurve.h"

#include <algorithm>

namespace kernel {

namespace {

bool isBefore(const CurveKey& key, double ticks)
{
    return key.ticks < ticks;
}

}  // namespace

bool operator==(const CurveKey& a, const CurveKey& b)
{
    return a.ticks == b.ticks && a.value == b.value && a.inTangent == b.inTangent && a.outTangent == b.outTangent;
}

double AnimCurve::valueAt(double ticks) const
{
    if (m_keys.empty())
        return 0;
    const auto right = std::lower_bound(m_keys.begin(), m_keys.end(), ticks, isBefore);
    if (right == m_keys.end())
        return m_keys.back().value;
    if (right == m_keys.begin() || right->ticks == ticks)
        return right->value;
    const CurveKey& left = *(right - 1);
    const bool isStep = left.outTangent == kStepTangent || left.outTangent == kStepNextTangent;
    if (isStep || left.value == right->value)
        return left.value;
    // Weighed, as the difference of two great numbers may be more than a number holds.
    const double part = (ticks - left.ticks) / (right->ticks - left.ticks);
    return left.value * (1 - part) + right->value * part;
}

const CurveKey* AnimCurve::keyAt(double ticks) const
{
    const auto key = std::lower_bound(m_keys.begin(), m_keys.end(), ticks, isBefore);
    return key != m_keys.end() && key->ticks == ticks ? &*key : nullptr;
}

void AnimCurve::set(const CurveKey& key)
{
    statements.clear();
    const auto place = std::lower_bound(m_keys.begin(), m_keys.end(), key.ticks, isBefore);
    if (place != m_keys.end() && place->ticks == key.ticks)
        *place = key;
    else
        m_keys.insert(place, key);
}

bool AnimCurve::append(const std::vector<CurveKey>& keys)
{
    const CurveKey* before = m_keys.empty() ? nullptr : &m_keys.back();
    for (const CurveKey& key : keys) {
        if (before && !(before->ticks < key.ticks))
            return false;
        before = &key;
    }
    statements.clear();
    m_keys.insert(m_keys.end(), keys.begin(), keys.end());
    return true;
}

std::vector<CurveKey> AnimCurve::exchange(std::size_t first, std::size_t count, const std::vector<CurveKey>& keys)
{
    const auto start = m_keys.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = start + static_cast<std::ptrdiff_t>(count);
    std::vector<CurveKey> taken(start, end);
    m_keys.insert(m_keys.erase(start, end), keys.begin(), keys.end());
    return taken;
}

void AnimCurve::setTangents(std::size_t index, int in, int out)
{
    statements.clear();
    m_keys[index].inTangent = in;
    m_keys[index].outTangent = out;
}

int AnimCurve::erase(double firstTicks, double lastTicks)
{
    const auto first = std::lower_bound(m_keys.begin(), m_keys.end(), firstTicks, isBefore);
    auto last = first;
    while (last != m_keys.end() && last->ticks <= lastTicks)
        ++last;
    const auto count = static_cast<int>(last - first);
    if (count > 0)
        statements.clear();
    m_keys.erase(first, last);
    return count;
}

void AnimCurve::changeValues(const std::function<double(double value)>& change)
{
    for (CurveKey& key : m_keys)
        key.value = change(key.value);
}

}  // namespace kernel
