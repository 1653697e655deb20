#include "settings/PreferenceRow.h"
#include "support/QtPrint.h"
#include "support/SettingsFixture.h"

#include <QDir>
#include <QFile>
#include <QSettings>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PreferencesTest : public SettingsFixture {
protected:
    QString path() const { return prefsDir() + QString("/tried%1.ini").arg(m_written); }

    // Every text gets a file of its own: settings files are cached by name, size and time.
    void write(const QByteArray& text)
    {
        ++m_written;
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    Preferences loaded(const QByteArray& text)
    {
        write(text);
        Preferences preferences;
        preferences.loadFrom(path());
        return preferences;
    }

private:
    int m_written = 0;
};

const PreferenceRow& row(const char* key)
{
    for (const PreferenceRow& candidate : Preferences::rows()) {
        if (qstrcmp(candidate.key(), key) == 0) {
            return candidate;
        }
    }
    throw std::invalid_argument(key);
}

// A value of the row's type that is accepted, and is not its default.
QVariant otherValue(const PreferenceRow& row)
{
    switch (row.standard().type()) {
    case QVariant::Bool: return !row.standard().toBool();
    case QVariant::Int:
        return row.clamped(row.standard().toInt() + 1) == row.standard().toInt() ? row.standard().toInt() - 1
                                                                                 : row.standard().toInt() + 1;
    case QVariant::String: return QString::fromUtf8("Ökonom, \"Sans\" = 日本; 100%");
    case QVariant::ByteArray: return QByteArray("\x00\xff\r\n,;=@", 8);
    default: return QColor(1, 2, 3, 4);
    }
}

/// While it lives, what the toolkit has to say about damaged files is no failure.
class IgnoredWarnings {
public:
    IgnoredWarnings() : m_before(qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {})) {}
    ~IgnoredWarnings() { qInstallMessageHandler(m_before); }

private:
    const QtMessageHandler m_before;
};

QByteArray everyKeySetTo(const QByteArray& value)
{
    QByteArray text;
    const char* group = "";
    for (const PreferenceRow& row : Preferences::rows()) {
        if (qstrcmp(group, row.group()) != 0) {
            group = row.group();
            text += QByteArray("[") + group + "]\n";
        }
        text += row.key() + ("=" + value) + "\n";
    }
    return text;
}

// As an editor saves it that writes two bytes for each letter.
QByteArray wide(const QByteArray& text)
{
    QByteArray bytes;
    for (const char letter : text) {
        bytes.append(letter).append('\0');
    }
    return bytes;
}

TEST_F(PreferencesTest, EveryValueComesBackFromTheFile)
{
    Preferences saved;
    for (const PreferenceRow& row : Preferences::rows()) {
        row.accept(saved, otherValue(row));
        ASSERT_NE(row.value(saved), row.standard()) << row.key();
    }
    saved.saveTo(path());

    Preferences loaded;
    loaded.loadFrom(path());
    for (const PreferenceRow& row : Preferences::rows()) {
        EXPECT_EQ(row.value(loaded), otherValue(row)) << row.group() << "/" << row.key();
    }
    EXPECT_EQ(QSettings(path(), QSettings::IniFormat).value("main/version").toInt(), 1);
}

TEST_F(PreferencesTest, OfTwoWhoSaveToOneFileTheLastOneHasAllOfIt)
{
    write("[tools]\npencilSize=77\nforgotten=1\n[abandoned]\nkey=1\n");
    Preferences first;
    Preferences last;
    first.setToolSize(ToolType::Pencil, 50);
    last.setMainMenuName("Last");
    EXPECT_TRUE(first.saveTo(path()));
    EXPECT_TRUE(last.saveTo(path()));

    Preferences loaded;
    loaded.loadFrom(path());
    for (const PreferenceRow& row : Preferences::rows()) {
        EXPECT_EQ(row.value(loaded), row.value(last)) << row.key();
    }
    EXPECT_EQ(QSettings(path(), QSettings::IniFormat).allKeys().size(), int(Preferences::rows().size()) + 1);
    EXPECT_EQ(QDir(prefsDir()).entryList({"tried*"}), QStringList(QFileInfo(path()).fileName()));
}

TEST_F(PreferencesTest, ASaveThatFailsKeepsTheOldFile)
{
    const QByteArray text = "[tools]\npencilSize=77\n";
    write(text);
    QFile inTheWay(path() + ".saving");
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    EXPECT_FALSE(Preferences().saveTo(path()));
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), text);
}

