#include "session/sheet/Sketch.h"

#include "model/FrameNumber.h"
#include "settings/Preferences.h"

#include <maya/MAnimControl.h>

namespace sheet {

namespace {

const QString kCamera("persp");

StrokePoint pointOf(const Ink& ink, const QPoint& position, float share = 0)
{
    const float end = ink.opacityAtEnd < 0 ? ink.opacity : ink.opacityAtEnd;
    return {ink.width, ink.opacity + (end - ink.opacity) * share, 1.0f, position};
}

}  // namespace

void Sketch::addLayer(const QString& name, const QList<int>& frameNumbers)
{
    const int index = m_drawing.insertLayer(kCamera, -1, name);
    for (const int number : frameNumbers) {
        m_drawing.layer(kCamera, index)->addFrame(timeOfFrame(number));
    }
    m_drawing.setActiveLayer(kCamera, index, true);
}

void Sketch::goTo(int frameNumber)
{
    MAnimControl::setCurrentTime(timeOfFrame(frameNumber));
    m_drawing.updateCurrentFrames(frameNumber, false);
}

void Sketch::stroke(const Ink& ink, const QVector<QPoint>& path)
{
    ActiveStroke& record = begin(ink);
    for (int i = 0; i < path.size(); ++i) {
        append(record, pointOf(ink, path[i], float(i) / float(path.size() - 1)));
    }
    commit();
}

// The first point of a stroke comes one pixel before the press, so that a mere click has a segment.
void Sketch::click(const Ink& ink, const QPoint& position)
{
    stroke(ink, {position - QPoint(1, 0), position});
}

void Sketch::shape(const Ink& ink, const QPoint& from, const QPoint& to)
{
    ActiveStroke& record = begin(ink);
    append(record, pointOf(ink, from));
    append(record, pointOf(ink, to));
    commit();
}

void Sketch::beginText(const Ink& ink, const QPoint& position, const QString& text)
{
    ActiveStroke& record = begin(ink);
    record.fontFamily = "DejaVu Sans";
    record.text = text;
    append(record, pointOf(ink, position));
}

ActiveStroke& Sketch::begin(const Ink& ink)
{
    Preferences::instance().setActiveTool(ink.tool);
    Preferences::instance().setActiveColor(ink.colour);
    ActiveStroke* record = m_drawing.beginStroke(kCamera, false);
    if (!record) {
        qFatal("There is nothing to draw on at frame %d.", currentFrameNumber());
    }
    record->tool = ink.tool;
    return *record;
}

ActiveStroke& Sketch::beginTransform(const QRect& region)
{
    ActiveStroke& record = begin({ToolType::Transform, 1, 1.0f, Qt::black});
    record.region = region;
    record.takeRegion = true;
    record.changed = true;
    return record;
}

void Sketch::append(ActiveStroke& record, const StrokePoint& point)
{
    record.points.append(point);
    record.changed = true;
    m_drawing.composite(kCamera);
}

void Sketch::commit()
{
    Picture undo;
    if (!m_drawing.commitStroke(kCamera, undo)) {
        qFatal("The stroke could not be committed.");
    }
}

QImage Sketch::shown(const QSize& size)
{
    return m_drawing.composite(kCamera)->copy(QRect(kCorner, size));
}

}  // namespace sheet
