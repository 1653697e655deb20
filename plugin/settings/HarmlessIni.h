#pragma once

#include <QByteArray>

/// The text of an ini file in which every value that stands for an object, other than a colour, is made a plain text.
/// Qt makes such objects of any of its types while it reads, and damaged ones can take all memory or crash it.
QByteArray harmlessIni(const QByteArray& text);