TEST_F(PreferencesTest, AFolderInPlaceOfTheFileIsLeftAlone)
{
    ASSERT_TRUE(QDir().mkpath(path() + "/kept"));
    Preferences preferences;
    preferences.setToolSize(ToolType::Pencil, 33);
    preferences.loadFrom(path());
    EXPECT_EQ(preferences.toolSize(ToolType::Pencil), 33);
    EXPECT_FALSE(preferences.saveTo(path()));
    EXPECT_TRUE(QFileInfo(path() + "/kept").isDir());
}

TEST_F(PreferencesTest, NumbersOutOfRangeFollowTheirRule)
{
    const struct {
        const char* key;
        QByteArray stored;
        int taken;
    } cases[] = {
        {"pencilSize", "0", 1},
        {"pencilSize", "-7", 1},
        {"textSize", "500", 100},
        {"lineSize", "80", 50},
        {"rectangleSize", "50", 50},
        {"eraserSize", "99999999999", 100},
        {"brushOpacity", "0", 1},
        {"lineOpacity", "101", 100},
        {"ghostPrevCount", "0", 3},
        {"ghostPrevCount", "12", 3},
        {"ghostPrevCount", "-1", 3},
        {"ghostNextCount", "9", 9},
        {"activeTool", "8", 8},
        {"activeTool", "9", 1},
        {"activeTool", "-1", 1},
        {"defaultLayerState", "2", 2},
        {"defaultLayerState", "3", 0},
        {"timelineFrameDisplay", "3", 0},
        {"timelineFrameDisplay", "2", 2},
        {"defaultStaticFrameTime", "-5000", -5000},
        {"pencilSize", "soft", 6},
        {"activeTool", "", 1},
        {"pencilSize", "nan", 6},
        {"pencilSize", "12.9", 12},
        {"defaultStaticFrameTime", "-1e30", std::numeric_limits<int>::min()},
    };
    for (const auto& c : cases) {
        const PreferenceRow& tried = row(c.key);
        const Preferences preferences = loaded(QByteArray("[") + tried.group() + "]\n" + c.key + "=" + c.stored + "\n");
        EXPECT_EQ(tried.value(preferences).toInt(), c.taken) << c.key << "=" << c.stored.constData();
    }
}

TEST_F(PreferencesTest, AMissingKeyKeepsTheValueInMemoryUnlessItsRowSaysOtherwise)
{
    Preferences preferences;
    for (const PreferenceRow& row : Preferences::rows()) {
        row.accept(preferences, otherValue(row));
    }
    write("[main]\nversion=1\n");
    preferences.loadFrom(path());

    QStringList backToDefault;
    for (const PreferenceRow& row : Preferences::rows()) {
        const bool isDefault = row.value(preferences) == row.standard();
        EXPECT_TRUE(isDefault || row.value(preferences) == otherValue(row)) << row.key();
        if (isDefault) {
            backToDefault << row.key();
        }
    }
    EXPECT_EQ(backToDefault,
              (QStringList{"ghostPrev", "ghostNext", "ghostPrevCount", "ghostNextCount", "defaultLayerState",
                           "automaticallyAddFirstLayer", "alwaysDisplayNewLayerDialog", "insertDefaultStaticFrame",
                           "defaultStaticFrameTime"}));
}

TEST_F(PreferencesTest, ValuesOfAnotherTypeAreReadAsFarAsTheyMakeSense)
{
    const Preferences preferences = loaded("[main]\nmainMenuName=Ink, Paint\n"
                                           "[tools]\nactiveColor=#ff8000\nghostColorOverridePrev=reddish\n"
                                           "brushTabletEnabled=0\ntextFontFamily=\"\"\n");
    EXPECT_EQ(preferences.mainMenuName(), QString("Ink, Paint"));
    EXPECT_EQ(preferences.activeColor(), QColor(255, 128, 0));
    EXPECT_FALSE(preferences.ghostColorOverridePrev().isValid());
    EXPECT_FALSE(preferences.isTabletEnabled(ToolType::Brush));
    EXPECT_EQ(preferences.textFontFamily(), QString(""));
}

