#pragma once

#include "app/panels/AttributeState.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QSlider;

namespace app {

/// A part of what a number can be that a slider covers; both the same for no slider.
struct SliderRange {
    double first = 0;
    double last = 0;
};

/// The control for the value of one attribute: a box to check, a list of names, or a line to type in, for a number with
/// a slider when there is a range for it.
class ValueField : public QWidget {
    Q_OBJECT

public:
    ValueField(kernel::AttributePtr attribute, SliderRange range, QWidget* parent = nullptr);

    /// What is being typed or dragged stays.
    void show(const kernel::PlugValue& value, AttributeState state);

signals:
    /// The user wants another value: a number, an enum's index, a text, or something that is none of that.
    void Typed(const QString& text);
    /// The keys that follow are not for the field; what was not finished is to be shown as it was.
    void Left();
    /// The slider is being dragged; Typed follows.
    void Dragged(double number);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void TakeCheck(bool on);
    void TakeChoice(int index);
    void TakeText();
    void TakeDrag(int position);
    void EndDrag();

private:
    QWidget* makeLine();
    QSlider* makeSlider();
    void showNumber(double number);
    void showState(AttributeState state);

    const kernel::AttributePtr m_attribute;
    const SliderRange m_range;
    AttributeState m_state = AttributeState::Free;
    QCheckBox* m_check = nullptr;
    QComboBox* m_names = nullptr;
    QLineEdit* m_line = nullptr;
    QSlider* m_slider = nullptr;
};

}  // namespace app
