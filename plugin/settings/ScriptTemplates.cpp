#include "settings/ScriptTemplates.h"

#include "settings/ScriptBridge.h"

namespace script {

QString filled(const Template& row, const QStringList& values)
{
    const QString text = QLatin1String(row.text);
    QString result = QLatin1String(row.command);
    for (int i = 0; i < text.size(); ++i) {
        if (text[i] == QLatin1Char('%') && i + 1 < text.size() && text[i + 1].isDigit()) {
            ++i;
            result += values.value(text[i].digitValue() - 1);
        } else {
            result += text[i];
        }
    }
    return result;
}

bool run(const Template& row, const QStringList& values)
{
    return MGlobal::executeCommand(toMString(filled(row, values)), row.display, row.undo);
}

bool runDeferred(const Template& row)
{
    return run(templates::kDeferred, {quoted(filled(row))});
}

}  // namespace script
