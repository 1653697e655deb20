#include "app/TimeField.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTimer>

#include <cmath>

namespace app {

namespace {

constexpr int kFarthest = 999999;
const char* const kEvents[] = {"timeChanged", "timeUnitChanged", "NewSceneOpened", "SceneOpened"};

}  // namespace

QString frameRateText(kernel::TimeUnit unit)
{
    const double rate = kernel::kTicksPerSecond / kernel::ticksPerUnit(unit);
    return QObject::tr("%1 fps").arg(QString::number(std::round(rate * 1000) / 1000, 'g', 8));
}

TimeField::TimeField(kernel::Session& session, std::function<bool(const std::string&)> run, QWidget* parent)
    : QWidget(parent), m_session(session), m_run(std::move(run)), m_number(new QSpinBox), m_rate(new QLabel)
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 6, 0);
    row->setSpacing(4);
    auto* const label = new QLabel(tr("Frame"));
    label->setBuddy(m_number);
    row->addWidget(label);
    row->addWidget(m_number);
    row->addSpacing(8);
    row->addWidget(m_rate);

    m_number->setObjectName("currentTime");
    m_number->setRange(-kFarthest, kFarthest);
    m_number->setAlignment(Qt::AlignRight);
    m_number->setKeyboardTracking(false);  // the scene follows a finished number, not each digit
    m_number->setFixedHeight(22);
    m_number->setFixedWidth(80);
    m_number->setFocusPolicy(Qt::ClickFocus);
    m_number->setToolTip(tr("Current time"));
    m_rate->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_rate->setMinimumWidth(m_rate->fontMetrics().horizontalAdvance("23.976 fps") + 4);
    connect(m_number, SIGNAL(valueChanged(int)), this, SLOT(Apply(int)));
    connect(m_number, SIGNAL(editingFinished()), this, SLOT(LeaveField()));

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
    m_run("currentTime " + std::to_string(frameNumber));
    showTime();
}

void TimeField::LeaveField()
{
    // The next keys are the tool's, but not the Return that comes past the field right after this.
    QTimer::singleShot(0, m_number, &QWidget::clearFocus);
}

void TimeField::showTime()
{
    const QSignalBlocker quiet(m_number);
    m_number->setValue(int(std::floor(m_session.scene.currentTime().value)));
    m_rate->setText(frameRateText(m_session.scene.timeUnit()));
}

}  // namespace app
