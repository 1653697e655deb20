#include "app/TimeField.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace app {

namespace {

constexpr int kFarthest = 999999;
const char* const kEvents[] = {"timeChanged", "playbackRangeChanged", "timeUnitChanged", "NewSceneOpened",
                               "SceneOpened"};

/// In the order of TimeField::Shows.
const struct {
    const char* name;
    const char* toolTip;
    const char* command;
    int width;
} kRows[] = {
    {"currentTime", QT_TRANSLATE_NOOP("app::TimeField", "Current time"), "currentTime ", 80},
    {"playbackStart", QT_TRANSLATE_NOOP("app::TimeField", "First frame that plays"), "playbackOptions -min ", 64},
    {"playbackEnd", QT_TRANSLATE_NOOP("app::TimeField", "Last frame that plays"), "playbackOptions -max ", 64},
};

}  // namespace

TimeField::TimeField(kernel::Session& session, Shows what, std::function<bool(const std::string&)> run, QWidget* parent)
    : QSpinBox(parent), m_session(session), m_what(what), m_run(std::move(run))
{
    const auto& row = kRows[int(what)];
    setObjectName(row.name);
    setToolTip(tr(row.toolTip));
    setRange(-kFarthest, kFarthest);
    setAlignment(Qt::AlignRight);
    setKeyboardTracking(false);  // the scene follows a finished number, not each digit
    setFixedSize(row.width, 22);
    setFocusPolicy(Qt::ClickFocus);
    if (what != Shows::CurrentTime) {
        setButtonSymbols(QAbstractSpinBox::NoButtons);
    }
    connect(this, SIGNAL(valueChanged(int)), this, SLOT(Apply(int)));
    connect(this, SIGNAL(editingFinished()), this, SLOT(LeaveField()));
    for (const char* event : kEvents) {
        m_callbacks.push_back(m_session.events.add(event, [this] { showTime(); }));
    }
    showTime();
}

TimeField::~TimeField()
{
    for (const unsigned id : m_callbacks) {
        m_session.events.remove(id);
    }
}

void TimeField::Apply(int frameNumber)
{
    lineEdit()->setModified(false);
    m_run(kRows[int(m_what)].command + std::to_string(frameNumber));
    showTime();
}

void TimeField::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (key == Qt::Key_Escape) {
        dropTyped();  // leaving must not take it over
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        takeTyped();
    }
    QSpinBox::keyPressEvent(event);
}

void TimeField::LeaveField()
{
    takeTyped();
    dropTyped();
    // The next keys are the tool's, but not the Return that comes past the field right after this.
    QTimer::singleShot(0, this, &QWidget::clearFocus);
}

double TimeField::time() const
{
    const kernel::Scene& scene = m_session.scene;
    switch (m_what) {
    case Shows::RangeStart: return scene.playbackRange().first;
    case Shows::RangeEnd: return scene.playbackRange().last;
    default: return scene.currentTime().value;
    }
}

int TimeField::frameNumber() const
{
    return int(std::floor(std::min<double>(std::max<double>(time(), -kFarthest), kFarthest)));
}

void TimeField::showTime()
{
    if (hasFocus() && lineEdit()->isModified()) {
        return;
    }
    const QSignalBlocker quiet(this);
    setValue(frameNumber());
}

void TimeField::takeTyped()
{
    if (lineEdit()->isModified()) {
        interpretText();
    }
    // It may be what the field held before the time went on: to the field that is no change.
    if (lineEdit()->isModified() && value() != frameNumber()) {
        Apply(value());
    }
}

void TimeField::dropTyped()
{
    lineEdit()->setModified(false);
    showTime();
}

}  // namespace app
