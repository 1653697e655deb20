#pragma once

#include "model/LayerManager.h"
#include "support/SettingsFixture.h"

/// The same, and nobody listening to drawings.
class PluginFixture : public SettingsFixture {
protected:
    PluginFixture() { reset(); }
    ~PluginFixture() override { reset(); }

private:
    static void reset()
    {
        LayerManager::setLayerListView(nullptr);
        LayerManager::setDrawingViews(nullptr);
    }
};
