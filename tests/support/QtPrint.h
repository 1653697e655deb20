#pragma once

#include <QByteArray>
#include <QString>

#include <ostream>

// How Qt's values read in a failed expectation; found by their argument's namespace.

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out)
{
    *out << '"' << bytes.left(200).toPercentEncoding(" \"[]{}(),;:=/").constData() << '"';
}
