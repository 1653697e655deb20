#include "app/panels/RenderSettings.h"

#include "app/panels/AttributeScript.h"
#include "app/panels/AttributeText.h"
#include "app/panels/ValueField.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>

#include <cmath>

namespace app {

namespace {

const struct {
    const char* name;
    int width;
    int height;
} kPresets[] = {
    {QT_TRANSLATE_NOOP("RenderSettings", "HD 1080"), 1920, 1080},
    {QT_TRANSLATE_NOOP("RenderSettings", "HD 720"), 1280, 720},
    {QT_TRANSLATE_NOOP("RenderSettings", "HD 540"), 960, 540},
    {QT_TRANSLATE_NOOP("RenderSettings", "640 x 480"), 640, 480},
    {QT_TRANSLATE_NOOP("RenderSettings", "4K UHD"), 3840, 2160},
    {QT_TRANSLATE_NOOP("RenderSettings", "Square 1K"), 1024, 1024},
};

QString aspectText(double aspect)
{
    return shownText(aspect, kernel::AttributeSpec());
}

QString sizeText(const kernel::Node& resolution, const char* attribute)
{
    return QString::number(int(resolution.number(attribute)));
}

/// What a whole number becomes when a text is typed for it; 0 for one that is no number.
double wholeNumber(const QString& text)
{
    double number = 0;
    return kernel::parseDouble(text.toStdString(), number) ? std::trunc(number) : 0;
}

}  // namespace

RenderSettings::RenderSettings(const PanelContext& context, QWidget* parent)
    : ScenePanel(context, parent), m_presets(new QComboBox), m_deviceAspect(new QLabel), m_pixelAspect(new QLabel)
{
    auto* const form = new QFormLayout(this);
    form->setContentsMargins(8, 8, 8, 8);
    form->setHorizontalSpacing(8);
    form->setVerticalSpacing(4);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    m_presets->setObjectName("resolutionPresets");
    m_presets->setMinimumHeight(22);
    m_presets->setFocusPolicy(Qt::TabFocus);  // after a choice the keys stay with the tool
    for (const auto& preset : kPresets) {
        m_presets->addItem(tr(preset.name));
    }
    m_presets->addItem(tr("Custom"));
    connect(m_presets, SIGNAL(activated(int)), this, SLOT(ApplyPreset(int)));
    form->addRow(tr("Preset"), m_presets);
    m_width = addSize(form, tr("Width"), "width", SLOT(ApplyWidth(QString)));
    m_height = addSize(form, tr("Height"), "height", SLOT(ApplyHeight(QString)));
    form->addRow(tr("Device Aspect Ratio"), m_deviceAspect);
    form->addRow(tr("Pixel Aspect Ratio"), m_pixelAspect);
}

ValueField* RenderSettings::addSize(QFormLayout* form, const QString& label, const char* attribute, const char* slot)
{
    const auto pixels = std::make_shared<kernel::AttributeSpec>();
    pixels->kind = kernel::ValueKind::Int;
    auto* const field = new ValueField(pixels, {});
    field->setObjectName(QString("resolution_") + attribute);
    connect(field, SIGNAL(Typed(QString)), this, slot);
    connect(field, SIGNAL(Left()), this, SLOT(ScheduleRefresh()));
    form->addRow(label, field);
    return field;
}

kernel::NodePtr RenderSettings::resolution() const
{
    return scene().findOrNull("defaultResolution");
}

void RenderSettings::refresh()
{
    const kernel::NodePtr node = resolution();
    setEnabled(node != nullptr);
    if (!node) {
        return;
    }
    const double width = node->number("width");
    const double height = node->number("height");
    const double aspect = node->number("deviceAspectRatio");
    m_width->show(width, AttributeState::Free);
    m_height->show(height, AttributeState::Free);
    m_deviceAspect->setText(aspectText(aspect));
    m_pixelAspect->setText(aspectText(aspect * height / width));
    int index = 0;
    for (const auto& preset : kPresets) {
        if (width == preset.width && height == preset.height) {
            break;
        }
        ++index;
    }
    m_presets->setCurrentIndex(index);
}

void RenderSettings::ApplyPreset(int index)
{
    if (index < int(std::size(kPresets))) {
        apply(QString::number(kPresets[index].width), QString::number(kPresets[index].height));
    }
    ScheduleRefresh();
}

void RenderSettings::ApplyWidth(const QString& text)
{
    if (const kernel::NodePtr node = resolution()) {
        apply(text, sizeText(*node, "height"));
    }
}

void RenderSettings::ApplyHeight(const QString& text)
{
    if (const kernel::NodePtr node = resolution()) {
        apply(sizeText(*node, "width"), text);
    }
}

void RenderSettings::apply(const QString& width, const QString& height)
{
    const kernel::NodePtr node = resolution();
    if (!node) {
        return;
    }
    // Square pixels, of the numbers as the attributes will hold them. For what can be no size the statements that set
    // them fail, and the one with the aspect is not run.
    const double lines = wholeNumber(height);
    const double aspect = lines > 0 ? wholeNumber(width) / lines : 0;
    const struct {
        const char* attribute;
        QString value;
    } rows[] = {
        {"width", width},
        {"height", height},
        {"pixelAspect", "1"},
        {"deviceAspectRatio", QString::number(aspect, 'g', 10)},
    };
    std::string script;
    for (const auto& row : rows) {
        script += setAttrText(scene(), *node, *node->attribute(row.attribute), row.value);
    }
    run(script);
}

}  // namespace app
