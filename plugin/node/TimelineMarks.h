#pragma once

/// The marks of drawn frames on the time slider, as the drawing tells them of changes. Whoever shows them installs
/// itself; without one nobody listens.
class TimelineMarks {
public:
    virtual ~TimelineMarks() = default;

    /// The scene's time changed. Gives whether the marks themselves changed and want a refresh.
    virtual bool update() = 0;
    virtual void refresh() = 0;

    static TimelineMarks* installed();
    static void install(TimelineMarks* marks);  ///< a loan; null to take it back
    static void refreshInstalled();

    /// One of our tools is in use, while which the marks may be wanted; they are refreshed when they are shown for
    /// that.
    static void setToolActive(bool active);
    static bool isToolActive();
};
