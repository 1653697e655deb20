#include "model/Layer.h"

#include "model/FrameNumber.h"
#include "model/Id.h"

#include <maya/MAnimControl.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <set>

namespace {

bool isEarlier(const std::unique_ptr<Frame>& a, const std::unique_ptr<Frame>& b)
{
    return a->time() < b->time();
}

bool isNotEarlier(const std::unique_ptr<Frame>& a, const std::unique_ptr<Frame>& b)
{
    return !isEarlier(a, b);
}

bool isSimultaneous(const std::unique_ptr<Frame>& a, const std::unique_ptr<Frame>& b)
{
    return a->time() == b->time();
}

/// Looks values up in an ascending list; whoever asks for all of them in their order goes along the list.
template <class List>
class Lookup {
public:
    explicit Lookup(const List& list) : m_begin(list.begin()), m_end(list.end()), m_next(list.begin()) {}

    template <class Value>
    bool contains(const Value& value)
    {
        if (!isNext(value)) {
            m_next = std::lower_bound(m_begin, m_end, value);
            if (!isNext(value)) {
                return false;
            }
        }
        ++m_next;
        return true;
    }

private:
    template <class Value>
    bool isNext(const Value& value) const
    {
        return m_next != m_end && *m_next == value;
    }

    const typename List::const_iterator m_begin;
    const typename List::const_iterator m_end;
    typename List::const_iterator m_next;
};

}  // namespace

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

template <class IsWanted>
std::vector<const Frame*> Layer::visibleFrames(const Part& part, IsWanted isWanted) const
{
    std::vector<const Frame*> frames;
    int previous = 0;
    for (Place place = part.first; place != part.end; ++place) {
        const int frameNumber = (*place)->frameNumber();
        const bool isHidden = place != part.first && frameNumber == previous;
        if (!isHidden && isWanted(frameNumber)) {
            frames.push_back(place->get());
        }
        previous = frameNumber;
    }
    return frames;
}

std::vector<const Frame*> Layer::framesIn(const FrameSpan& span) const
{
    if (span.first >= span.end) {
        return {};
    }
    return visibleFrames(partNumbered(span.first, span.end - 1),
                         [&span](int frameNumber) { return contains(span, frameNumber); });
}

std::vector<const Frame*> Layer::framesNumbered(const QList<int>& numbers) const
{
    if (numbers.isEmpty()) {
        return {};
    }
    Lookup<QList<int>> wanted(numbers);
    return visibleFrames(partNumbered(numbers.first(), numbers.last()),
                         [&wanted](int frameNumber) { return wanted.contains(frameNumber); });
}

template <class IsTaken>
Frames Layer::takeFrom(const Part& part, IsTaken isTaken)
{
    const auto first = m_frames.begin() + (part.first - m_frames.cbegin());
    const auto end = m_frames.begin() + (part.end - m_frames.cbegin());
    const auto isKept = [&isTaken](const std::unique_ptr<Frame>& frame) { return !isTaken(*frame); };
    const auto firstTaken = std::stable_partition(first, end, isKept);
    Frames taken(std::make_move_iterator(firstTaken), std::make_move_iterator(end));
    m_frames.erase(firstTaken, end);
    updateCurrentFrame(currentFrameNumber());
    return taken;
}

Frames Layer::takeFramesIn(const FrameSpan& span)
{
    if (span.first >= span.end) {
        return {};
    }
    return takeFrom(partNumbered(span.first, span.end - 1),
                    [&span](const Frame& frame) { return contains(span, frame.frameNumber()); });
}

Frames Layer::takeFramesNumbered(const QList<int>& numbers)
{
    if (numbers.isEmpty()) {
        return {};
    }
    Lookup<QList<int>> wanted(numbers);
    return takeFrom(partNumbered(numbers.first(), numbers.last()),
                    [&wanted](const Frame& frame) { return wanted.contains(frame.frameNumber()); });
}

Frames Layer::takeFramesAt(const Times& times)
{
    if (times.empty()) {
        return {};
    }
    Lookup<Times> wanted(times);
    return takeFrom(partAt(times.front(), times.back()),
                    [&wanted](const Frame& frame) { return wanted.contains(frame.time()); });
}

