#pragma once

#include "app/panels/ValueField.h"

#include <vector>

namespace app {

/// A number of a node that no attribute holds but that follows from some; setting it sets one of them.
struct DerivedNumber {
    double (*read)(const kernel::Node& node);
    const char* attribute;  ///< the one that is set
    double (*solve)(const kernel::Node& node, double wanted);
};

/// A row of the attribute panel: an attribute, or a number that follows from several.
struct PanelRow {
    const char* attribute;  ///< null for a derived number
    const char* label;      ///< null for the attribute's nice name
    SliderRange range = {};
    const DerivedNumber* derived = nullptr;
};

struct PanelSection {
    const char* title;
    bool isFolded;
    std::vector<PanelRow> rows;
};

/// What one sets up a camera with, in the order in which it is shown.
const std::vector<PanelSection>& cameraSections();

}  // namespace app
