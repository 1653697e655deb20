#pragma once

#include <QString>

/// What the user reads in the host's message line and script editor, each with the plug-in's prefix.
namespace messages {

void error(const QString& text);
void warning(const QString& text);
void info(const QString& text);
void debug(const QString& text);  ///< an info line with the debug prefix instead

/// An error without any prefix, as loading and unloading the module report.
void bareError(const QString& text);

}  // namespace messages
