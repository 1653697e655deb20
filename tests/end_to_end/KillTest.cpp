// The program killed at any moment while it saves.

#include "support/BatchFixture.h"
#include "support/Dice.h"
#include "support/SceneText.h"

#include <QBuffer>
#include <QThread>

#include <cstdio>

namespace {

struct SceneForm {
    const char* type;
    const char* suffix;
};

void PrintTo(const SceneForm& form, std::ostream* out)
{
    *out << form.type;
}

// A program with sanitizers takes seconds to start.
#ifdef __SANITIZE_ADDRESS__
constexpr int kKills = 15;
#else
constexpr int kKills = 100;
#endif

class KilledWhileSaving : public BatchFixture, public testing::WithParamInterface<SceneForm> {
protected:
    const QString target = QString("shot") + GetParam().suffix;

    /// Noise, which takes time to write.
    static QByteArray pictureText()
    {
        Dice dice(7);
        QImage image(400, 400, QImage::Format_RGBA8888);
        for (int i = 0; i < int(image.sizeInBytes()); ++i) {
            image.bits()[i] = static_cast<uchar>(dice.between(0, 255));
        }
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG");
        return png.toHex();
    }

    /// A scene with two drawn frames, start.ma.
    void makeScene()
    {
        write("first.ma", "//Maya ASCII 2019 scene\n"
                          "createNode tqLumisketch;\n"
                          "setAttr \".ld\" -type \"tqLayerData\" 1 1 \"persp\" 1 \"persp\" 1 0 \"Ink\" 2 1 1 0 1 \""
                              + pictureText() + "\" 5 \"" + pictureText() + "\";\n");
        const Outcome made = run({"-file", path("first.ma"), "-command", save("start.ma")});
        ASSERT_EQ(made.status, 0) << made.output.toStdString();
        ASSERT_EQ(support::framePictures(read("start.ma")).size(), 2);
    }

    static QString change(int version) { return QString("setAttr persp.tx %1; ").arg(version); }

    /// The file as an undisturbed program saves it.
    QByteArray saved(int version)
    {
        QFile::remove(path(target));
        const Outcome done =
            run({"-file", path("start.ma"), "-command", change(version) + save(target, GetParam().type)});
        EXPECT_EQ(done.status, 0) << done.output.toStdString();
        return read(target);
    }

    void expectOpensWhole()
    {
        const Outcome opened = run({"-file", path(target), "-command", save("check.ma")});
        EXPECT_EQ(opened.status, 0) << opened.output.toStdString();
        EXPECT_EQ(support::framePictures(read("check.ma")), support::framePictures(read("start.ma")));
    }

    int leftovers() const { return QDir(path("."), target + ".*").entryList(QDir::Files | QDir::Hidden).size(); }
};

TEST_P(KilledWhileSaving, TheFileIsTheOldOrTheNewVersion)
{
    constexpr int kLongestWait = 60;  // milliseconds, several saves
    makeScene();
    const QByteArray versions[] = {saved(1), saved(2)};
    ASSERT_FALSE(versions[0].isEmpty());
    ASSERT_NE(versions[0], versions[1]);
    expectOpensWhole();
    write("loop.mel", ("file -f -o \"" + path("start.ma") + "\"; " + change(1) + save(target, GetParam().type)
                       + "print \"saving\\n\"; for (;;) { " + change(1) + "file -save; " + change(2) + "file -save; }")
                          .toUtf8());

    Dice dice(1);
    int hits = 0;
    int seen[2] = {};
    for (int i = 0; i < kKills; ++i) {
        QProcess process;
        start(process, {"-script", path("loop.mel")});
        while (!process.peek(1 << 16).contains("saving")) {
            ASSERT_TRUE(process.waitForReadyRead()) << process.readAll().toStdString();
        }
        QThread::usleep(static_cast<unsigned long>(dice.between(0, kLongestWait * 1000)));
        process.kill();
        process.waitForFinished();
        const QByteArray found = read(target);
        ASSERT_TRUE(found == versions[0] || found == versions[1]) << "kill " << i << ", " << found.size() << " bytes";
        ++seen[found == versions[1]];
        hits += leftovers() > 0;
        ASSERT_LE(leftovers(), 1);
    }
    std::printf("%d kills, %d of them while a file was written; found the versions %d and %d times\n", kKills, hits,
                seen[0], seen[1]);
    EXPECT_GT(hits, 0);
    saved(2);
    EXPECT_EQ(leftovers(), 0);
    expectOpensWhole();
}

INSTANTIATE_TEST_SUITE_P(Forms, KilledWhileSaving,
                         testing::Values(SceneForm{"mayaAscii", ".ma"}, SceneForm{"mayaBinary", ".mb"}),
                         [](const auto& form) { return form.param.type; });

}  // namespace
