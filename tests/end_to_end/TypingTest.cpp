// What real keys do while the draw tool is in force: text, and the keys that are held for a drag.

#include "support/LiveWorkbench.h"
#include "support/QtPrint.h"
#include "support/SceneText.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using support::LiveWorkbench;

namespace {

const char kProgram[] = LUMISKETCH_BIN "/lumisketch-workbench";

/// The keyboard of a layout, for as long as this lives.
class Keyboard {
public:
    explicit Keyboard(const QString& layout) { QProcess::execute("setxkbmap", {layout}); }
    ~Keyboard() { QProcess::execute("setxkbmap", {"us"}); }
};

bool contains(const QImage& whole, const QImage& part)
{
    for (int y = 0; y < part.height(); ++y) {
        for (int x = 0; x < part.width(); ++x) {
            if (qAlpha(part.pixel(x, y)) > 0 && qAlpha(whole.pixel(x, y)) == 0) {
                return false;
            }
        }
    }
    return true;
}

int strongestAlpha(const QImage& picture)
{
    int strongest = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            strongest = qMax(strongest, qAlpha(picture.pixel(x, y)));
        }
    }
    return strongest;
}

class RealKeys : public testing::Test {
protected:
    RealKeys() : m_keyboard("de"), m_host(kProgram, {"-prefs", m_folder.path(), "-command", "setToolTo `tqLmDrawCtx`"})
    {
        m_host.run("window -e -widthHeight 480 380 $gMainWindow; tqLumisketchUtil -pencilTool;"
                   "tqLumisketchUtil -pencilOptions 10 100 0; tqLumisketchUtil -textOptions 40 100 \"DejaVu Sans\"");
        m_host.settle();
    }
    void TearDown() override { EXPECT_TRUE(m_host.isRunning()) << m_host.output().toStdString(); }

    LiveWorkbench& host() { return m_host; }
    QPoint inView(int x, int y) { return m_host.viewRect().topLeft() + QPoint(x, y); }
    void keys(const QString& verb, const QStringList& names)
    {
        QProcess::execute("xdotool", QStringList(verb) + names);
        m_host.settle();
    }

    /// What the first frame of the scene holds; null without one.
    QImage picture()
    {
        const QString path = m_folder.filePath("now.ma");
        QFile::remove(path);
        m_host.run(QString("file -rename \"%1\"; file -save -type \"mayaAscii\"").arg(path));
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? support::framePictures(file.readAll()).value(0) : QImage();
    }
    /// What a text of these keys leaves, which goes again.
    QImage typed(const QStringList& names)
    {
        m_host.run("tqLumisketchUtil -textTool");
        m_host.click(inView(60, 60));
        keys("key", names + QStringList("Escape"));
        const QImage text = picture();
        m_host.run("undo");
        return text;
    }

private:
    const Keyboard m_keyboard;
    QTemporaryDir m_folder;
    LiveWorkbench m_host;
};

}  // namespace

TEST_F(RealKeys, SayWhatATextReads)
{
    const QImage text = typed({"shift+h", "i"});
    ASSERT_GT(support::inkPixels(text), 0);
    const QStringList same[] = {
        {"H", "x", "BackSpace", "i"},
        {"BackSpace", "H", "i"},
        {"H", "Return", "BackSpace", "i"},
        {"H", "ctrl+z", "F5", "i", "Left", "Delete", "ctrl+n"},
        {"H", "i", "b", "M", "BackSpace", "BackSpace"},
    };
    for (const QStringList& names : same) {
        EXPECT_EQ(typed(names), text) << names.join(' ').toStdString();
    }
    const QStringList other[] = {{"h", "i"}, {"H", "i", "M"}, {"H", "Return", "i"}, {"H", "i", "ssharp"}};
    for (const QStringList& names : other) {
        EXPECT_NE(typed(names), text) << names.join(' ').toStdString();
    }
}

TEST_F(RealKeys, GiveLettersTheirAccents)
{
    const struct {
        QStringList accented;
        QStringList plain;
    } cases[] = {
        {{"adiaeresis"}, {"a"}}, {{"Udiaeresis"}, {"U"}}, {{"dead_acute", "e"}, {"e"}}, {{"dead_grave", "A"}, {"A"}}};
    for (const auto& c : cases) {
        const QImage accented = typed(c.accented);
        const QImage plain = typed(c.plain);
        EXPECT_TRUE(contains(accented, plain)) << c.accented.join(' ').toStdString();
        EXPECT_FALSE(contains(plain, accented)) << c.accented.join(' ').toStdString();
    }
}

TEST_F(RealKeys, HeldForDragsChangeSizeAndOpacityAndNothingElse)
{
    const auto stroke = [this] { host().drag(support::line(inView(60, 120), inView(160, 120))); };
    stroke();
    const QImage plain = picture();
    host().run("undo");
    // At this pace the keyboard repeats the key long before the end, which must not let go of it for the second drag.
    const QVector<QPoint> slowly = support::line(inView(200, 100), inView(100, 100), 2);
    for (const char* key : {"m", "b"}) {
        keys("keydown", {key});
        host().drag(slowly, 20);
        host().drag(support::line(inView(100, 100), inView(150, 100)));
        keys("keyup", {key});
        EXPECT_TRUE(picture().isNull()) << "nothing is drawn with the key " << key;
    }
    stroke();
    const QImage changed = picture();
    EXPECT_LT(support::inkPixels(changed), support::inkPixels(plain));
    EXPECT_EQ(strongestAlpha(plain), 255);
    EXPECT_EQ(strongestAlpha(changed), 255 * 95 / 100);
}
