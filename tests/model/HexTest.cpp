#include "model/Hex.h"
#include "model/CpuFeatures.h"
#include "support/Dice.h"

#include <gtest/gtest.h>

#include <QByteArray>

namespace {

// The digits are written and read alike, by the portable loops and by those of the processor.
class HexTest : public testing::TestWithParam<bool> {
protected:
    HexTest() { allowAvx2(GetParam()); }
    ~HexTest() override { allowAvx2(true); }

    static QByteArray encoded(const QByteArray& bytes)
    {
        QByteArray text(2 * bytes.size(), Qt::Uninitialized);
        encodeHex(text.data(), bytes.constData(), bytes.size());
        return text;
    }
    static QByteArray decoded(const QByteArray& text) { return decodeHex(text.constData(), text.size()); }

    QByteArray anyBytes(int count)
    {
        QByteArray bytes(count, 0);
        for (char& byte : bytes) {
            byte = static_cast<char>(m_dice.between(0, 255));
        }
        return bytes;
    }

    Dice m_dice{7};
};

INSTANTIATE_TEST_SUITE_P(Loops, HexTest, testing::Bool(),
                         [](const auto& info) { return info.param ? "OfTheProcessor" : "Portable"; });

TEST_P(HexTest, BytesOfAnyLengthAreWrittenAndReadAsQtDoes)
{
    for (int length = 0; length < 200; ++length) {
        const QByteArray bytes = anyBytes(length);
        ASSERT_EQ(encoded(bytes), bytes.toHex()) << length;
        ASSERT_EQ(decoded(bytes.toHex()), bytes) << length;
        ASSERT_EQ(decoded(bytes.toHex().toUpper()), bytes) << length;
    }
    const QByteArray large = anyBytes(100003);
    EXPECT_EQ(encoded(large), large.toHex());
    EXPECT_EQ(decoded(large.toHex()), large);
}

TEST_P(HexTest, EveryCharacterAtEveryPlaceIsReadAsQtDoes)
{
    const QByteArray clean = anyBytes(24).toHex();
    for (int at = 0; at < clean.size(); ++at) {
        for (int character = 0; character < 256; ++character) {
            QByteArray text = clean;
            text[at] = static_cast<char>(character);
            ASSERT_EQ(decoded(text), QByteArray::fromHex(text)) << "character " << character << " at " << at;
        }
    }
}

TEST_P(HexTest, OddAndDirtyTextIsReadAsQtDoes)
{
    for (int turn = 0; turn < 2000; ++turn) {
        QByteArray text = anyBytes(m_dice.between(0, 70)).toHex().left(m_dice.between(0, 140));
        for (int dirt = m_dice.between(0, 3); dirt > 0; --dirt) {
            text.insert(m_dice.between(0, text.size()), static_cast<char>(m_dice.between(0, 255)));
        }
        ASSERT_EQ(decoded(text), QByteArray::fromHex(text)) << "in hexadecimal: " << text.toHex().toStdString();
    }
    EXPECT_EQ(decoded("abc"), QByteArray("\x0a\xbc"));
    EXPECT_EQ(decoded("no x"), QByteArray());
}

}  // namespace
