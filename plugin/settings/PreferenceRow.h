#pragma once

#include "settings/Preferences.h"

#include <QVariant>

/// What happens to a whole number read from the file that lies outside its range. Negative numbers lie outside.
enum class OutOfRange { Clamp, KeepCurrent, UseDefault };

/// One key of the preferences file: where it stands, what it means, what is accepted.
class PreferenceRow {
public:
    enum Missing { KeepsCurrent, TakesDefault };

    PreferenceRow(const char* group, const char* key, bool Preferences::*member, bool standard,
                  Missing missing = KeepsCurrent);
    PreferenceRow(const char* group, const char* key, QString Preferences::*member, const QString& standard);
    PreferenceRow(const char* group, const char* key, QByteArray Preferences::*member);
    PreferenceRow(const char* group, const char* key, QColor Preferences::*member, const QColor& standard);
    /// Any whole number is accepted.
    PreferenceRow(const char* group, const char* key, int Preferences::*member, int standard,
                  Missing missing = KeepsCurrent);
    /// Numbers outside least..greatest, both included, are dealt with by rule.
    PreferenceRow(const char* group, const char* key, int Preferences::*member, int standard, int least, int greatest,
                  OutOfRange rule, Missing missing = KeepsCurrent);

    const char* group() const { return m_group; }
    const char* key() const { return m_key; }
    const QVariant& standard() const { return m_standard; }
    bool takesDefaultWhenMissing() const { return m_missing == TakesDefault; }

    QVariant value(const Preferences& preferences) const;
    /// Takes a value as the file gave it. What cannot be understood as the row's type is not taken; a colour that
    /// cannot be understood becomes an invalid one.
    void accept(Preferences& preferences, const QVariant& stored) const;
    void setToDefault(Preferences& preferences) const;

    /// The value with the row's range applied; only for rows of whole numbers.
    int clamped(int value) const;
    bool isAbout(int Preferences::*member) const { return m_integer == member; }

private:
    PreferenceRow(const char* group, const char* key, const QVariant& standard, Missing missing);
    void acceptInteger(Preferences& preferences, const QVariant& stored) const;
    void acceptColour(Preferences& preferences, const QVariant& stored) const;
    void acceptString(Preferences& preferences, const QVariant& stored) const;

    const char* m_group;
    const char* m_key;
    QVariant m_standard;
    Missing m_missing;
    bool Preferences::*m_boolean = nullptr;
    int Preferences::*m_integer = nullptr;
    QString Preferences::*m_string = nullptr;
    QByteArray Preferences::*m_bytes = nullptr;
    QColor Preferences::*m_colour = nullptr;
    int m_least;
    int m_greatest;
    OutOfRange m_rule = OutOfRange::Clamp;
};
