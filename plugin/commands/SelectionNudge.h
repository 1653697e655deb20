#pragma once

#include <maya/MObject.h>

/// Changes the host's selection and puts it back at once, so that every view draws anew.
void nudgeSelection(const MObject& node);
