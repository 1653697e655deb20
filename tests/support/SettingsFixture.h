#pragma once

#include "settings/PenState.h"
#include "settings/Preferences.h"
#include "settings/ScriptBridge.h"
#include "support/HostFixture.h"

/// A fresh host, and the settings as they are when the module has just been loaded.
class SettingsFixture : public HostFixture {
protected:
    SettingsFixture() { reset(); }
    ~SettingsFixture() override { reset(); }

private:
    static void reset()
    {
        Preferences::instance() = Preferences();
        penState::reset();
        script::drawingNodeCommandRan();
    }
};
