#include "app/TimeSlider.h"

#include "app/panels/AttributeScript.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace app {

namespace {

constexpr int kHeight = 34;
constexpr double kLeastTickGap = 4;     // px
constexpr double kLeastNumberGap = 16;  // px between two numbers
constexpr int kShortTick = 5;           // px
constexpr int kNumberIndent = 3;        // px right of its tick
constexpr double kGrip = 6;             // px at each end of a highlighted block
constexpr int kLeastMarker = 2;         // px
constexpr int kWidestKey = 3;           // px
const QColor kBlockColour("#d65a4a");
const QColor kKeyColour("#e0705f");

const char* const kWholeEvents[] = {"timeUnitChanged", "NewSceneOpened", "SceneOpened"};

QString numberOf(double time)
{
    return QString::fromStdString(kernel::numberText(time));
}

/// When nodes and the shapes below them have keys, in ascending ticks.
std::vector<double> keysOf(const std::vector<kernel::NodePtr>& nodes)
{
    std::vector<double> ticks;
    for (const kernel::NodePtr& selected : nodes) {
        for (const kernel::NodePtr& node : withShapes(selected)) {
            for (const kernel::AttributePtr& attribute : node->animatedAttributes()) {
                for (const kernel::CurveKey& key : node->curveOf(*attribute)->curve()->keys()) {
                    ticks.push_back(key.ticks);
                }
            }
        }
    }
    std::sort(ticks.begin(), ticks.end());
    ticks.erase(std::unique(ticks.begin(), ticks.end()), ticks.end());
    return ticks;
}

}  // namespace

TimeSlider::TimeSlider(kernel::Session& session, std::function<bool(const std::string&)> run, QWidget* parent)
    : QWidget(parent), m_session(session), m_run(std::move(run))
{
    setObjectName("timeControl1");
    setMinimumWidth(120);
    setFixedHeight(kHeight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setToolTip(tr("Click or drag: current time. Shift and drag: highlight frames."));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::ClickFocus);  // the next keys are no longer a field's
    for (const char* event : kWholeEvents) {
        m_callbacks.push_back(m_session.events.add(event, [this] { update(); }));
    }
    m_callbacks.push_back(m_session.events.add("playbackRangeChanged", [this] { followRange(); }));
    m_callbacks.push_back(m_session.events.add("timeChanged", [this] { showTime(); }));
    m_keysTimer.setSingleShot(true);
    m_keysTimer.setInterval(0);
    connect(&m_keysTimer, SIGNAL(timeout()), this, SLOT(FollowKeys()));
    m_callbacks.push_back(m_session.events.add("SelectionChanged", [this] { m_keysTimer.start(); }));
}

TimeSlider::~TimeSlider()
{
    for (const unsigned id : m_callbacks) {
        m_session.events.remove(id);
    }
}

QSize TimeSlider::sizeHint() const
{
    return QSize(600, kHeight);
}

// --- keys ----------------------------------------------------------------------------------------------------------

void TimeSlider::ScheduleKeys()
{
    if (!m_session.playback.isPlaying()) {
        m_keysTimer.start();
    }
}

void TimeSlider::FollowKeys()
{
    std::vector<double> keys = keysOf(m_session.scene.selection());
    if (keys != m_keys) {
        m_keys = std::move(keys);
        update();
    }
}

// --- picture -------------------------------------------------------------------------------------------------------

void TimeSlider::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().color(QPalette::Base));
    drawBlock(painter);
    drawFrames(painter, event->rect());
    drawMarker(painter);
    drawKeys(painter);
    m_marker = markerRect();
}

