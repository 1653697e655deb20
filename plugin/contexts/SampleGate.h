#pragma once

#include "contexts/PointerSource.h"

#include <QRect>

#include <deque>
#include <mutex>

/// What the main thread and the worker of a stroke share; the worker's samples pass through it.
class SampleGate {
public:
    /// view: see moveView.
    SampleGate(const QRect& view, const SamplingOptions& options) : m_view(view), m_options(options) {}

    /// Once this has returned, no more samples pass.
    void close();
    /// Where the view is from now on, screen pixels; nothing is sampled while it is empty.
    void moveView(const QRect& view);
    /// What is sampled from now on; the samples of before are under way.
    void setOptions(const SamplingOptions& options);
    /// When the sample that arrives next was taken; now when it did not pass here. To be asked once for each.
    SampleTime takeTime();

    /// Calls change() while no sample is being taken: those of before are under way.
    template <typename Change>
    void betweenSamples(Change change)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        change();
    }
    /// Calls pass(view, options) while the gate is open and stays so. pass: may call noteTime, once for each sample it
    /// sends.
    template <typename Pass>
    void ifOpen(Pass pass)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_open && m_view.isValid()) {
            pass(m_view, m_options);
        }
    }
    void noteTime(SampleTime time) { m_times.push_back(time); }

private:
    std::mutex m_mutex;
    bool m_open = true;
    QRect m_view;
    SamplingOptions m_options;
    std::deque<SampleTime> m_times;  // of the samples under way
};
