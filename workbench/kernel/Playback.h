#pragma once

#include <string>

namespace kernel {

class Session;

/// Runs the current time through the playback range. The condition `playingBack` holds from start to stop. Whoever has
/// a clock calls advance() once a frame; nothing here waits.
class Playback {
public:
    enum class Loop { Once, Continuous, Oscillate };
    static constexpr double kLeastStep = 1e-3;
    struct Options {
        double by = 1;     ///< from one frame shown to the next, in the current unit; kLeastStep or more
        double speed = 1;  ///< times the frame rate; 0: every frame, as fast as they can be shown
        double maxSpeed = 0;
        Loop loop = Loop::Continuous;
        std::string view = "active";
    };
    Options options;

    explicit Playback(Session& session) : m_session(session) {}

    bool isPlaying() const;
    bool isForward() const { return m_forward; }
    /// The way playback goes, or will go when it starts.
    void setForward(bool forward) { m_forward = forward; }
    /// From the current time, or from the range's beginning when there is nothing left ahead of it.
    void start();
    void stop();
    /// To the next frame. At the end of the range playback stops, begins anew or turns round.
    void advance();
    /// From the beginning of the range to its end, every frame in turn, unless somebody stops it on the way.
    void runThrough();
    /// How long each frame is to be shown, in milliseconds; an hour at most.
    double frameDuration() const;

private:
    double beginning() const;
    double step() const { return m_forward ? options.by : -options.by; }
    bool isInRange(double time) const;
    void goTo(double time);

    Session& m_session;
    bool m_forward = true;
};

}  // namespace kernel
