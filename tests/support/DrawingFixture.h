#pragma once

#include "model/FrameNumber.h"
#include "support/Describe.h"
#include "support/Drawings.h"
#include "support/PluginFixture.h"

#include <maya/MAnimControl.h>

/// A drawing of its own, in a fresh host.
class DrawingFixture : public PluginFixture {
protected:
    /// Goes to a time and shows the drawing there, as the host's events and views do.
    void goTo(int frameNumber)
    {
        MAnimControl::setCurrentTime(timeOfFrame(frameNumber));
        drawing.updateCurrentFrames(frameNumber, false);
    }

    /// Adds a layer with a differently marked picture at each number.
    int addLayer(const QString& camera, const QString& name, std::initializer_list<int> frameNumbers)
    {
        return drawing.insertLayer(camera, -1, drawings::layer(name, frameNumbers));
    }

    LayerManager drawing;
};
