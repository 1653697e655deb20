#include "app/panels/ValueField.h"

#include "app/panels/AttributeText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>
#include <cmath>

namespace app {

using kernel::ValueKind;

namespace {

constexpr int kHeight = 22;
constexpr int kNumberWidth = 72;
constexpr int kSliderSteps = 1000;

}  // namespace

ValueField::ValueField(kernel::AttributePtr attribute, SliderRange range, QWidget* parent)
    : QWidget(parent), m_attribute(std::move(attribute)), m_range(range)
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    if (m_attribute->kind == ValueKind::Bool) {
        m_check = new QCheckBox;
        m_check->setFocusPolicy(Qt::TabFocus);  // after a click the keys stay with the tool
        connect(m_check, SIGNAL(clicked(bool)), this, SLOT(TakeCheck(bool)));
        row->addWidget(m_check);
    } else if (m_attribute->kind == ValueKind::Enum) {
        m_names = new QComboBox;
        for (const std::string& name : m_attribute->enumNames) {
            m_names->addItem(niceName(name));
        }
        m_names->setFocusPolicy(Qt::TabFocus);
        m_names->installEventFilter(this);
        connect(m_names, SIGNAL(activated(int)), this, SLOT(TakeChoice(int)));
        row->addWidget(m_names);
    } else {
        row->addWidget(makeLine());
        if (m_range.first < m_range.last) {
            row->addWidget(makeSlider(), 1);
        } else if (kernel::isNumber(m_attribute->kind)) {
            row->addStretch(1);
        }
    }
    for (QWidget* control : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        control->setMinimumHeight(kHeight);
    }
}

QWidget* ValueField::makeLine()
{
    m_line = new QLineEdit;
    m_line->installEventFilter(this);
    if (kernel::isNumber(m_attribute->kind)) {
        m_line->setMinimumWidth(48);
        m_line->setMaximumWidth(kNumberWidth);
    }
    connect(m_line, SIGNAL(editingFinished()), this, SLOT(TakeText()));
    return m_line;
}

QSlider* ValueField::makeSlider()
{
    m_slider = new QSlider(Qt::Horizontal);
    m_slider->setRange(0, kSliderSteps);
    m_slider->setPageStep(kSliderSteps / 10);
    m_slider->setFocusPolicy(Qt::TabFocus);
    m_slider->installEventFilter(this);
    connect(m_slider, SIGNAL(valueChanged(int)), this, SLOT(TakeDrag(int)));
    connect(m_slider, SIGNAL(sliderReleased()), this, SLOT(EndDrag()));
    return m_slider;
}

void ValueField::show(const kernel::PlugValue& value, AttributeState state)
{
    showState(state);
    if (m_check) {
        m_check->setChecked(numberOf(value) != 0);
    } else if (m_names) {
        m_names->setCurrentIndex(int(numberOf(value)));
    } else {
        const QString text = shownText(value, *m_attribute);
        if (!m_line->isModified() && m_line->text() != text) {
            m_line->setText(text);
        }
        if (m_slider && !m_slider->isSliderDown()) {
            showNumber(numberOf(value));
        }
    }
}

void ValueField::showState(AttributeState state)
{
    if (state == m_state) {
        return;
    }
    m_state = state;
    setEnabled(state != AttributeState::ReadOnly);
    QPalette colours;
    colours.setBrush(QPalette::Base, groundOf(state));
    setPalette(colours);
}

void ValueField::showNumber(double number)
{
    const QSignalBlocker quiet(m_slider);
    const double part = (number - m_range.first) / (m_range.last - m_range.first);
    m_slider->setValue(int(std::lround(std::min(std::max(part, 0.0), 1.0) * kSliderSteps)));
}

void ValueField::TakeCheck(bool on)
{
    emit Typed(on ? "1" : "0");
}

void ValueField::TakeChoice(int index)
{
    emit Typed(QString::number(index));
}

void ValueField::TakeText()
{
    if (m_line->isModified()) {
        m_line->setModified(false);
        emit Typed(m_line->text());
    }
}

void ValueField::TakeDrag(int position)
{
    const double number = m_range.first + (m_range.last - m_range.first) * position / kSliderSteps;
    emit Dragged(number);
    if (!m_slider->isSliderDown()) {
        EndDrag();  // a step made with the keys
    }
}

void ValueField::EndDrag()
{
    const double part = double(m_slider->value()) / kSliderSteps;
    emit Typed(QString::number(m_range.first + (m_range.last - m_range.first) * part, 'g', 6));
}

bool ValueField::eventFilter(QObject* watched, QEvent* event)
{
    // The wheel is for the panel, which scrolls: it would change values on the way.
    if (event->type() == QEvent::Wheel) {
        event->ignore();
        return true;
    }
    if (watched == m_line && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
        if (isReturn || key == Qt::Key_Escape) {
            m_line->setModified(isReturn && m_line->isModified());
            TakeText();
            m_line->clearFocus();
            emit Left();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace app
