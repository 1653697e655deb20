#include "model/Layer.h"

#include "model/FrameNumber.h"
#include "model/Id.h"

#include <maya/MAnimControl.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <set>

Layer::Layer() : m_id(nextId()), m_name(QString("New Layer")) {}

void Layer::setVisible(bool visible)
{
    m_dirty = m_dirty || visible != m_visible;
    m_visible = visible;
}

void Layer::setOpacity(float opacity)
{
    const float clamped = opacity > 0.0f ? std::min(opacity, 1.0f) : 0.0f;  // no number at all is nothing too
    m_dirty = m_dirty || clamped != m_opacity;
    m_opacity = clamped;
}

Frame* Layer::frameAt(int index) const
{
    return index >= 0 && index < frameCount() ? m_frames[static_cast<size_t>(index)].get() : nullptr;
}

Frame* Layer::frameNumbered(int frameNumber) const
{
    const auto found = numbered(frameNumber);
    return found == m_frames.end() ? nullptr : found->get();
}

Frame* Layer::frameAtTime(const MTime& time) const
{
    const auto isEarlier = [](const std::unique_ptr<Frame>& frame, const MTime& other) {
        return frame->time() < other;
    };
    const auto first =
        m_sorted ? std::lower_bound(m_frames.begin(), m_frames.end(), time, isEarlier) : m_frames.begin();
    const auto found =
        std::find_if(first, m_frames.end(), [&](const std::unique_ptr<Frame>& frame) { return frame->time() == time; });
    return found == m_frames.end() ? nullptr : found->get();
}

bool Layer::hasFrameAtCurrentTime() const
{
    return (m_state == kLayerStatic && m_current != -1) || hasFrame(currentFrameNumber());
}

int Layer::addFrame(const MTime& time)
{
    return insertFrame(std::unique_ptr<Frame>(new Frame(time)));
}

int Layer::addFrameAtCurrentTime()
{
    return addFrame(MAnimControl::currentTime());
}

int Layer::insertFrame(std::unique_ptr<Frame> frame)
{
    return frame && !hasFrame(frame->frameNumber()) ? restoreFrame(std::move(frame)) : -1;
}

int Layer::restoreFrame(std::unique_ptr<Frame> frame)
{
    if (!frame) {
        return -1;
    }
    auto place = firstAfter(frame->frameNumber());
    const auto isBefore = [&](const std::unique_ptr<Frame>& other) { return frame->time() <= other->time(); };
    while (place != m_frames.begin() && isBefore(*(place - 1))) {
        --place;
    }
    if (place != m_frames.end() && (*place)->time() == frame->time()) {
        return -1;
    }
    const int index = static_cast<int>(place - m_frames.begin());
    m_frames.insert(place, std::move(frame));
    updateCurrentFrame(currentFrameNumber());
    return index;
}

std::unique_ptr<Frame> Layer::copyFrame(const MTime& time) const
{
    const Frame* frame = frameNumbered(frameNumberOf(time));
    return frame ? std::unique_ptr<Frame>(new Frame(*frame)) : nullptr;
}

std::unique_ptr<Frame> Layer::takeFrame(const MTime& time)
{
    return takeNumbered(frameNumberOf(time));
}

std::unique_ptr<Frame> Layer::takeFrameAtCurrentTime()
{
    return takeNumbered(currentFrameNumber());
}

// The frame shown is then found for the taken frame's time and not the scene's: callers take frames at the time they
// look at.
std::unique_ptr<Frame> Layer::takeNumbered(int frameNumber)
{
    const auto place = m_frames.begin() + (numbered(frameNumber) - m_frames.cbegin());
    if (place == m_frames.end()) {
        return nullptr;
    }
    std::unique_ptr<Frame> frame = std::move(*place);
    m_frames.erase(place);
    updateCurrentFrame(frameNumber);
    return frame;
}

void Layer::clearFrames()
{
    m_frames.clear();
    m_sorted = true;
    m_current = -1;
    m_dirty = true;
}

Frames Layer::takeFrames(const std::function<bool(const Frame&)>& isTaken)
{
    const auto isKept = [&](const std::unique_ptr<Frame>& frame) { return !isTaken(*frame); };
    const auto firstTaken = std::stable_partition(m_frames.begin(), m_frames.end(), isKept);
    Frames taken(std::make_move_iterator(firstTaken), std::make_move_iterator(m_frames.end()));
    m_frames.erase(firstTaken, m_frames.end());
    updateCurrentFrame(currentFrameNumber());
    return taken;
}

