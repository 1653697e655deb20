#include "settings/Messages.h"

#include "settings/Names.h"
#include "settings/Text.h"

#include <maya/MGlobal.h>

namespace messages {

namespace {

MString prefixed(const char* prefix, const QString& text)
{
    return toMString(QLatin1String(prefix) + text);
}

}  // namespace

void error(const QString& text)
{
    MGlobal::displayError(prefixed(names::kMessagePrefix, text));
}

void warning(const QString& text)
{
    MGlobal::displayWarning(prefixed(names::kMessagePrefix, text));
}

void info(const QString& text)
{
    MGlobal::displayInfo(prefixed(names::kMessagePrefix, text));
}

void debug(const QString& text)
{
    MGlobal::displayInfo(prefixed(names::kDebugPrefix, text));
}

void bareError(const QString& text)
{
    MGlobal::displayError(toMString(text));
}

}  // namespace messages
