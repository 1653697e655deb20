#pragma once

#include "api/Handles.h"
#include "kernel/Value.h"

#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MStringArray.h>
#include <maya/MVector.h>

namespace api {

// Reading a script value as one type of the API. A value of another type gives kFailure and leaves the output; an int
// is good enough for a double, and so for arrays of them.

inline MStatus getExactly(const kernel::Value& value, int& out)
{
    const auto* number = std::get_if<int>(&value);
    if (!number)
        return MStatus::kFailure;
    out = *number;
    return MStatus::kSuccess;
}

inline MStatus getExactly(const kernel::Value& value, double& out)
{
    if (const auto* number = std::get_if<double>(&value))
        out = *number;
    else if (const auto* whole = std::get_if<int>(&value))
        out = *whole;
    else
        return MStatus::kFailure;
    return MStatus::kSuccess;
}

inline MStatus getExactly(const kernel::Value& value, MString& out)
{
    const auto* text = std::get_if<std::string>(&value);
    if (!text)
        return MStatus::kFailure;
    out = toHost(*text);
    return MStatus::kSuccess;
}

inline MStatus getExactly(const kernel::Value& value, MVector& out)
{
    const auto* vector = std::get_if<kernel::Vector3>(&value);
    if (!vector)
        return MStatus::kFailure;
    out = MVector(vector->x, vector->y, vector->z);
    return MStatus::kSuccess;
}

inline MStatus getExactly(const kernel::Value& value, MIntArray& out)
{
    const auto* numbers = std::get_if<kernel::IntArray>(&value);
    if (!numbers)
        return MStatus::kFailure;
    out.clear();
    for (const int number : *numbers)
        out.append(number);
    return MStatus::kSuccess;
}

inline MStatus getExactly(const kernel::Value& value, MDoubleArray& out)
{
    const auto* numbers = std::get_if<kernel::DoubleArray>(&value);
    const auto* wholes = std::get_if<kernel::IntArray>(&value);
    if (!numbers && !wholes)
        return MStatus::kFailure;
    out.clear();
    if (numbers) {
        for (const double number : *numbers)
            out.append(number);
    } else {
        for (const int number : *wholes)
            out.append(number);
    }
    return MStatus::kSuccess;
}

inline MStatus getExactly(const kernel::Value& value, MStringArray& out)
{
    const auto* texts = std::get_if<kernel::StringArray>(&value);
    if (!texts)
        return MStatus::kFailure;
    out.clear();
    for (const std::string& text : *texts)
        out.append(toHost(text));
    return MStatus::kSuccess;
}

}  // namespace api
