#include "app/panels/AttributeText.h"

#include <cmath>

namespace app {

using kernel::ValueKind;

namespace {

QString shownNumber(double number)
{
    const double size = std::fabs(number);
    if (size != 0 && (size < 0.1 || size >= 1e7)) {
        return QString::number(number, 'g', 4);
    }
    QString text = QString::number(number, 'f', 3);
    while (text.endsWith('0')) {
        text.chop(1);
    }
    return text.endsWith('.') ? text.chopped(1) : text;
}

QString textOf(const kernel::PlugValue& value)
{
    const std::string* const text = std::get_if<std::string>(&value);
    return text ? QString::fromStdString(*text) : QString();
}

}  // namespace

double numberOf(const kernel::PlugValue& value)
{
    const double* const number = std::get_if<double>(&value);
    return number ? *number : 0;
}

QString niceName(const std::string& name)
{
    QString nice;
    bool beginsWord = true;
    for (const QChar c : QString::fromStdString(name)) {
        if (c == '_') {
            beginsWord = true;
            continue;
        }
        const bool afterLower = !nice.isEmpty() && !nice.back().isUpper();
        if (!nice.isEmpty() && (beginsWord || (c.isUpper() && afterLower))) {
            nice += ' ';
        }
        nice += beginsWord ? c.toUpper() : c;
        beginsWord = false;
    }
    return nice;
}

QString shownText(const kernel::PlugValue& value, const kernel::AttributeSpec& attribute)
{
    const double number = numberOf(value);
    switch (attribute.kind) {
    case ValueKind::Bool: return number != 0 ? "on" : "off";
    case ValueKind::Enum:
        return number >= 0 && number < double(attribute.enumNames.size())
                 ? QString::fromStdString(attribute.enumNames[std::size_t(number)])
                 : QString::number(int(number));
    case ValueKind::String: return textOf(value);
    case ValueKind::Compound:
    case ValueKind::Custom:
    case ValueKind::Message: return QString();
    default: return shownNumber(number);
    }
}

QString typedText(const kernel::PlugValue& value, const kernel::AttributeSpec& attribute)
{
    if (!kernel::isNumber(attribute.kind) || attribute.kind == ValueKind::Bool) {
        return shownText(value, attribute);
    }
    return QString::fromStdString(kernel::numberText(numberOf(value)));
}

}  // namespace app