void Layer::restoreFrames(Frames frames)
{
    const auto isEarlier = [](const std::unique_ptr<Frame>& a, const std::unique_ptr<Frame>& b) {
        return a->time() < b->time();
    };
    const auto isSimultaneous = [](const std::unique_ptr<Frame>& a, const std::unique_ptr<Frame>& b) {
        return a->time() == b->time();
    };
    m_frames.insert(m_frames.end(), std::make_move_iterator(frames.begin()), std::make_move_iterator(frames.end()));
    // Of two at one time the one that was here comes first, and stays.
    std::stable_sort(m_frames.begin(), m_frames.end(), isEarlier);
    m_frames.erase(std::unique(m_frames.begin(), m_frames.end(), isSimultaneous), m_frames.end());
    m_sorted = true;
    updateCurrentFrame(currentFrameNumber());
}

QList<int> Layer::frameNumbers() const
{
    QList<int> numbers;
    for (const auto& frame : m_frames) {
        numbers.append(frame->frameNumber());
    }
    return numbers;
}

int Layer::hiddenFrameCount() const
{
    const QList<int> numbers = frameNumbers();
    return numbers.size() - static_cast<int>(std::set<int>(numbers.begin(), numbers.end()).size());
}

Frame* Layer::nextFrame(bool wrap) const
{
    const auto next = firstAfter(currentFrameNumber());
    if (next != m_frames.end()) {
        return next->get();
    }
    return wrap ? frameAt(0) : nullptr;
}

Frame* Layer::previousFrame(bool wrap) const
{
    const int now = currentFrameNumber();
    const auto previous = std::find_if(m_frames.rbegin(), m_frames.rend(),
                                       [now](const std::unique_ptr<Frame>& f) { return f->frameNumber() < now; });
    if (previous != m_frames.rend()) {
        return previous->get();
    }
    return wrap ? frameAt(frameCount() - 1) : nullptr;
}

void Layer::retime(const QList<int>& numbers)
{
    const int count = std::min(numbers.size(), frameCount());
    for (int i = 0; i < count; ++i) {
        m_frames[static_cast<size_t>(i)]->setFrameNumber(numbers[i]);
    }
    m_sorted = std::is_sorted(m_frames.begin(), m_frames.end(),
                              [](const std::unique_ptr<Frame>& a, const std::unique_ptr<Frame>& b) {
                                  return a->frameNumber() < b->frameNumber();
                              });
}

void Layer::updateCurrentFrame(int frameNumber)
{
    int index = static_cast<int>(firstAfter(frameNumber) - m_frames.begin()) - 1;
    while (isHiddenFrame(index)) {
        --index;  // what is shown is what is found by its number, and drawn on
    }
    m_dirty = m_dirty || index != m_current;
    m_current = index;
}

void Layer::setCurrentImage(const QImage& image)
{
    if (Frame* frame = currentFrame()) {
        frame->setImage(image);
        m_dirty = true;
    }
}

const QImage& Layer::imageAtOffset(int offset)
{
    static const QImage kNoImage;
    m_dirty = false;
    Frame* frame = shownFrame(offset);
    return frame ? frame->image() : kNoImage;
}

Picture Layer::pictureAtOffset(int offset)
{
    imageAtOffset(offset);
    const Frame* frame = shownFrame(offset);
    return frame ? frame->picture() : Picture();
}

quint64 Layer::pictureIdAtOffset(int offset) const
{
    const Frame* frame = shownFrame(offset);
    return frame ? frame->picture().id() : 0;
}

bool Layer::isHiddenFrame(int index) const
{
    const Frame* frame = frameAt(index);
    const Frame* before = frameAt(index - 1);
    return frame && before && frame->frameNumber() == before->frameNumber();
}

Frame* Layer::shownFrame(int offset) const
{
    const int step = offset < 0 ? -1 : 1;
    int index = m_current;
    for (int left = std::abs(offset); left > 0; --left) {
        do {
            index += step;
        } while (isHiddenFrame(index));
    }
    return m_visible ? frameAt(index) : nullptr;
}

Frames::const_iterator Layer::firstAfter(int frameNumber) const
{
    const auto isAfter = [](int number, const std::unique_ptr<Frame>& frame) { return number < frame->frameNumber(); };
    if (m_sorted) {
        return std::upper_bound(m_frames.begin(), m_frames.end(), frameNumber, isAfter);
    }
    return std::find_if(m_frames.begin(), m_frames.end(),
                        [&](const std::unique_ptr<Frame>& frame) { return isAfter(frameNumber, frame); });
}

Frames::const_iterator Layer::numbered(int frameNumber) const
{
    if (m_sorted) {
        const auto first = std::lower_bound(
            m_frames.begin(), m_frames.end(), frameNumber,
            [](const std::unique_ptr<Frame>& frame, int number) { return frame->frameNumber() < number; });
        return first != m_frames.end() && (*first)->frameNumber() == frameNumber ? first : m_frames.end();
    }
    return std::find_if(m_frames.begin(), m_frames.end(), [frameNumber](const std::unique_ptr<Frame>& frame) {
        return frame->frameNumber() == frameNumber;
    });
}
