#include "settings/Preferences.h"

#include "settings/FileReplacement.h"
#include "settings/Messages.h"
#include "settings/PreferenceRow.h"
#include "settings/ScriptBridge.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <new>

namespace {

constexpr char kFileName[] = "lumisketch2.ini";
constexpr char kVersionKey[] = "version";
constexpr char kVersionGroup[] = "main";
constexpr int kFileVersion = 1;

QString path(const PreferenceRow& row)
{
    return QLatin1String(row.group()) + QLatin1Char('/') + QLatin1String(row.key());
}

// Elsewhere in a value the same letters are text.
bool beginsValue(const QByteArray& text, int at)
{
    int before = at - 1;
    while (before >= 0 && (text[before] == ' ' || text[before] == '\t' || text[before] == '"')) {
        --before;
    }
    return before >= 0 && (text[before] == '=' || text[before] == ',');
}

// Whether reading could take the whole stack: a value in Qt's variant form may hold others, however deep, and is read
// by recursion. Ours are colours, in a file of a few kilobytes; what nests deep is large.
bool mayNestTooDeep(const QString& filePath)
{
    constexpr qint64 kHarmlessSize = 1 << 15;
    const QByteArray variant("@Variant(");
    const QByteArray colour("\\0\\0\\0\\x43");
    QFile file(filePath);
    if (file.size() <= kHarmlessSize || !file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QByteArray text = file.readAll();
    for (int at = text.indexOf(variant); at >= 0; at = text.indexOf(variant, at + 1)) {
        if (beginsValue(text, at) && text.mid(at + variant.size(), colour.size()) != colour) {
            return true;
        }
    }
    return false;
}

// False when the key is missing. So are all of a group in which a damaged value claims to be a list that no memory can
// hold: Qt reads a group at once, and takes the memory first.
bool findValue(const QSettings& file, const QString& key, QVariant& value)
{
    try {
        value = file.value(key);
        return file.contains(key);
    } catch (const std::bad_alloc&) {
        return false;
    }
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
    const QSettings file(mayNestTooDeep(filePath) ? QString() : filePath, QSettings::IniFormat);
    for (const PreferenceRow& row : rows()) {
        QVariant stored;
        if (findValue(file, path(row), stored)) {
            row.accept(*this, stored);
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
