#include "app/RateBox.h"

#include "mel/builtins/Quoting.h"

#include <cmath>

namespace app {

namespace {

const kernel::TimeUnit kUsual[] = {
    kernel::TimeUnit::Fps12,     kernel::TimeUnit::Fps23_976, kernel::TimeUnit::Film,      kernel::TimeUnit::PalFrame,
    kernel::TimeUnit::NtscFrame, kernel::TimeUnit::ShowScan,  kernel::TimeUnit::NtscField,
};

}  // namespace

QString frameRateText(kernel::TimeUnit unit)
{
    const double rate = kernel::kTicksPerSecond / kernel::ticksPerUnit(unit);
    return QObject::tr("%1 fps").arg(QString::number(std::round(rate * 1000) / 1000, 'g', 8));
}

RateBox::RateBox(kernel::Session& session, std::function<bool(const std::string&)> run, QWidget* parent)
    : QComboBox(parent), m_session(session), m_run(std::move(run))
{
    setObjectName("frameRate");
    setToolTip(tr("Frame rate of the scene"));
    setFocusPolicy(Qt::NoFocus);  // keys stay with the tool
    setFixedHeight(22);
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
    connect(this, SIGNAL(activated(int)), this, SLOT(Choose(int)));
    for (const char* event : {"timeUnitChanged", "NewSceneOpened", "SceneOpened"}) {
        m_callbacks.push_back(m_session.events.add(event, [this] { showUnit(); }));
    }
    showUnit();
}

RateBox::~RateBox()
{
    for (const unsigned id : m_callbacks) {
        m_session.events.remove(id);
    }
}

void RateBox::showUnit()
{
    clear();
    const auto offer = [this](kernel::TimeUnit unit) { addItem(frameRateText(unit), int(unit)); };
    for (const kernel::TimeUnit unit : kUsual) {
        offer(unit);
    }
    if (findData(int(m_session.scene.timeUnit())) < 0) {
        offer(m_session.scene.timeUnit());
    }
    setCurrentIndex(findData(int(m_session.scene.timeUnit())));
}

void RateBox::Choose(int row)
{
    const auto unit = kernel::TimeUnit(itemData(row).toInt());
    if (unit != m_session.scene.timeUnit()) {
        m_run("currentUnit -time " + mel::quoted(kernel::timeUnitName(unit)));
    }
}

}  // namespace app
