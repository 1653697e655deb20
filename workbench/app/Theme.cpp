#include "app/Theme.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace app {

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
    application.setStyle(QStyleFactory::create("Fusion"));
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