TEST_F(PreferencesTest, AnythingMayStandInTheFile)
{
    QList<QByteArray> texts;
    const char kValues[] =
        R"(|some text|1, 2, 3|"", ""|@Invalid()|@Invalid|@Variant(garbage)|@Variant(\0\0\0\x43\x7f)|)"
        R"(@Variant(\0\0\0\b\xff\xff\xff\xfe)|@Variant(\0\0\0\x43\xff\xff\xff\0\0\xff\xff\xff\xff\0\0)|)"
        R"(@Variant(\0\0\0\t\x7f\xff\xff\xff)|@ByteArray(|@ByteArray(\x1\xd9\xd0\xcb\0\x3)|@Rect(1 2 3)|)"
        R"(@@|@|\|"unclosed|#ff8000|#12|nan|-inf|-1|0|1e400|99999999999999999999|-2147483649|0x10|1,5|)"
        R"(true|false)";
    for (const QByteArray& value : QByteArray(kValues).split('|')) {
        texts << everyKeySetTo(value);
    }
    const QByteArray whole = everyKeySetTo("7");
    texts << "" << whole + whole << everyKeySetTo("7").replace('\n', "\r\n") << "\xef\xbb\xbf" + whole
          << "\xff\xfe" + wide(whole) << QByteArray(whole).replace("[tools]\n", "") << "pencilSize=7\n"
          << "[tools\npencilSize=7\n"
          << "[]\n=\n[[]]\n"
          << everyKeySetTo(QByteArray(10 << 20, 'x')).left(10 << 20) << "[tools]\n" + QByteArray(1 << 20, '\\')
          << "[tools]\nactiveColor=@Variant(" + QByteArray("\\0\\0\\0\\t\\0\\0\\0\\x1").repeated(100000) + ")\n"
          << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0=[]\0", 21).repeated(1000);
    const IgnoredWarnings ignored;
    for (const QByteArray& text : texts) {
        const Preferences taken = loaded(text);
        EXPECT_TRUE(taken.saveTo(path()));
        Preferences again;
        again.loadFrom(path());
        for (const PreferenceRow& row : Preferences::rows()) {
            const QVariant value = row.value(taken);
            EXPECT_TRUE(value.type() != QVariant::Int || row.clamped(value.toInt()) == value.toInt())
                << text.left(200).toStdString() << row.key() << value.toInt();
            EXPECT_EQ(row.value(again), value) << text.left(200).toStdString() << row.key();
        }
    }
}

TEST_F(PreferencesTest, ALargeDamagedValueCostsNoOther)
{
    Preferences saved;
    saved.setActiveColor(QColor(1, 2, 3));
    saved.setMainMenuName(QString(10 << 20, QChar('x')) + ", x=@Variant(y), @Variant(z)");
    ASSERT_TRUE(saved.saveTo(path()));
    Preferences loaded;
    loaded.loadFrom(path());
    EXPECT_EQ(loaded.activeColor(), QColor(1, 2, 3));
    EXPECT_EQ(loaded.mainMenuName(), saved.mainMenuName());
}

TEST_F(PreferencesTest, UnusableHardnessFallsToTheFloorOfItsTool)
{
    Preferences p;
    const struct {
        ToolType tool;
        int set;
        int kept;
    } cases[] = {{ToolType::Brush, 101, 100},  {ToolType::Brush, -1, 10}, {ToolType::Brush, 5, 5},
                 {ToolType::Eraser, 101, 100}, {ToolType::Eraser, -1, 0}, {ToolType::Pencil, 5, 100}};
    for (const auto& c : cases) {
        p.setToolHardness(c.tool, c.set);
        EXPECT_EQ(p.toolHardness(c.tool), c.kept) << static_cast<int>(c.tool) << " " << c.set;
    }
}

TEST_F(PreferencesTest, OnlyFreehandToolsUsePenPressure)
{
    Preferences p;
    for (int tool = 0; tool <= 8; ++tool) {
        p.setTabletEnabled(static_cast<ToolType>(tool), true);
        EXPECT_EQ(p.isTabletEnabled(static_cast<ToolType>(tool)), tool <= 2) << tool;
    }
}

TEST_F(PreferencesTest, AnUnknownToolIsReportedAndChangesNothing)
{
    Preferences p;
    p.setToolSize(ToolType::Transform, 5);
    p.setToolOpacity(static_cast<ToolType>(-2), 5);
    EXPECT_THAT(errors(), ElementsAre("[Lumisketch2] Unknown tool type: 8", "[Lumisketch2] Unknown tool type: -2"));
    forgetLines();
    p.setToolHardness(ToolType::Transform, 5);
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(PreferencesTest, WithoutAPreferenceFolderNothingIsReadOrWritten)
{
    session().prefsDir.clear();
    Preferences::instance().setToolSize(ToolType::Pencil, 33);
    Preferences::instance().save();
    Preferences::instance().load();
    EXPECT_EQ(Preferences::instance().toolSize(ToolType::Pencil), 33);
    EXPECT_THAT(errors(), ElementsAre("[Lumisketch2] Failed to retrieve Maya prefs directory",
                                      "[Lumisketch2] Failed to retrieve Maya prefs directory"));
    EXPECT_FALSE(QFile::exists("lumisketch2.ini"));
}

}  // namespace
