#pragma once

#include <QByteArray>
#include <QVariant>

/// The text of an ini file in which every value that stands for an object, other than a colour, is made a plain text.
/// Qt makes such objects of any of its types while it reads, and damaged ones can take all memory or crash it. What is
/// made of a value is marked, and so is what looks the same within one.
QByteArray harmlessIni(const QByteArray& text);
/// A value that was read from such a text, as it was.
QVariant withoutMarks(const QVariant& value);
