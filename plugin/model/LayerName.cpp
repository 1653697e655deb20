#include "model/LayerName.h"

QString recordableName(const QString& name)
{
    QString result;
    for (const QChar c : name) {
        if (c == QLatin1Char('"')) {
            result += QLatin1Char('\'');
        } else if (c == QLatin1Char('\\')) {
            result += QLatin1Char('/');
        } else if (c.category() != QChar::Other_Control) {
            result += c;
        }
    }
    return result;
}
