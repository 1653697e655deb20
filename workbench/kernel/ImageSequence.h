#pragma once

#include "kernel/Node.h"

#include <string>

namespace kernel {

/// The file of one number of a sequence. The number is the last run of digits, or of number signs, in the file's name
/// that stands before its extension; it keeps its width, which larger numbers exceed. The path itself when there is
/// none.
///
///     plate.0001.png, plate.####.png -> plate.0012.png        plate_7.jpg, plate_#.jpg -> plate_12.jpg
std::string sequenceFile(const std::string& path, int number);

/// Whether the file has a number in its name and another with the next or previous one lies beside it.
bool isOfSequence(const std::string& path);

/// The file that an image plane shows at a time of the scene's unit; empty when it names none.
std::string shownImage(const Node& imagePlane, double time);

}  // namespace kernel
