#pragma once

#include "model/LayerManager.h"
#include "settings/PenState.h"
#include "settings/Preferences.h"
#include "support/HostFixture.h"

/// A fresh host, and everything of the plug-in that is process-wide as it is when the module has just been loaded.
class PluginFixture : public HostFixture {
protected:
    PluginFixture() { reset(); }
    ~PluginFixture() override { reset(); }

private:
    static void reset()
    {
        Preferences::instance() = Preferences();
        penState::reset();
        LayerManager::setLayerListView(nullptr);
        LayerManager::setDrawingViews(nullptr);
    }
};
