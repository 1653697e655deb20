// A host that has set the process to its user's country.

#include "support/GermanLocale.h"
#include "support/NodeFixture.h"

#include <QFile>
#include <QTemporaryDir>

#include <clocale>
#include <locale>

namespace {

class LocaleTest : public NodeFixture {
protected:
    void SetUp() override
    {
        if (!makeGermanLocale(m_folder.path())) {
            GTEST_SKIP() << "localedef cannot make " << kGermanLocale << "; Debian has its sources in 'locales'";
        }
        qputenv("LOCPATH", m_folder.path().toUtf8());
    }
    ~LocaleTest() override
    {
        usePlain();
        qunsetenv("LOCPATH");
    }

    static void useGerman() { std::locale::global(std::locale(kGermanLocale)); }
    static void usePlain()
    {
        std::locale::global(std::locale::classic());
        std::setlocale(LC_ALL, "C.UTF-8");
    }

    std::string path(const char* name) const { return m_folder.filePath(name).toStdString(); }
    QByteArray content(const char* name) const
    {
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void makeDrawing()
    {
        for (const double frames : {1.0, 1234.5, -2000.0}) {
            auto layer = std::make_unique<Layer>();
            layer->setName("Tusche");
            layer->setOpacity(0.375f);
            layer->insertFrame(std::make_unique<Frame>(MTime(frames, MTime::uiUnit())));
            layer->insertFrame(std::make_unique<Frame>(MTime(frames + 20000, MTime::uiUnit())));
            node();
            drawing().insertLayer("persp", -1, std::move(layer));
        }
        EXPECT_TRUE(run("setAttr persp.tx 1234567.25; currentTime 12345.5;"));
    }

    void save(const char* scene, const char* preferences)
    {
        EXPECT_TRUE(run("file -rename \"" + path("scene.ma") + "\"; file -save -type \"mayaAscii\""));
        QFile::remove(m_folder.filePath(scene));
        QFile::rename(m_folder.filePath("scene.ma"), m_folder.filePath(scene));
        Preferences written;
        written.setDefaultStaticFrameTime(-1234567);
        written.setActiveColor(QColor(1, 2, 3, 4));
        EXPECT_TRUE(written.saveTo(m_folder.filePath(preferences)));
    }

    QString opened(const char* scene, const char* preferences)
    {
        EXPECT_TRUE(run("file -f -o \"" + path(scene) + "\""));
        Preferences read;
        read.loadFrom(m_folder.filePath(preferences));
        forgetLines();
        EXPECT_TRUE(
            run("print (`getAttr persp.tx` + \" \" + `currentTime -q` + \" \" + (float)\"2.5\" + \" \" + 0.125)"));
        return describeDrawing() + QString::fromStdString(said(kernel::Severity::Plain).front())
             + QString::number(read.defaultStaticFrameTime()) + read.activeColor().name(QColor::HexArgb);
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(LocaleTest, ScenesRecordsScriptsAndPreferencesAreTheSameInEveryCountry)
{
    makeDrawing();
    save("plain.ma", "plain.ini");
    useGerman();
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    save("german.ma", "german.ini");
    EXPECT_EQ(content("german.ma"), content("plain.ma"));
    EXPECT_EQ(content("german.ini"), content("plain.ini"));

    const QString german = opened("plain.ma", "plain.ini");
    usePlain();
    EXPECT_EQ(opened("german.ma", "german.ini"), german);
    EXPECT_TRUE(german.contains("1234567.25 12345.5 2.5 0.125")) << german.right(200).toStdString();
    EXPECT_TRUE(german.contains("Tusche 0.38")) << german.left(200).toStdString();
}

}  // namespace
