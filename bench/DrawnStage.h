#pragma once

#include "Figure.h"
#include "NodeStage.h"

#include "model/FrameNumber.h"
#include "model/PixelBudget.h"
#include "settings/Preferences.h"

#include <maya/MAnimControl.h>

#include <memory>

const char kCamera[] = "persp";

/// A scene with as much drawn in it as an animator draws over: 20 layers, and three ghosts on either side of the
/// active one. Its pictures stay unpacked.
class DrawnStage : public NodeStage {
public:
    static constexpr int kTimes[] = {4, 5};  ///< every layer shows another key at either

    DrawnStage()
    {
        PixelBudget::instance().setLimit(qint64(4) << 30);
        host().run("setAttr perspShape.filmFit 1");  // the canvas is as wide as the view
        showGhosts();
        fill();
    }

    void goTo(int frameNumber)
    {
        MAnimControl::setCurrentTime(timeOfFrame(frameNumber));
        drawing().updateCurrentFrames(frameNumber, false);
        drawing().composite(kCamera);
    }

private:
    static void showGhosts()
    {
        Preferences& preferences = Preferences::instance();
        preferences.setGhostPrev(true);
        preferences.setGhostNext(true);
        preferences.setGhostPrevCount(3);
        preferences.setGhostNextCount(3);
    }

    // All but the active layer are keyed at 1 and 5 only.
    void fill()
    {
        constexpr int kLayers = 20;
        constexpr int kActive = 10;
        for (int i = 0; i < kLayers; ++i) {
            auto layer = std::make_unique<Layer>();
            for (int key = 1; key <= 8; key += i == kActive ? 1 : 4) {
                layer->insertFrame(keyedFrame(i, key));
            }
            drawing().insertLayer(kCamera, -1, std::move(layer));
        }
        drawing().setActiveLayer(kCamera, kActive, true);
    }

    // Every other layer has the format that pictures have when they are read from a file.
    static std::unique_ptr<Frame> keyedFrame(int layerIndex, int key)
    {
        const QImage image = Figure(unsigned(100 * layerIndex + key)).drawn();
        auto frame = std::make_unique<Frame>(timeOfFrame(key));
        frame->setImage(layerIndex % 2 == 1 ? image.convertToFormat(QImage::Format_ARGB32) : image);
        return frame;
    }
};
