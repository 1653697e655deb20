#include "app/Theme.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

namespace app {

namespace {

/// Fusion draws the outline of a check box darker than its ground, where a dark theme hides the empty ones.
class ThemeStyle : public QProxyStyle {
public:
    ThemeStyle() : QProxyStyle("Fusion") {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (element == PE_IndicatorCheckBox) {
            painter->save();
            painter->translate(0.5, 0.5);  // onto the middle of the pixels
            painter->setPen(option->palette.color(QPalette::Disabled, QPalette::Text));
            painter->setBrush(Qt::NoBrush);
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
            painter->restore();
        }
    }
};

}  // namespace

void applyTheme(QApplication& application)
{
    const struct {
        QPalette::ColorRole role;
        const char* colour;
    } colours[] = {
        {QPalette::Window, "#444444"},
        {QPalette::Button, "#5d5d5d"},
        {QPalette::Base, "#2b2b2b"},
        {QPalette::AlternateBase, "#333333"},
        {QPalette::Light, "#6a6a6a"},
        {QPalette::Midlight, "#6a6a6a"},
        {QPalette::Mid, "#3a3a3a"},
        {QPalette::Dark, "#303030"},
        {QPalette::Shadow, "#1e1e1e"},
        {QPalette::WindowText, "#d8d8d8"},
        {QPalette::Text, "#d8d8d8"},
        {QPalette::ButtonText, "#d8d8d8"},
        {QPalette::BrightText, "#ffffff"},
        {QPalette::Highlight, "#5285a6"},
        {QPalette::HighlightedText, "#ffffff"},
        {QPalette::ToolTipBase, "#2b2b2b"},
        {QPalette::ToolTipText, "#d8d8d8"},
        {QPalette::Link, "#8fc1cf"},
        {QPalette::PlaceholderText, "#808080"},
    };
    QPalette palette;
    for (const auto& c : colours) {
        palette.setColor(c.role, QColor(c.colour));
    }
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor("#808080"));
    }
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor("#3a3a3a"));
    palette.setColor(QPalette::Disabled, QPalette::Light, QColor("#303030"));  // etched under entries of menus
    application.setStyle(new ThemeStyle);
    application.setPalette(palette);
}

QColor messageColour(kernel::Severity severity)
{
    switch (severity) {
    case kernel::Severity::Warning: return QColor("#e0b44c");
    case kernel::Severity::Error: return QColor("#d65a4a");
    case kernel::Severity::Info: return QColor("#8fc1cf");
    default: return QColor("#d8d8d8");
    }
}

QColor messageTextColour(kernel::Severity severity)
{
    const QColor colour = messageColour(severity);
    return severity == kernel::Severity::Error ? colour.lighter(125) : colour;
}

}  // namespace app
