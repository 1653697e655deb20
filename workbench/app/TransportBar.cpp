#include "app/TransportBar.h"

#include "app/RateBox.h"
#include "app/Theme.h"
#include "app/TimeField.h"
#include "app/TransportIcons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include <algorithm>

namespace app {

namespace {

constexpr int kButton = 24;     // the grid of the icons, whose margin is the button's
constexpr double kSlow = 0.95;  // of the rate asked for; what is below loses frames one can see

using Loop = kernel::Playback::Loop;

/// In the order in which the button goes through them.
const struct {
    Loop loop;
    const char* name;
    TransportIcon icon;
    const char* toolTip;
} kLoops[] = {
    {Loop::Once, "once", TransportIcon::Once, QT_TRANSLATE_NOOP("app::TransportBar", "Plays once, then stops")},
    {Loop::Continuous, "continuous", TransportIcon::Continuous,
     QT_TRANSLATE_NOOP("app::TransportBar", "Plays again and again")},
    {Loop::Oscillate, "oscillate", TransportIcon::Oscillate,
     QT_TRANSLATE_NOOP("app::TransportBar", "Plays to and fro")},
};

int rowOf(Loop loop)
{
    return int(std::find_if(std::begin(kLoops), std::end(kLoops), [&](const auto& row) { return row.loop == loop; })
               - std::begin(kLoops));
}

}  // namespace

struct TransportBar::Row {
    enum class Plays { No, Forward, Backwards };
    const char* name;
    TransportIcon icon;
    const char* toolTip;
    const char* script;
    Plays plays;
};

const TransportBar::Row TransportBar::kRows[] = {
    {"goToStart", TransportIcon::ToStart, QT_TR_NOOP("First frame (Alt+Shift+V)"),
     "currentTime `playbackOptions -q -min`", Row::Plays::No},
    {"stepBack", TransportIcon::StepBack, QT_TR_NOOP("One frame back (Alt+,)"),
     "currentTime (`currentTime -q` - `playbackOptions -q -by`)", Row::Plays::No},
    {"previousKey", TransportIcon::PreviousKey, QT_TR_NOOP("Previous key of the selection (,)"),
     "currentTime `findKeyframe -which previous`", Row::Plays::No},
    {"playBackwards", TransportIcon::PlayBackwards, QT_TR_NOOP("Play backwards"), "play -forward off",
     Row::Plays::Backwards},
    {"playForwards", TransportIcon::Play, QT_TR_NOOP("Play (Alt+V)"), "play -forward on", Row::Plays::Forward},
    {"nextKey", TransportIcon::NextKey, QT_TR_NOOP("Next key of the selection (.)"),
     "currentTime `findKeyframe -which next`", Row::Plays::No},
    {"stepForward", TransportIcon::StepForward, QT_TR_NOOP("One frame on (Alt+.)"),
     "currentTime (`currentTime -q` + `playbackOptions -q -by`)", Row::Plays::No},
    {"goToEnd", TransportIcon::ToEnd, QT_TR_NOOP("Last frame"), "currentTime `playbackOptions -q -max`",
     Row::Plays::No},
};

TransportBar::TransportBar(kernel::Session& session, std::function<bool(const std::string&)> run, QWidget* parent)
    : QWidget(parent), m_session(session), m_run(std::move(run)), m_reached(new QLabel)
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* const number = new TimeField(m_session, TimeField::Shows::CurrentTime, m_run);
    auto* const label = new QLabel(tr("Frame"));
    label->setBuddy(number);
    layout->addWidget(label);
    layout->addSpacing(4);
    layout->addWidget(number);
    layout->addSpacing(12);
    for (const Row& row : kRows) {
        m_buttons.push_back(addButton(row.name, tr(row.toolTip), SLOT(Press())));
    }
    layout->addSpacing(8);
    m_loop = addButton("loopMode", QString(), SLOT(NextLoop()));
    layout->addSpacing(8);
    layout->addWidget(new RateBox(m_session, m_run));
    layout->addSpacing(4);
    m_reached->setObjectName("reachedRate");
    m_reached->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_reached->setFixedWidth(m_reached->fontMetrics().horizontalAdvance("0000.0 fps") + 4);
    m_reached->setToolTip(tr("Frames really shown in a second"));
    layout->addWidget(m_reached);

    m_watcher = m_session.events.watch("playingBack", [this](bool) { showPlaying(); });
    for (const char* event : {"playbackModeChanged", "NewSceneOpened", "SceneOpened"}) {
        m_callbacks.push_back(m_session.events.add(event, [this] { showLoop(); }));
    }
    showPlaying();
    showLoop();
}

TransportBar::~TransportBar()
{
    m_session.events.unwatch(m_watcher);
    for (const unsigned id : m_callbacks) {
        m_session.events.remove(id);
    }
}

QToolButton* TransportBar::addButton(const char* name, const QString& toolTip, const char* slot)
{
    auto* const button = new QToolButton;
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setFixedSize(kButton, kButton);
    button->setIconSize(QSize(kButton, kButton));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);  // keys stay with the tool
    connect(button, SIGNAL(clicked()), this, slot);
    layout()->addWidget(button);
    return button;
}

void TransportBar::Press()
{
    const auto pressed = std::find(m_buttons.begin(), m_buttons.end(), sender());
    const Row& row = kRows[pressed - m_buttons.begin()];
    m_run(isPlaying(row) ? "play -state off" : row.script);
    showPlaying();  // it may go the other way now
}

void TransportBar::NextLoop()
{
    const int next = (rowOf(m_session.playback.options.loop) + 1) % int(std::size(kLoops));
    m_run(std::string("playbackOptions -loop ") + kLoops[next].name);
}

/// Whether it is the button that playback was started with, to and fro as it may go since.
bool TransportBar::isPlaying(const Row& row) const
{
    return m_session.playback.isPlaying()
        && row.plays == (m_playsForward ? Row::Plays::Forward : Row::Plays::Backwards);
}

void TransportBar::showPlaying()
{
    m_playsForward = m_session.playback.isForward();
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        const bool stops = isPlaying(kRows[i]);
        m_buttons[i]->setIcon(transportIcon(stops ? TransportIcon::Stop : kRows[i].icon));
        m_buttons[i]->setToolTip(stops ? tr("Stop (Esc)") : tr(kRows[i].toolTip));
    }
    ShowRate(0);
}

void TransportBar::showLoop()
{
    const auto& row = kLoops[rowOf(m_session.playback.options.loop)];
    m_loop->setIcon(transportIcon(row.icon));
    m_loop->setToolTip(tr(row.toolTip));
}

void TransportBar::ShowRate(double rate)
{
    m_reached->setText(rate > 0 ? tr("%1 fps").arg(rate, 0, 'f', 1) : QString());
    const kernel::Playback& playback = m_session.playback;
    const bool isSlow = !playback.showsEveryFrame() && rate < kSlow * 1000 / playback.frameDuration();
    QPalette colours = palette();
    if (isSlow) {
        colours.setColor(QPalette::WindowText, messageColour(kernel::Severity::Warning));
    }
    m_reached->setPalette(colours);
}

}  // namespace app
