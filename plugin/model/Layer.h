#pragma once

#include "model/Frame.h"
#include "settings/FrameSpan.h"

#include <QList>
#include <QString>

#include <vector>

/// What the drawing tool may do on a layer. Every layer holds: it shows its last frame at or before the time.
enum LayerState {
    kLayerAnim = 0,    ///< drawn on at keyed times; drawing elsewhere keys a frame
    kLayerStatic = 1,  ///< the held frame is drawn on
    kLayerLocked = 2   ///< nothing may be drawn or keyed
};
constexpr int kLayerStateCount = 3;

using Frames = std::vector<std::unique_ptr<Frame>>;
using Times = std::vector<MTime>;  ///< ascending

/// A stack entry of one camera: frames sorted by frame number, no two with the same one when they are inserted.
/// Frame pointers handed out are loans until the next insertion or removal.
class Layer {
public:
    Layer();
    Layer(const Layer&) = delete;
    Layer& operator=(const Layer&) = delete;

    quint64 id() const { return m_id; }  ///< unique in the process; never saved

    const QString& name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }
    bool isActive() const { return m_active; }
    void setActive(bool active) { m_active = active; }
    bool isVisible() const { return m_visible; }
    void setVisible(bool visible);
    float opacity() const { return m_opacity; }
    void setOpacity(float opacity);  ///< clamped to 0..1
    int state() const { return m_state; }
    void setState(int state) { m_state = state; }

    /// Something that the layer shows has changed since it was last read for display.
    bool isDirty() const { return m_dirty; }
    void setDirty() { m_dirty = true; }

    int frameCount() const { return static_cast<int>(m_frames.size()); }
    Frame* frameAt(int index) const;              ///< null outside the list
    Frame* frameNumbered(int frameNumber) const;  ///< keyed exactly there, or null
    bool hasFrame(int frameNumber) const { return frameNumbered(frameNumber) != nullptr; }
    /// The tool can draw at the current time: a frame is keyed exactly there, or the layer is static and shows one.
    bool hasFrameAtCurrentTime() const;

    int addFrame(const MTime& time);  ///< a blank frame; its index, or -1 when the time is keyed already
    int addFrameAtCurrentTime();
    /// Always consumes the frame. -1 for null and for a frame number that is keyed: no frame is ever replaced.
    int insertFrame(std::unique_ptr<Frame> frame);
    /// The same for a frame as it was saved: it is refused only at the very time of another, so that frames hidden in
    /// this time unit come back too, see hiddenFrameCount().
    int restoreFrame(std::unique_ptr<Frame> frame);
    std::unique_ptr<Frame> copyFrame(const MTime& time) const;  ///< packed; null when none is keyed there
    std::unique_ptr<Frame> takeFrame(const MTime& time);        ///< null when none is keyed there
    std::unique_ptr<Frame> takeFrameAtCurrentTime();
    void clearFrames();

    // Many frames at once, in their order. Only the part of the list that they lie in is looked at, and that once.
    // After a change the frame shown is that of the scene's time.
    std::vector<const Frame*> framesIn(const FrameSpan& span) const;  ///< those that are found by their numbers
    std::vector<const Frame*> framesNumbered(const QList<int>& numbers) const;  ///< likewise; numbers: ascending
    Frames takeFramesIn(const FrameSpan& span);                                 ///< hidden ones too
    Frames takeFramesNumbered(const QList<int>& numbers);                       ///< likewise; numbers: ascending
    Frames takeFramesAt(const Times& times);                                    ///< at exactly these times
    void restoreFrames(Frames frames);  ///< each as by restoreFrame(), which says what is refused; in any order

    QList<int> frameNumbers() const;
    /// How many frames have the number of an earlier one. In a slower time unit several frames come to have one: they
    /// all stay, but the first is the one that is found by its number and shown.
    int hiddenFrameCount() const;
    Frame* nextFrame(bool wrap) const;      ///< the first after the current time; null when there is none
    Frame* previousFrame(bool wrap) const;  ///< the last before the current time; null when there is none
    /// Gives frame i the number numbers[i]. Neither sorts nor marks dirty: the caller supplies ascending numbers and
    /// refreshes afterwards.
    void retime(const QList<int>& numbers);

    /// Sets which frame is shown: the last at or before the frame number.
    void updateCurrentFrame(int frameNumber);
    int currentFrameIndex() const { return m_current; }  ///< -1 when nothing is shown
    Frame* currentFrame() const { return frameAt(m_current); }
    void setCurrentImage(const QImage& image);  ///< nothing happens without a current frame
    /// Reads the layer for display, which consumes its dirty mark: the image of the frame that many keys from the
    /// current one. A null image when there is none or the layer is hidden.
    const QImage& imageAtOffset(int offset);
    Picture pictureAtOffset(int offset);  ///< the same as a picture, unpacked; blank when there is none
    /// What pictureAtOffset would read, by its id; nothing is read. 0 when there is none.
    quint64 pictureIdAtOffset(int offset) const;

private:
    using Place = Frames::const_iterator;
    struct Part {
        Place first;
        Place end;
    };

    bool isHiddenFrame(int index) const;  // behind one of the same number
    Frame* shownFrame(int offset) const;  // null when there is none or the layer is hidden
    Place firstAfter(int frameNumber) const;
    Place numbered(int frameNumber) const;
    // What lies between two of them, both included. They are not looked for in a list out of order: it is all of it.
    Part partNumbered(int first, int last) const;
    Part partAt(const MTime& first, const MTime& last) const;
    template <class IsWanted>
    std::vector<const Frame*> visibleFrames(const Part& part, IsWanted isWanted) const;
    template <class IsTaken>
    Frames takeFrom(const Part& part, IsTaken isTaken);
    std::unique_ptr<Frame> takeNumbered(int frameNumber);
    void merge(Frames frames);

    const quint64 m_id;
    QString m_name;
    bool m_active = false;
    bool m_visible = true;
    float m_opacity = 1.0f;
    int m_state = kLayerAnim;
    Frames m_frames;
    bool m_sorted = true;  // frames are looked up by halves; retiming may leave them out of order
    int m_current = -1;
    bool m_dirty = true;
};