void Layer::restoreFrames(Frames frames)
{
    if (!m_sorted) {
        std::stable_sort(m_frames.begin(), m_frames.end(), isEarlier);
        m_sorted = true;
    }
    if (std::adjacent_find(frames.begin(), frames.end(), isNotEarlier) != frames.end()) {
        std::stable_sort(frames.begin(), frames.end(), isEarlier);
        frames.erase(std::unique(frames.begin(), frames.end(), isSimultaneous), frames.end());
    }
    if (!frames.empty()) {
        merge(std::move(frames));
    }
    updateCurrentFrame(currentFrameNumber());
}

// Both lists are in order. Of two frames at one time the one that was here stays.
void Layer::merge(Frames frames)
{
    const auto place = std::lower_bound(m_frames.begin(), m_frames.end(), frames.front(), isEarlier);
    const auto before = place - m_frames.begin();
    const auto oldCount = static_cast<Frames::difference_type>(m_frames.size());
    const bool fitsBetween = place == m_frames.end() || isEarlier(frames.back(), *place);
    m_frames.insert(fitsBetween ? place : m_frames.end(), std::make_move_iterator(frames.begin()),
                    std::make_move_iterator(frames.end()));
    if (!fitsBetween) {
        const auto first = m_frames.begin() + before;
        std::inplace_merge(first, m_frames.begin() + oldCount, m_frames.end(), isEarlier);
        m_frames.erase(std::unique(first, m_frames.end(), isSimultaneous), m_frames.end());
    }
}

QList<int> Layer::frameNumbers() const
{
    QList<int> numbers;
    numbers.reserve(frameCount());
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
    const Part upToNow = partNumbered(std::numeric_limits<int>::min(), now);
    const auto previous = std::find_if(std::make_reverse_iterator(upToNow.end), m_frames.crend(),
                                       [now](const std::unique_ptr<Frame>& f) { return f->frameNumber() < now; });
    if (previous != m_frames.crend()) {
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
    m_sorted = std::is_sorted(m_frames.begin(), m_frames.end(), isEarlier);
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

Layer::Place Layer::firstAfter(int frameNumber) const
{
    const auto isAfter = [](int number, const std::unique_ptr<Frame>& frame) { return number < frame->frameNumber(); };
    if (m_sorted) {
        return std::upper_bound(m_frames.begin(), m_frames.end(), frameNumber, isAfter);
    }
    return std::find_if(m_frames.begin(), m_frames.end(),
                        [&](const std::unique_ptr<Frame>& frame) { return isAfter(frameNumber, frame); });
}

Layer::Place Layer::numbered(int frameNumber) const
{
    const Part part = partNumbered(frameNumber, frameNumber);
    const auto isIt = [frameNumber](const std::unique_ptr<Frame>& f) { return f->frameNumber() == frameNumber; };
    const Place found = std::find_if(part.first, part.end, isIt);
    return found == part.end ? m_frames.end() : found;
}

Layer::Part Layer::partNumbered(int first, int last) const
{
    if (!m_sorted) {
        return {m_frames.begin(), m_frames.end()};
    }
    const auto isBefore = [](const std::unique_ptr<Frame>& frame, int number) { return frame->frameNumber() < number; };
    return {std::lower_bound(m_frames.begin(), m_frames.end(), first, isBefore), firstAfter(last)};
}

Layer::Part Layer::partAt(const MTime& first, const MTime& last) const
{
    if (!m_sorted) {
        return {m_frames.begin(), m_frames.end()};
    }
    const auto isBefore = [](const std::unique_ptr<Frame>& frame, const MTime& time) { return frame->time() < time; };
    const auto isAfter = [](const MTime& time, const std::unique_ptr<Frame>& frame) { return time < frame->time(); };
    return {std::lower_bound(m_frames.begin(), m_frames.end(), first, isBefore),
            std::upper_bound(m_frames.begin(), m_frames.end(), last, isAfter)};
}
