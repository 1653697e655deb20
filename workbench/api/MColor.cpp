#include <maya/MColor.h>

#include <algorithm>
#include <cmath>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

// Hue, saturation and value, each 0 to 1.

void toHsv(const MColor& colour, float& h, float& s, float& v)
{
    v = std::max({colour.r, colour.g, colour.b});
    const float span = v - std::min({colour.r, colour.g, colour.b});
    s = v > 0 ? span / v : 0;
    h = 0;
    if (span <= 0)
        return;
    if (v == colour.r)
        h = (colour.g - colour.b) / span;
    else if (v == colour.g)
        h = 2 + (colour.b - colour.r) / span;
    else
        h = 4 + (colour.r - colour.g) / span;
    h = h < 0 ? h / 6 + 1 : h / 6;
}

void fromHsv(float h, float s, float v, MColor& colour)
{
    const auto component = [&](float offset) {
        const float k = std::fmod(offset + h * 6, 6.0f);
        return v - v * s * std::clamp(std::min(k, 4 - k), 0.0f, 1.0f);
    };
    colour.r = component(5);
    colour.g = component(3);
    colour.b = component(1);
}

}  // namespace

MColor::MColor(MColorType model, float c1, float c2, float c3, float alpha)
{
    set(model, c1, c2, c3, alpha);
}

bool MColor::get(MColorType model, float& c1, float& c2, float& c3) const
{
    switch (model) {
    case kHSV: toHsv(*this, c1, c2, c3); return true;
    case kRGB: c1 = r, c2 = g, c3 = b; return true;
    case kCMY: c1 = 1 - r, c2 = 1 - g, c3 = 1 - b; return true;
    case kCMYK: break;
    }
    return false;
}

bool MColor::set(MColorType model, float c1, float c2, float c3, float alpha)
{
    switch (model) {
    case kHSV: fromHsv(c1, c2, c3, *this); break;
    case kRGB: r = c1, g = c2, b = c3; break;
    case kCMY: r = 1 - c1, g = 1 - c2, b = 1 - c3; break;
    case kCMYK: return false;
    }
    a = alpha;
    return true;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
