#pragma once

#include "settings/Preferences.h"

#include <maya/MArgDatabase.h>
#include <maya/MStatus.h>

// The util command's edits of the ghost settings. Whatever shows them, and the ghosts themselves, follow.

/// The settings of the ghosts before or after the current frame.
struct GhostSide {
    bool (Preferences::*isShown)() const;
    void (Preferences::*setShown)(bool);
    int (Preferences::*count)() const;
    void (Preferences::*setCount)(int);
    const QColor& (Preferences::*colour)() const;
    void (Preferences::*setColour)(const QColor&);
};

constexpr GhostSide kPreviousGhosts = {
    &Preferences::ghostPrev,         &Preferences::setGhostPrev,           &Preferences::ghostPrevCount,
    &Preferences::setGhostPrevCount, &Preferences::ghostColorOverridePrev, &Preferences::setGhostColorOverridePrev};
constexpr GhostSide kNextGhosts = {
    &Preferences::ghostNext,         &Preferences::setGhostNext,           &Preferences::ghostNextCount,
    &Preferences::setGhostNextCount, &Preferences::ghostColorOverrideNext, &Preferences::setGhostColorOverrideNext};

MStatus showGhosts(const GhostSide& side, int show);      ///< negative to toggle, 0 for off
MStatus setGhostCount(const GhostSide& side, int count);  ///< held within 1..9
MStatus setGhostColour(const GhostSide& side, const MArgDatabase& args, const char* flag);
MStatus setGhostColourOverride(bool on);