void TimeSlider::drawFrames(QPainter& painter, const QRect& shown) const
{
    const TimeScale scale = this->scale();
    const QFontMetrics metrics(font());
    const int widest = std::max(metrics.horizontalAdvance(numberOf(std::floor(scale.range.first))),
                                metrics.horizontalAdvance(numberOf(std::floor(scale.range.last))));
    const int tickInterval = scale.interval(kLeastTickGap);
    const int numberInterval = scale.interval(widest + kLeastNumberGap);
    const int bottom = height() * 2 / 3;
    // Numbers that begin left of what is to be drawn may reach into it.
    const int from = scale.frameAt(shown.left() - widest - kNumberIndent);
    const int last = scale.frameAt(shown.right() + 1);
    painter.setPen(palette().color(QPalette::Text).darker(130));
    for (qint64 frame = qint64(std::ceil(double(from) / tickInterval)) * tickInterval; frame <= last;
         frame += tickInterval) {
        const bool isNumbered = frame % numberInterval == 0;
        const int x = int(std::round(scale.x(double(frame))));
        const int top = isNumbered ? 3 : bottom - kShortTick;
        painter.fillRect(x, top, 1, bottom - top, palette().color(QPalette::Midlight));
        if (isNumbered) {
            const QString number = QString::number(frame);
            const int wide = metrics.horizontalAdvance(number);
            const bool fits = x + kNumberIndent + wide <= width();
            painter.drawText(fits ? x + kNumberIndent : x - kNumberIndent - wide, metrics.ascent() + 1, number);
        }
    }
}

void TimeSlider::drawKeys(QPainter& painter) const
{
    const TimeScale scale = this->scale();
    const double ticksPerFrame = kernel::ticksPerUnit(m_session.scene.timeUnit());
    const int top = height() * 2 / 3;
    const int wide = std::min(kWidestKey, std::max(1, int(scale.cell())));
    auto key = std::lower_bound(m_keys.begin(), m_keys.end(), scale.range.first * ticksPerFrame);
    int drawn = -1;
    for (; key != m_keys.end() && *key < (scale.range.last + 1) * ticksPerFrame; ++key) {
        const int x = int(std::round(scale.x(*key / ticksPerFrame)));
        if (x != drawn) {
            painter.fillRect(x, top, wide, height() - top, kKeyColour);
            drawn = x;
        }
    }
}

void TimeSlider::drawBlock(QPainter& painter) const
{
    if (!m_session.scene.isSliderRangeVisible()) {
        return;
    }
    const kernel::Scene::Range block = m_session.scene.sliderRange();
    const TimeScale scale = this->scale();
    const QRectF rect(QPointF(scale.x(block.first), 0), QPointF(scale.x(block.last), height()));
    QColor ground = kBlockColour;
    ground.setAlpha(110);
    painter.fillRect(rect, ground);
    painter.fillRect(QRectF(rect.left(), 0, 1, height()), kBlockColour);
    painter.fillRect(QRectF(rect.right() - 1, 0, 1, height()), kBlockColour);

    // Arrows say that the ends can be dragged.
    if (rect.width() < 4 * kGrip) {
        return;
    }
    QPainterPath arrows;
    const double middle = height() / 2.0;
    for (const double side : {1.0, -1.0}) {
        const double tip = side > 0 ? rect.left() + 2 : rect.right() - 2;
        arrows.moveTo(tip, middle);
        arrows.lineTo(tip + side * (kGrip - 2), middle - 4);
        arrows.lineTo(tip + side * (kGrip - 2), middle + 4);
        arrows.closeSubpath();
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(arrows, palette().color(QPalette::HighlightedText));
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void TimeSlider::drawMarker(QPainter& painter) const
{
    const double now = m_session.scene.currentTime().value;
    const TimeScale scale = this->scale();
    const double left = std::round(scale.x(now));
    const QRectF cell(left, 0, std::max<double>(kLeastMarker, std::round(scale.x(now + 1)) - left), height());
    QColor ground = palette().color(QPalette::Highlight);
    ground.setAlpha(150);
    painter.fillRect(cell, ground);
    painter.fillRect(QRectF(left, 0, kLeastMarker, height()), palette().color(QPalette::Highlight).lighter(150));

    const QFontMetrics metrics(font());
    const QString number = numberOf(std::floor(now));
    const double width = metrics.horizontalAdvance(number) + 2 * kNumberIndent;
    // The number stands where the ruler's would, and left of that at the slider's end.
    const double at = left + width <= this->width() ? left : left - width;
    painter.fillRect(QRectF(at, 0, std::max(width, at < left ? 0 : cell.width()), metrics.height() + 2),
                     palette().color(QPalette::Highlight));
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.drawText(QPointF(at + kNumberIndent, metrics.ascent() + 1), number);
}

QRect TimeSlider::markerRect() const
{
    const TimeScale scale = this->scale();
    const double now = m_session.scene.currentTime().value;
    const double number = fontMetrics().horizontalAdvance(numberOf(std::floor(now))) + 10;
    const QRectF marker(scale.x(now) - number, 0, scale.cell() + 2 * number, height());
    return (marker & QRectF(rect())).toAlignedRect();  // far away it has no whole pixels to count in
}

void TimeSlider::followRange()
{
    // What is done to highlighted frames must not be done to frames that nobody sees.
    const kernel::Scene::Range shown = m_session.scene.playbackRange();
    const kernel::Scene::Range block = m_session.scene.sliderRange();
    if (block.first > shown.last || block.last <= shown.first) {
        m_session.scene.clearSliderRange();
    }
    update();
}

void TimeSlider::showTime()
{
    // The rest stays as it is: this comes with every frame that is played.
    update(m_marker);
    update(markerRect());
}

// --- pointer -------------------------------------------------------------------------------------------------------

TimeSlider::Drag TimeSlider::dragAt(const QPointF& at, Qt::KeyboardModifiers modifiers) const
{
    if (modifiers & Qt::ShiftModifier) {
        return Drag::Highlight;
    }
    if (!m_session.scene.isSliderRangeVisible()) {
        return Drag::Scrub;
    }
    const kernel::Scene::Range block = m_session.scene.sliderRange();
    const double left = scale().x(block.first);
    const double right = scale().x(block.last);
    const double grip = std::min(kGrip, (right - left) / 4);  // there is always something to move it by
    if (at.x() < left || at.x() >= right) {
        return Drag::Scrub;
    }
    return at.x() < left + grip ? Drag::BlockStart : at.x() >= right - grip ? Drag::BlockEnd : Drag::MoveBlock;
}

void TimeSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    endDrag();  // its release went elsewhere
    if (m_session.playback.isPlaying()) {
        m_run("play -state off");
    }
    m_drag = dragAt(event->localPos(), event->modifiers());
    m_pressedAt = scale().frameAt(event->localPos().x());
    m_timeBefore = m_session.scene.currentTime().value;
    m_blockBefore = m_session.scene.sliderRange();
    if (m_drag == Drag::Scrub) {
        m_session.scene.clearSliderRange();
        update();
    }
    if (m_drag == Drag::Scrub || m_drag == Drag::Highlight) {
        dragTo(m_pressedAt);
    }
}

void TimeSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (m_drag && event->buttons().testFlag(Qt::LeftButton)) {
        dragTo(scale().frameAt(event->localPos().x()));
    }
}

void TimeSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        endDrag();
    } else {
        event->ignore();
    }
}

void TimeSlider::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const kernel::Scene::Range range = m_session.scene.playbackRange();
    m_session.scene.highlightSliderRange({range.first, range.last + 1});
    update();
}

void TimeSlider::dragTo(int frameNumber)
{
    kernel::Scene& scene = m_session.scene;
    switch (*m_drag) {
    case Drag::Scrub: break;
    case Drag::Highlight:
        scene.highlightSliderRange(
            {double(std::min(m_pressedAt, frameNumber)), std::max(m_pressedAt, frameNumber) + 1.0});
        update();
        return;  // the time stays
    case Drag::MoveBlock: {
        const int by = frameNumber - m_pressedAt;
        scene.highlightSliderRange({m_blockBefore.first + by, m_blockBefore.last + by});
        break;
    }
    case Drag::BlockStart:
        scene.highlightSliderRange({std::min<double>(frameNumber, m_blockBefore.last - 1), m_blockBefore.last});
        break;
    case Drag::BlockEnd:
        scene.highlightSliderRange({m_blockBefore.first, std::max(frameNumber + 1.0, m_blockBefore.first + 1)});
        break;
    }
    if (m_drag != Drag::Scrub) {
        update();
    }
    // Whoever hears of the time finds the block where it is now.
    if (scene.currentTime().value != frameNumber) {
        scene.setCurrentTime({double(frameNumber), scene.timeUnit()});
    }
}

void TimeSlider::endDrag()
{
    if (!m_drag) {
        return;
    }
    m_drag.reset();
    const double now = m_session.scene.currentTime().value;
    if (now == m_timeBefore) {
        return;
    }
    // The whole drag is one action in the journal, and one step that leads back to where it began.
    m_session.scene.setCurrentTime({m_timeBefore, m_session.scene.timeUnit()});
    m_run("currentTime " + kernel::numberText(now));
}

}  // namespace app
