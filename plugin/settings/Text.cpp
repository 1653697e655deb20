#include "settings/Text.h"

QString toQString(const MString& text)
{
    int length = 0;
    const char* bytes = text.asUTF8(length);
    return QString::fromUtf8(bytes, length);
}

MString toMString(const QString& text)
{
    MString result;
    result.setUTF8(text.toUtf8().constData());
    return result;
}
