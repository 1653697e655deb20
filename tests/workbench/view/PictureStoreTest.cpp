#include "view/PictureStore.h"

#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using view::PictureStore;
using State = PictureStore::State;

namespace {

class PictureStoreTest : public testing::Test {
protected:
    std::string path(const char* name) const { return folder.filePath(name).toStdString(); }
    /// A picture of one colour; ten times ten pixels are 400 bytes.
    std::string write(const char* name, const QColor& colour, const QSize& size = QSize(10, 10)) const
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        EXPECT_TRUE(image.save(folder.filePath(name)));
        return path(name);
    }
    /// Gives the file a time of change of its own, some seconds after the beginning of 2020.
    void setWritten(const std::string& name, int seconds) const
    {
        QFile file(QString::fromStdString(name));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime(QDate(2020, 1, 1), QTime(0, 0)).addSecs(seconds),
                                     QFileDevice::FileModificationTime));
    }
    static bool holds(PictureStore& store, const std::string& name)
    {
        return store.readyPicture(name).state == State::Ready;
    }

    QTemporaryDir folder;
};

}  // namespace

TEST_F(PictureStoreTest, ReadsByContentAndSaysWhatItCouldNot)
{
    PictureStore store;
    const PictureStore::Picture red = store.picture(write("red.jpg", Qt::red), 1);
    EXPECT_EQ(red.state, State::Ready);
    EXPECT_EQ(red.image.format(), QImage::Format_RGBA8888);
    QFile::copy(QString::fromStdString(write("a.png", Qt::blue)), folder.filePath("named.jpg"));
    EXPECT_EQ(store.picture(path("named.jpg"), 1).image.pixelColor(0, 0), QColor(Qt::blue));
    QFile text(QString::fromStdString(path("text.png")));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no picture");
    text.close();
    EXPECT_EQ(store.picture(path("text.png"), 1).state, State::Unreadable);
    EXPECT_EQ(store.picture(path("absent.png"), 1).state, State::Missing);
    EXPECT_EQ(store.picture(folder.path().toStdString(), 1).state, State::Missing) << "a folder";
}

TEST_F(PictureStoreTest, PicturesThatAreTooLargeAreScaledDown)
{
    PictureStore store;
    EXPECT_EQ(store.picture(write("wide.png", Qt::red, QSize(8192, 2)), 1).image.size(), QSize(4096, 1));
    EXPECT_EQ(store.picture(write("line.png", Qt::red, QSize(1, 9000)), 1).image.size(), QSize(1, 4096));
}

TEST_F(PictureStoreTest, ThoseNotAskedForTheLongestGoFirst)
{
    PictureStore store(1000);
    const std::string a = write("a.png", Qt::red), b = write("b.png", Qt::green), c = write("c.png", Qt::blue);
    store.picture(a, 1);
    store.picture(b, 1);
    EXPECT_EQ(store.bytes(), 800u);
    EXPECT_TRUE(holds(store, a));
    store.picture(c, 1);
    EXPECT_EQ(store.bytes(), 800u);
    EXPECT_TRUE(holds(store, a));
    EXPECT_FALSE(holds(store, b));
    const std::string large = write("large.png", Qt::red, QSize(40, 40));
    EXPECT_EQ(store.picture(large, 1).state, State::Ready) << "the one that is shown stays, however large";
    EXPECT_EQ(store.bytes(), 6400u);
    store.picture(a, 1);
    EXPECT_EQ(store.bytes(), 400u);
}

TEST_F(PictureStoreTest, AFileWrittenAnewIsReadAgainAtAnotherMoment)
{
    PictureStore store;
    const std::string name = write("a.png", Qt::red);
    setWritten(name, 0);
    store.picture(name, 1);
    write("a.png", Qt::blue);
    setWritten(name, 60);
    EXPECT_EQ(store.picture(name, 1).image.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(store.picture(name, 2).image.pixelColor(0, 0), QColor(Qt::blue));
    EXPECT_EQ(store.bytes(), 400u);
    QFile::remove(QString::fromStdString(name));
    EXPECT_EQ(store.picture(name, 3).state, State::Missing);
    EXPECT_EQ(store.bytes(), 0u);
    write("a.png", Qt::green);
    EXPECT_EQ(store.picture(name, 4).image.pixelColor(0, 0), QColor(Qt::green));
    // As one frame of a sequence is asked for, whenever its time comes again.
    write("a.png", Qt::red);
    setWritten(name, 120);
    store.picture(write("b.png", Qt::red), 5);
    EXPECT_EQ(store.picture(name, 4).image.pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(PictureStoreTest, DecodesAheadWhatIsStillWanted)
{
    PictureStore store;
    const std::string a = write("a.png", Qt::red), b = write("b.png", Qt::green), c = write("c.png", Qt::blue);
    int owner = 0, other = 0;
    EXPECT_FALSE(holds(store, a));
    store.prepare(&owner, {a, path("absent.png")});
    store.prepare(&other, {b, b});
    store.finish();
    EXPECT_TRUE(holds(store, a));
    EXPECT_TRUE(holds(store, b));
    EXPECT_EQ(store.readyPicture(path("absent.png")).state, State::Missing);
    EXPECT_EQ(store.bytes(), 800u);
    store.prepare(&owner, {c});
    store.clear();
    EXPECT_FALSE(holds(store, c));
    EXPECT_EQ(store.bytes(), 0u);
}

TEST_F(PictureStoreTest, AskingAndDecodingAheadGoTogether)
{
    PictureStore store(2000);
    std::vector<std::string> names;
    for (int i = 0; i < 12; ++i) {
        names.push_back(write(("p" + std::to_string(i) + ".png").c_str(), QColor(20 * i, 0, 0)));
    }
    for (int round = 0; round < 20; ++round) {
        for (std::size_t i = 0; i < names.size(); ++i) {
            store.prepare(&store, {names[(i + 1) % 12], names[(i + 2) % 12], names[(i + 3) % 12]});
            EXPECT_EQ(store.picture(names[i], round).image.pixelColor(5, 5).red(), 20 * int(i));
            EXPECT_LE(store.bytes(), 2000u);
        }
    }
}
