#include "kernel/ImageSequence.h"

#include "kernel/Session.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <filesystem>
#include <optional>

namespace kernel {

namespace {

constexpr double kTolerance = 1e-6;  // times that are steps added up lie a little beside whole numbers

/// Where in a path the number stands.
struct NumberPlace {
    std::size_t start;
    std::size_t size;
};

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::optional<NumberPlace> numberPlace(const std::string& path)
{
    const std::size_t name = path.rfind('/') + 1;
    const std::size_t dot = path.rfind('.');
    const std::size_t stemEnd = dot == std::string::npos || dot <= name ? path.size() : dot;
    const auto isMark = [&path](std::size_t i) { return isDigit(path[i]) || path[i] == '#'; };
    std::size_t end = stemEnd;
    while (end > name && !isMark(end - 1))
        --end;
    std::size_t start = end;
    while (start > name && isMark(start - 1) && (path[start - 1] == '#') == (path[end - 1] == '#'))
        --start;
    return end > start ? std::optional<NumberPlace>({start, end - start}) : std::nullopt;
}

/// Before the offset: the time's own, or what an animated frame extension says.
double frameNumber(const Node& imagePlane, double time)
{
    const AttributePtr extension = imagePlane.attribute("frameExtension");
    if (!imagePlane.isAnimated(*extension))
        return std::floor(time + kTolerance);
    return std::get<double>(imagePlane.valueAt(*extension, {time, Session::current().scene.timeUnit()}));
}

std::string padded(int number, std::size_t width)
{
    const std::string digits = std::to_string(std::abs(static_cast<long long>(number)));
    const std::size_t zeros = width - std::min(width, digits.size());
    return (number < 0 ? "-" : "") + std::string(zeros, '0') + digits;
}

}  // namespace

std::string sequenceFile(const std::string& path, int number)
{
    const auto place = numberPlace(path);
    std::string file = path;
    return place ? file.replace(place->start, place->size, padded(number, place->size)) : path;
}

bool isOfSequence(const std::string& path)
{
    const auto place = numberPlace(path);
    double number = 0;
    if (!place || !parseDouble(path.substr(place->start, place->size), number) || number >= INT_MAX)
        return false;
    const auto exists = [&path](int neighbour) {
        std::error_code error;
        return std::filesystem::is_regular_file(sequenceFile(path, neighbour), error);
    };
    return exists(int(number) + 1) || (number > 0 && exists(int(number) - 1));
}

std::string shownImage(const Node& imagePlane, double time)
{
    const std::string path = imagePlane.text("imageName");
    if (path.empty() || imagePlane.number("useFrameExtension") == 0)
        return path;
    const double number = frameNumber(imagePlane, time) + imagePlane.number("frameOffset");
    return sequenceFile(path, int(std::clamp(number, double(-INT_MAX), double(INT_MAX))));
}

}  // namespace kernel
