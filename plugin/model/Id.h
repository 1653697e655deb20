#pragma once

#include <QtGlobal>

quint64 nextId();  ///< unique in the process; never 0
