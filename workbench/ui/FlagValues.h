#pragma once

#include "kernel/Value.h"

#include <QColor>
#include <QString>

#include <algorithm>

/// The values of a flag, already of the types its row declares, as what the toolkit takes.
namespace ui {

inline QString text(const kernel::ValueList& values, std::size_t i = 0)
{
    return QString::fromStdString(kernel::toText(values.at(i)));
}

inline int whole(const kernel::ValueList& values, std::size_t i = 0)
{
    int number = 0;
    kernel::toInt(values.at(i), number);
    return number;
}

inline double number(const kernel::ValueList& values, std::size_t i = 0)
{
    double number = 0;
    kernel::toDouble(values.at(i), number);
    return number;
}

inline bool truth(const kernel::ValueList& values)
{
    bool on = false;
    kernel::toBool(values.at(0), on);
    return on;
}

/// Of three parts 0 to 1; those beyond are brought to the nearest.
inline QColor colour(const kernel::ValueList& values)
{
    const auto part = [&](std::size_t i) { return std::clamp(number(values, i), 0.0, 1.0); };
    return QColor::fromRgbF(part(0), part(1), part(2));
}

}  // namespace ui
