#pragma once

#include "app/panels/ScenePanel.h"

class QComboBox;
class QLabel;

namespace app {

class ValueField;

/// The size of rendered pictures, which also decides what the cameras' views frame.
class RenderSettings : public ScenePanel {
    Q_OBJECT

public:
    explicit RenderSettings(const PanelContext& context, QWidget* parent = nullptr);

protected:
    void refresh() override;

private slots:
    void ApplyPreset(int index);
    void ApplyWidth(const QString& text);
    void ApplyHeight(const QString& text);

private:
    ValueField* addSize(class QFormLayout* form, const QString& label, const char* attribute, const char* slot);
    /// Sets both, and the aspect that follows from them, as one step.
    void apply(const QString& width, const QString& height);
    kernel::NodePtr resolution() const;

    QComboBox* m_presets;
    ValueField* m_width = nullptr;
    ValueField* m_height = nullptr;
    QLabel* m_deviceAspect;
    QLabel* m_pixelAspect;
};

}  // namespace app
