#include "api/Access.h"
#include "api/DrawList.h"

#include <maya/MTextureManager.h>
#include <maya/MViewport2Renderer.h>

#include <gtest/gtest.h>

#include <numeric>

using MHWRender::MTexture;
using MHWRender::MTextureDescription;

namespace {

std::vector<std::string>& released()
{
    static std::vector<std::string> names;
    return names;
}

class TextureManagerTest : public testing::Test {
protected:
    TextureManagerTest()
    {
        released().clear();
        api::setRendererAvailable(true);
        api::setTextureReleaseListener([](api::Texture& texture) { released().push_back(texture.name); });
    }
    ~TextureManagerTest() override
    {
        api::setTextureReleaseListener(nullptr);
        api::setRendererAvailable(false);
    }

    static MHWRender::MTextureManager& manager() { return *MHWRender::MRenderer::theRenderer()->getTextureManager(); }

    static MTextureDescription description(unsigned width, unsigned height)
    {
        MTextureDescription result;
        result.fWidth = width;
        result.fHeight = height;
        return result;
    }
    static std::vector<unsigned char> counting(std::size_t size, unsigned char first)
    {
        std::vector<unsigned char> bytes(size);
        std::iota(bytes.begin(), bytes.end(), first);
        return bytes;
    }
    static const api::Texture& content(const MTexture* texture) { return *api::Access::texture(*texture); }
};

}  // namespace

TEST_F(TextureManagerTest, ANameIsSharedAndKeepsItsFirstPixels)
{
    const auto first = counting(16, 1);
    const auto second = counting(16, 100);
    MTexture* const a = manager().acquireTexture("canvas", description(2, 2), first.data());
    MTexture* const b = manager().acquireTexture("canvas", description(2, 2), second.data());
    EXPECT_EQ(a, b);
    EXPECT_EQ(content(a).pixels, first);
    manager().releaseTexture(a);
    EXPECT_TRUE(released().empty());
    manager().releaseTexture(b);
    EXPECT_EQ(released(), std::vector<std::string>{"canvas"});

    MTexture* const again = manager().acquireTexture("canvas", description(2, 2), second.data());
    EXPECT_EQ(content(again).pixels, second);
    manager().releaseTexture(again);
}

TEST_F(TextureManagerTest, UpdatesKeepTheSizeAndCountOnlyRealChanges)
{
    MTexture* const texture = manager().acquireTexture("t", description(2, 2), nullptr);
    const auto pixels = counting(16, 1);
    EXPECT_TRUE(texture->update(pixels.data(), true));
    EXPECT_EQ(content(texture).pixels, pixels);
    const unsigned revision = content(texture).revision;
    EXPECT_TRUE(texture->update(pixels.data(), true));
    EXPECT_EQ(content(texture).revision, revision);

    // rows with padding between them
    std::vector<unsigned char> padded = counting(24, 50);
    EXPECT_TRUE(texture->update(padded.data(), true, 12));
    EXPECT_EQ(content(texture).pixels[8], padded[12]);
    EXPECT_GT(content(texture).revision, revision);
    EXPECT_FALSE(texture->update(padded.data(), true, 7));
    EXPECT_FALSE(texture->update(nullptr, true));

    MTextureDescription told;
    texture->textureDescription(told);
    EXPECT_EQ(told.fWidth, 2u);
    EXPECT_EQ(told.fBytesPerSlice, 16u);
    manager().releaseTexture(texture);
}

TEST_F(TextureManagerTest, QueuedDrawingKeepsATextureAlive)
{
    MTexture* const texture = manager().acquireTexture("t", description(2, 2), nullptr);
    {
        api::DrawList list;
        const auto draw = api::makeDrawManager(list);
        draw->beginDrawable();
        draw->setTexture(texture);
        draw->line2d(MPoint(0, 0), MPoint(9, 9));
        draw->rect2d(MPoint(0, 0), MVector(0, 1, 0), 1, 1, true);
        draw->endDrawable();
        EXPECT_FALSE(list.items[0].state.texture) << "only what is filled has one";
        manager().releaseTexture(texture);
        EXPECT_TRUE(released().empty());
    }
    EXPECT_EQ(released(), std::vector<std::string>{"t"});
}

TEST_F(TextureManagerTest, WithoutARendererThereIsNone)
{
    api::setRendererAvailable(false);
    EXPECT_EQ(MHWRender::MRenderer::theRenderer(), nullptr);
}
