// The preferences file.

#include "FuzzHost.h"
#include "FuzzTarget.h"

#include "settings/PreferenceRow.h"

#include <QFile>

namespace {

/// A new one each time: settings files are cached by name, size and time.
QString newFileName()
{
    static int count = 0;
    return QString::fromStdString(fuzz::workFolder()) + QString("/%1.ini").arg(++count);
}

void write(const QString& name, const QByteArray& text)
{
    QFile file(name);
    fuzz::require(file.open(QIODevice::WriteOnly) && file.write(text) == text.size(), "the work folder can be used");
}

Preferences loaded(const QString& name)
{
    Preferences preferences;
    preferences.loadFrom(name);
    return preferences;
}

void requireSameInRange(const Preferences& preferences, const Preferences& again)
{
    for (const PreferenceRow& row : Preferences::rows()) {
        const QVariant value = row.value(preferences);
        fuzz::require(value.type() != QVariant::Int || row.clamped(value.toInt()) == value.toInt(), row.key());
        fuzz::require(value == row.value(again), row.key());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::session();
    const QString name = newFileName();
    write(name, QByteArray(reinterpret_cast<const char*>(bytes), static_cast<int>(size)));
    const Preferences preferences = loaded(name);
    QFile::remove(name);
    const QString saved = newFileName();
    fuzz::require(preferences.saveTo(saved), "preferences can be saved");
    requireSameInRange(preferences, loaded(saved));
    QFile::remove(saved);
    return 0;
}

std::vector<QByteArray> seeds()
{
    fuzz::session();
    const QString name = newFileName();
    Preferences preferences;
    preferences.setMainMenuName(QString::fromUtf8("\"Ö\", \\x1 日本"));
    preferences.setToolboxGeometry(QByteArray("\x01\xd9\xd0\xcb\0\x03\0\0", 8));
    preferences.saveTo(name);
    QFile file(name);
    file.open(QIODevice::ReadOnly);
    return {file.readAll(), "[tools]\npencilSize=0x7\nactiveColor=#12345678\ntextFontFamily=a, \"b\", @Rect(1 2 3 4)\n",
            "[main]\nmainMenuName=@Invalid()\ntoolboxGeometry=@Variant(\\0\\0\\0\\t\\0\\0\\0\\x1\\0\\0\\0\\x2\\0)\n"};
}
