// The program in a country that writes numbers with a comma.

#include "support/BatchFixture.h"
#include "support/GermanLocale.h"

#include <QRegularExpression>

namespace {

class Locale : public BatchFixture {
protected:
    void SetUp() override
    {
        if (!makeGermanLocale(path("."))) {
            GTEST_SKIP() << "localedef cannot make " << kGermanLocale << "; Debian has its sources in 'locales'";
        }
        setEnvironment("LOCPATH", path("."));
    }

    void use(const char* locale) { setEnvironment("LC_ALL", locale); }

    /// What the program makes of the scene in start.ma; every file that it leaves.
    QByteArray results()
    {
        write("prefs/lumisketch2.ini", "[tools]\npencilSize=33\nactiveColor=#40ff8000\ntextFontFamily=\"a,b\"\n"
                                       "[preferences]\ndefaultStaticFrameTime=-1234567\n");
        write("numbers.mel", "setAttr persp.tx 1234567.25; setAttr perspShape.focalLength (50 * 0.7);\n"
                             "optionVar -fv tried 0.125;\n"
                             "print ((1234567.25 + `getAttr persp.tx`) + \" \" + (float)\"2.5\" + \"\\n\");\n"
                             "currentTime 3.5; print (`currentTime -q`);\n");
        const Outcome outcome =
            run({"-file", path("start.ma"), "-script", path("numbers.mel"), "-command", save("out.ma")});
        EXPECT_EQ(outcome.status, 0) << outcome.output.toStdString();
        const QString said = QString(outcome.output).remove(QRegularExpression("File read in .*\n"));  // and how long
        QByteArray all = said.toUtf8() + read("out.ma");
        for (const QFileInfo& file : QDir(path("prefs")).entryInfoList(QDir::Files, QDir::Name)) {
            all += "\n== " + file.fileName().toUtf8() + '\n' + read("prefs/" + file.fileName());
        }
        return all;
    }
};

TEST_F(Locale, ChangesNothingThatIsWrittenOrRead)
{
    use("C");
    ASSERT_EQ(command("tqLumisketchNode -l -c persp -ln \"Tusche\" -ls 1 -f; setAttr persp.ty 0.1; " + save("start.ma"))
                  .status,
              0);
    QByteArray start = read("start.ma");
    ASSERT_TRUE(start.contains("\"Tusche\" 1 1 1 1"));
    write("start.ma", start.replace("\"Tusche\" 1 1 1 1", "\"Tusche\" 1 1 0.375 1"));
    const QByteArray plain = results();
    const QByteArray plainScene = read("out.ma");
    ASSERT_TRUE(plainScene.contains("0.375") && plainScene.contains("1234567.25"))
        << plainScene.right(2000).toStdString();

    use(kGermanLocale);
    EXPECT_EQ(results().toStdString(), plain.toStdString());
    EXPECT_EQ(command("file -f -o \"" + path("out.ma") + "\"; file -save").status, 0);
    EXPECT_EQ(read("out.ma"), plainScene);
    use("C");
    EXPECT_EQ(command("file -f -o \"" + path("out.ma") + "\"; file -save").status, 0);
    EXPECT_EQ(read("out.ma"), plainScene);
}

}  // namespace
