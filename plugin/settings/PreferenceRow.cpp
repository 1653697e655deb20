#include "settings/PreferenceRow.h"

#include "settings/Rounding.h"

#include <QDataStream>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int kSmallest = std::numeric_limits<int>::min();
constexpr int kLargest = std::numeric_limits<int>::max();

// A whole number in whatever form the file has it, held within 32 bits; false when it is none.
bool wholeNumber(const QVariant& stored, int& number)
{
    bool ok = false;
    const double value = stored.toDouble(&ok);
    if (!ok || std::isnan(value)) {
        return false;
    }
    number = truncated(value);
    return true;
}

// Qt takes a colour from a damaged file as it is. One of a kind that does not exist must not even be copied, so it is
// looked at in place; its stream form starts with the kind.
bool holdsColour(const QVariant& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << *static_cast<const QColor*>(value.constData());
    const int kind = bytes.at(0);
    return kind > QColor::Invalid && kind <= QColor::Hsl;
}

}  // namespace

PreferenceRow::PreferenceRow(const char* group, const char* key, const QVariant& standard, Missing missing)
    : m_group(group), m_key(key), m_standard(standard), m_missing(missing), m_least(kSmallest), m_greatest(kLargest)
{}

PreferenceRow::PreferenceRow(const char* group, const char* key, bool Preferences::*member, bool standard,
                             Missing missing)
    : PreferenceRow(group, key, QVariant(standard), missing)
{
    m_boolean = member;
}

PreferenceRow::PreferenceRow(const char* group, const char* key, QString Preferences::*member, const QString& standard)
    : PreferenceRow(group, key, QVariant(standard), KeepsCurrent)
{
    m_string = member;
}

PreferenceRow::PreferenceRow(const char* group, const char* key, QByteArray Preferences::*member)
    : PreferenceRow(group, key, QVariant(QByteArray()), KeepsCurrent)
{
    m_bytes = member;
}

PreferenceRow::PreferenceRow(const char* group, const char* key, QColor Preferences::*member, const QColor& standard)
    : PreferenceRow(group, key, QVariant(standard), KeepsCurrent)
{
    m_colour = member;
}

PreferenceRow::PreferenceRow(const char* group, const char* key, int Preferences::*member, int standard,
                             Missing missing)
    : PreferenceRow(group, key, QVariant(standard), missing)
{
    m_integer = member;
}

PreferenceRow::PreferenceRow(const char* group, const char* key, int Preferences::*member, int standard, int least,
                             int greatest, OutOfRange rule, Missing missing)
    : PreferenceRow(group, key, QVariant(standard), missing)
{
    m_integer = member;
    m_least = least;
    m_greatest = greatest;
    m_rule = rule;
}

QVariant PreferenceRow::value(const Preferences& preferences) const
{
    if (m_boolean) {
        return preferences.*m_boolean;
    }
    if (m_integer) {
        return preferences.*m_integer;
    }
    if (m_string) {
        return preferences.*m_string;
    }
    if (m_bytes) {
        return preferences.*m_bytes;
    }
    return preferences.*m_colour;
}

void PreferenceRow::accept(Preferences& preferences, const QVariant& stored) const
{
    if (m_boolean) {
        preferences.*m_boolean = stored.toBool();
    } else if (m_integer) {
        acceptInteger(preferences, stored);
    } else if (m_string) {
        acceptString(preferences, stored);
    } else if (m_bytes) {
        preferences.*m_bytes = stored.toByteArray();
    } else {
        acceptColour(preferences, stored);
    }
}

void PreferenceRow::setToDefault(Preferences& preferences) const
{
    accept(preferences, m_standard);
}

int PreferenceRow::clamped(int value) const
{
    return std::min(std::max(value, m_least), m_greatest);
}

void PreferenceRow::acceptInteger(Preferences& preferences, const QVariant& stored) const
{
    int number = 0;
    if (!wholeNumber(stored, number)) {
        return;
    }
    if (number != clamped(number)) {
        switch (m_rule) {
        case OutOfRange::Clamp: number = clamped(number); break;
        case OutOfRange::UseDefault: number = m_standard.toInt(); break;
        case OutOfRange::KeepCurrent: return;
        }
    }
    preferences.*m_integer = number;
}

void PreferenceRow::acceptColour(Preferences& preferences, const QVariant& stored) const
{
    QVariant colour = stored;
    const bool isUsable = colour.convert(QVariant::Color) && holdsColour(colour);
    preferences.*m_colour = isUsable ? colour.value<QColor>() : QColor();
}

void PreferenceRow::acceptString(Preferences& preferences, const QVariant& stored) const
{
    // A text with bare commas, as a person may write it into the file, arrives as a list.
    preferences.*m_string =
        stored.type() == QVariant::StringList ? stored.toStringList().join(QLatin1String(", ")) : stored.toString();
}
