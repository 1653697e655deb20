#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <vector>

/// What every target defines: one reader of files that may come from anywhere.

/// Reads the bytes as such a file and uses what came of them. Ends the process when something is wrong; returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

/// Small files as our own writer makes them, to start from.
std::vector<QByteArray> seeds();
