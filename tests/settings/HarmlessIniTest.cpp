#include "settings/HarmlessIni.h"

#include "support/SettingsFixture.h"

#include <QFile>
#include <QSettings>
#include <QVariantMap>

namespace {

class HarmlessIniTest : public SettingsFixture {
protected:
    QVariant read(const QByteArray& text, const char* key)
    {
        QFile file(prefsDir() + QString("/read%1.ini").arg(++m_count));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        return QSettings(file.fileName(), QSettings::IniFormat).value(key);
    }

private:
    int m_count = 0;
};

// Every way in which an ini file can spell "@Variant(" and "@DateTime(", here with a size and a date.
TEST_F(HarmlessIniTest, ObjectsBecomeTextHoweverTheyAreSpelled)
{
    const QByteArray size = "\\0\\0\\0\\x16\\0\\0\\0\\x1\\0\\0\\0\\x2)";
    const QByteArray spellings[] = {
        "@Variant(" + size,          " \t@Variant(" + size,
        "\"@Variant(" + size + "\"", "@\"Vari\" ant(" + size,
        "\\x40Variant(" + size,      "\\x00040V\\x61riant(" + size,
        "\\x10040Variant(" + size,   "\\100Variant(" + size,
        "@\\qVariant(" + size,       "@Vari\\\nant(" + size,
        "@Vari\\\r\nant(" + size,    "@DateTime(\\0\\0\\0\\x10\\0\\0\\0\\0\\0%\\x82\\x9a\\x2\\xef\\xd4\\xc0\\0)",
    };
    for (const QByteArray& spelling : spellings) {
        const QByteArray text = "[g]\nbefore=7\nkey=" + spelling + "\nafter=text\n";
        EXPECT_NE(read(text, "g/key").type(), QVariant::String) << spelling.toStdString() << ": no object for Qt";
        const QByteArray harmless = harmlessIni(text);
        const QVariant value = withoutMarks(read(harmless, "g/key"));
        EXPECT_EQ(value.type(), QVariant::String) << spelling.toStdString();
        EXPECT_EQ(value.toString()[0], QChar('@')) << spelling.toStdString();
        EXPECT_EQ(read(harmless, "g/before").toInt(), 7) << spelling.toStdString();
        EXPECT_EQ(read(harmless, "g/after").toString(), QString("text")) << spelling.toStdString();
    }
    const QVariant list = withoutMarks(read(harmlessIni("[g]\nkey=one, @Variant(x)\n"), "g/key"));
    EXPECT_EQ(list.toStringList(), (QStringList{"one", "@Variant(x)"}));
    const QByteArray within("[g]\nkey=\"a,@Variant(\\0\\0\\0\\t), x=@Variant(e)\"\n");
    EXPECT_EQ(withoutMarks(read(harmlessIni(within), "g/key")), read(within, "g/key"));
    const QByteArray bytes("[g]\nkey=\"@ByteArray(=@Variant(\\0\\0\\0\\t)\"\n");
    EXPECT_EQ(withoutMarks(read(harmlessIni(bytes), "g/key")), read(bytes, "g/key"));
}

TEST_F(HarmlessIniTest, WhatIsNoSuchObjectStaysAsItIs)
{
    const QByteArray texts[] = {
        "",
        "@Variant(",
        "[g]\nkey=a @Variant(b)\nother=@@Variant(c)\nthird=\"@ Variant(d)\"\n",
        "[g]\ncolour=@Variant(\\0\\0\\0\\x43\\x1\\xff\\xff\\0\\0\\xff\\xff\\xff\\xff\\0\\0)\n",
        "[g]\nbytes=@ByteArray(\\x1\\xd9=\\xd0,\\xcb\\0)\nrect=@Rect(1 2 3 4)\nnothing=@Invalid()\n",
        "[g]\nkey=\\x40\nlast=\\",
    };
    for (const QByteArray& text : texts) {
        EXPECT_EQ(harmlessIni(text), text);
    }
}

}  // namespace
