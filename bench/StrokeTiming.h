#pragma once

#include "HandPath.h"
#include "PointedStroke.h"
#include "Timing.h"

#include <cstddef>
#include <functional>
#include <vector>

/// Times samples until they are shown, in strokes in turns on two frames, so that each begins on layers and ghosts that
/// none was drawn over before.
class StrokeTiming {
public:
    struct Samples {
        std::vector<Took> ours;  // of those samples that changed the picture
        std::vector<double> bare;
    };

    /// show: what follows a sample. bare: gives the milliseconds of the bare work that is done after each.
    StrokeTiming(DrawnStage& stage, QWidget& view, std::function<void()> show, std::function<double()> bare)
        : m_stage(stage), m_view(view), m_show(std::move(show)), m_bare(std::move(bare))
    {}

    Samples measure(const Tool& tool, HandPath hand, std::size_t wanted)
    {
        m_samples = {};
        for (int turn = 0; m_samples.ours.size() < wanted; ++turn) {
            m_stage.goTo(DrawnStage::kTimes[turn % 2]);
            drawStroke(tool, hand);
        }
        return m_samples;
    }

private:
    void drawStroke(const Tool& tool, HandPath& hand)
    {
        constexpr int kSamplesOfAStroke = 100;
        PointedStroke stroke(m_stage, m_view, tool, PointedStroke::restingAt(m_view, hand.next()));
        stroke.start();
        stroke.awaitPress();
        take([] {});  // the press
        for (int i = 1; i < kSamplesOfAStroke; ++i) {
            const QPoint at = hand.next();
            take([&] { stroke.sample(at); });
        }
        stroke.commit();
    }

    template <class Work>
    void take(Work sample)
    {
        const quint64 before = m_stage.drawing().compositeGeneration(kCamera);
        const Took time = tookOf([&] {
            sample();
            m_show();
        });
        if (m_stage.drawing().compositeGeneration(kCamera) != before) {
            m_samples.ours.push_back(time);
        }
        m_samples.bare.push_back(m_bare());
    }

    DrawnStage& m_stage;
    QWidget& m_view;
    const std::function<void()> m_show;
    const std::function<double()> m_bare;
    Samples m_samples;
};
