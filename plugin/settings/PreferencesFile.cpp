#include "settings/Preferences.h"

#include "settings/FileReplacement.h"
#include "settings/HarmlessIni.h"
#include "settings/Messages.h"
#include "settings/PreferenceRow.h"
#include "settings/ScriptBridge.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryFile>

namespace {

constexpr char kFileName[] = "lumisketch2.ini";
constexpr char kVersionKey[] = "version";
constexpr char kVersionGroup[] = "main";
constexpr int kFileVersion = 1;

QString path(const PreferenceRow& row)
{
    return QLatin1String(row.group()) + QLatin1Char('/') + QLatin1String(row.key());
}

}  // namespace

QString Preferences::filePath()
{
    const QString folder = script::userPrefDir();
    if (folder.isEmpty()) {
        messages::error(QString("Failed to retrieve Maya prefs directory"));
        return QString();
    }
    return QFileInfo(folder + QLatin1Char('/') + QLatin1String(kFileName)).absoluteFilePath();
}

void Preferences::load()
{
    const QString path = filePath();
    if (!path.isEmpty()) {
        loadFrom(path);
    }
}

void Preferences::save() const
{
    const QString path = filePath();
    if (!path.isEmpty()) {
        saveTo(path);
    }
}

void Preferences::loadFrom(const QString& filePath)
{
    QFile given(filePath);
    const QByteArray text = given.open(QIODevice::ReadOnly) ? given.readAll() : QByteArray();
    const QByteArray harmless = harmlessIni(text);
    QTemporaryFile mended;
    const bool isMended = harmless != text && mended.open() && mended.write(harmless) == harmless.size();
    mended.close();
    if (harmless != text && !isMended) {
        return;
    }
    const QSettings file(isMended ? mended.fileName() : filePath, QSettings::IniFormat);
    for (const PreferenceRow& row : rows()) {
        const QString key = path(row);
        if (file.contains(key)) {
            row.accept(*this, withoutMarks(file.value(key)));
        } else if (row.takesDefaultWhenMissing()) {
            row.setToDefault(*this);
        }
    }
}

bool Preferences::saveTo(const QString& filePath) const
{
    return replaceFile(filePath, [this](const QString& name) {
        QSettings file(name, QSettings::IniFormat);
        file.setValue(QLatin1String(kVersionGroup) + QLatin1Char('/') + QLatin1String(kVersionKey), kFileVersion);
        for (const PreferenceRow& row : rows()) {
            file.setValue(path(row), row.value(*this));
        }
        file.sync();
        return file.status() == QSettings::NoError;
    });
}
