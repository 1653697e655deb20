#pragma once

#include <maya/MString.h>

#include <QString>

/// The one way between the host's strings and Qt's: UTF-8, whatever the process locale.
QString toQString(const MString& text);
MString toMString(const QString& text);
