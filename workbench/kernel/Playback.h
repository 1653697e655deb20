#pragma once

#include <string>

namespace kernel {

class Session;

/// Runs the current time through the playback range. The condition `playingBack` holds from start to stop. Whoever has
/// a clock calls advance() when a frame is due; nothing here waits.
class Playback {
public:
    enum class Loop { Once, Continuous, Oscillate };
    static constexpr double kLeastStep = 1e-3;
    struct Options {
        double by = 1;        ///< from one frame to the next, in the current unit; kLeastStep or more
        double speed = 1;     ///< times the frame rate, and late frames are dropped; 0: every frame is shown
        double maxSpeed = 0;  ///< times the frame rate, while every frame is shown; 0: as fast as they can be
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
    /// Shows the frame so many steps on. Those passed on the way are dropped, yet counted: at the end of the range,
    /// also within these steps, playback stops on the last frame, begins anew or turns round.
    void advance(int steps = 1);
    /// From the beginning of the range to its end, every frame in turn, unless somebody stops it on the way.
    void runThrough();
    bool showsEveryFrame() const { return options.speed <= 0; }
    /// How long each frame is to be shown, in milliseconds; an hour at most, 0 for as short as can be.
    double frameDuration() const;

private:
    struct Position {
        double time;
        bool forward;
    };
    bool step(Position& position) const;
    double stride(bool forward) const { return forward ? options.by : -options.by; }
    double beginning(bool forward) const;
    bool isInRange(double time) const;
    void goTo(double time);

    Session& m_session;
    bool m_forward = true;
};

}  // namespace kernel
