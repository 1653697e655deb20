#pragma once

#include <cstdint>

#include <maya/MApiNamespace.h>

#define MAYA_API_VERSION 20190000
#define MAYA_APP_VERSION 2019

OPENMAYA_MAJOR_NAMESPACE_OPEN

typedef std::int64_t MInt64;
typedef std::uint64_t MUint64;

/// Names a registered callback; opaque, 0 is none.
typedef MInt64 MCallbackId;

OPENMAYA_MAJOR_NAMESPACE_CLOSE
