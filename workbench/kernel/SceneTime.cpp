#include "kernel/Scene.h"
#include "kernel/Session.h"

#include <algorithm>
#include <cmath>

namespace kernel {

namespace {

bool isFinite(Scene::Range range)
{
    return std::isfinite(range.first) && std::isfinite(range.last);
}

Scene::Range ordered(Scene::Range range)
{
    if (range.last < range.first)
        range.last = range.first + 1;
    return range;
}

/// Whole frames must stay whole, so the numbers go the way every time goes.
double converted(double value, TimeUnit from, TimeUnit to)
{
    return Time{value, from}.as(to);
}

Scene::Range converted(Scene::Range range, TimeUnit from, TimeUnit to)
{
    return {converted(range.first, from, to), converted(range.last, from, to)};
}

void convertTimes(const Node& node, std::unordered_map<std::string, PlugValue>& values, TimeUnit from, TimeUnit to)
{
    for (auto& held : values) {
        const AttributePtr attribute = node.attribute(held.first);
        double* number = std::get_if<double>(&held.second);
        if (attribute && attribute->kind == ValueKind::Time && number)
            *number = converted(*number, from, to);
    }
}

}  // namespace

Time Scene::currentTime() const
{
    return m_time;
}

void Scene::setCurrentTime(const Time& time)
{
    const double value = time.as(m_unit);
    if (!std::isfinite(value))
        return;
    const bool isOther = time.ticks() != m_time.ticks();
    m_time = Time{value, m_unit};
    storeTimeInNode();
    if (isOther)
        followTime();
    requestRedraw();
    raise("timeChanged");
}

void Scene::followTime()
{
    for (const auto& curve : m_curves)
        curve.second->followTime();
    // Whoever follows values would be told of all of them in every frame; they are told when playback ends.
    if (!m_curves.empty() && !m_session.playback.isPlaying())
        tellAnimated();
}

void Scene::tellAnimated()
{
    for (const auto& curve : m_curves)
        curve.second->tellDriven();
}

void Scene::storeTimeInNode()
{
    for (const NodePtr& node : m_nodes) {
        if (!node->isDefaultNode || node->type().name != "time")
            continue;
        node->m_state.values["outTime"] = m_time.value;
        node->m_state.values["unwarpedTime"] = m_time.value;
        for (const char* name : {"outTime", "unwarpedTime"})
            tell([&](ChangeListener& listener) { listener.attributeChanged(*node, *node->attribute(name)); });
    }
}

void Scene::setTimeUnit(TimeUnit unit)
{
    if (unit == m_unit || timeUnitName(unit).empty())
        return;
    const TimeUnit before = m_unit;
    m_unit = unit;
    convertTimeValues(before, unit);
    if (m_firstForeign)
        return;
    m_time = Time{m_time.as(unit), unit};
    m_playback = converted(m_playback, before, unit);
    m_animation = converted(m_animation, before, unit);
    m_sliderRange = converted(m_sliderRange, before, unit);
    storeTimeInNode();
    touch();
    raise("timeUnitChanged");
}

Scene::ForeignTimes::ForeignTimes(Scene& scene)
    : m_scene(scene), m_unitBefore(scene.m_unit), m_firstBefore(scene.m_firstForeign)
{
    scene.m_firstForeign = scene.m_nextSerial;
}

Scene::ForeignTimes::~ForeignTimes()
{
    m_scene.setTimeUnit(m_unitBefore);
    m_scene.m_firstForeign = m_firstBefore;
}

void Scene::convertTimeValues(TimeUnit from, TimeUnit to)
{
    for (const std::weak_ptr<Node>& weak : m_all) {
        const NodePtr node = weak.lock();
        if (!node || node->m_serial < m_firstForeign)
            continue;
        for (Node::State* state : {&node->m_state, node->m_startState.get()}) {
            if (state)
                convertTimes(*node, state->values, from, to);
        }
        if (node->type().name == "animCurveTT")
            node->m_curve->changeValues([from, to](double value) { return converted(value, from, to); });
    }
}

void Scene::setPlaybackRange(Range range)
{
    if (!isFinite(range))
        return;
    m_playback = ordered(range);
    m_animation.first = std::min(m_animation.first, m_playback.first);
    m_animation.last = std::max(m_animation.last, m_playback.last);
    touch();
    raise("playbackRangeChanged");
}

void Scene::setAnimationRange(Range range)
{
    if (!isFinite(range))
        return;
    m_animation = ordered(range);
    m_playback.first = std::min(std::max(m_playback.first, m_animation.first), m_animation.last);
    m_playback.last = std::max(std::min(m_playback.last, m_animation.last), m_animation.first);
    touch();
    raise("playbackRangeChanged");
}

Scene::Range Scene::sliderRange() const
{
    if (m_hasSliderRange)
        return m_sliderRange;
    return {m_time.value, m_time.value + 1};
}

void Scene::highlightSliderRange(Range range)
{
    if (!isFinite(range))
        return;
    m_sliderRange = ordered(range);
    m_hasSliderRange = true;
}

}  // namespace kernel
