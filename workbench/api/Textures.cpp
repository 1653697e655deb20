#include "api/DrawList.h"

#include "api/Access.h"
#include "api/Handles.h"
#include "kernel/Session.h"

#include <maya/MTextureManager.h>
#include <maya/MViewport2Renderer.h>

#include <cstring>
#include <map>

namespace api {

namespace {

constexpr unsigned kBytesPerPixel = 4;
constexpr unsigned kLargestSide = 16384;

struct RendererState {
    bool available = false;
    void (*released)(Texture&) = nullptr;
    std::map<std::string, MHWRender::MTexture*> byName;  ///< the shared ones
};

RendererState& rendererState()
{
    static RendererState state;
    return state;
}

void release(Texture* texture)
{
    if (rendererState().released)
        rendererState().released(*texture);
    delete texture;
}

bool isUsable(const MHWRender::MTextureDescription& description)
{
    return description.fTextureType == MHWRender::kImage2D && description.fFormat == MHWRender::kR8G8B8A8_UNORM
        && description.fWidth > 0 && description.fWidth <= kLargestSide && description.fHeight > 0
        && description.fHeight <= kLargestSide && description.fDepth <= 1 && description.fArraySlices <= 1;
}

struct Span {
    unsigned first;
    unsigned end;
    bool isWithin(int size) const { return first < end && end <= unsigned(size); }
};

/// Copies rows of pixels into a part of the texture; tells whether any byte changed.
bool copyRows(Texture& texture, const unsigned char* source, std::size_t pitch, Span columns, Span rows)
{
    const std::size_t bytes = std::size_t(columns.end - columns.first) * kBytesPerPixel;
    bool changed = false;
    for (unsigned row = rows.first; row < rows.end; ++row) {
        unsigned char* const target =
            texture.pixels.data() + (std::size_t(row) * unsigned(texture.width) + columns.first) * kBytesPerPixel;
        const unsigned char* const from = source + (row - rows.first) * pitch;
        if (std::memcmp(target, from, bytes) == 0)
            continue;
        std::memcpy(target, from, bytes);
        changed = true;
    }
    return changed;
}

}  // namespace

void setRendererAvailable(bool available)
{
    rendererState().available = available;
}

bool isRendererAvailable()
{
    return rendererState().available;
}

void setTextureReleaseListener(void (*listener)(Texture&))
{
    rendererState().released = listener;
}

MHWRender::MRenderer& Access::renderer()
{
    static MHWRender::MRenderer renderer;
    return renderer;
}

MHWRender::MTextureManager& Access::textureManager()
{
    static MHWRender::MTextureManager manager;
    return manager;
}

}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN
namespace MHWRender {

MTextureDescription::MTextureDescription()
{
    setToDefault2DTexture();
}

void MTextureDescription::setToDefault2DTexture()
{
    fWidth = 0;
    fHeight = 0;
    fDepth = 1;
    fBytesPerRow = 0;
    fBytesPerSlice = 0;
    fMipmaps = 1;
    fArraySlices = 1;
    fFormat = kR8G8B8A8_UNORM;
    fTextureType = kImage2D;
    fEnvMapType = kEnvNone;
}

MTextureUpdateRegion::MTextureUpdateRegion()
    : fXRangeMin(0), fXRangeMax(0), fYRangeMin(0), fYRangeMax(0), fZRangeMin(0), fZRangeMax(1)
{}

MTexture::MTexture(std::shared_ptr<api::Texture> texture)
    : m_texture(std::move(texture)), m_name(api::toHost(m_texture->name))
{}

MTexture::~MTexture() = default;

MStatus MTexture::update(const void* pixelData, bool generateMipMaps, unsigned int rowPitch,
                         MTextureUpdateRegion* region)
{
    if (!pixelData)
        return MStatus::kInvalidParameter;
    api::Texture& texture = *m_texture;
    api::Span columns{0, unsigned(texture.width)};
    api::Span rows{0, unsigned(texture.height)};
    if (region) {
        columns = {region->fXRangeMin, region->fXRangeMax};
        rows = {region->fYRangeMin, region->fYRangeMax};
        if (!columns.isWithin(texture.width) || !rows.isWithin(texture.height))
            return MStatus::kInvalidParameter;
    }
    const std::size_t packed = std::size_t(columns.end - columns.first) * api::kBytesPerPixel;
    if (rowPitch != 0 && rowPitch < packed)
        return MStatus::kInvalidParameter;

    // Owners update in every frame; comparing is cheaper than uploading what has not changed.
    const bool changed = api::copyRows(texture, static_cast<const unsigned char*>(pixelData),
                                       rowPitch ? rowPitch : packed, columns, rows);
    if (changed || texture.mipmaps != generateMipMaps)
        ++texture.revision;
    texture.mipmaps = generateMipMaps;
    return MStatus::kSuccess;
}

void MTexture::textureDescription(MTextureDescription& description) const
{
    description.setToDefault2DTexture();
    description.fWidth = unsigned(m_texture->width);
    description.fHeight = unsigned(m_texture->height);
    description.fBytesPerRow = description.fWidth * api::kBytesPerPixel;
    description.fBytesPerSlice = description.fBytesPerRow * description.fHeight;
}

const MString& MTexture::name() const
{
    return m_name;
}

unsigned int MTexture::bytesPerPixel() const
{
    return api::kBytesPerPixel;
}

MTextureManager::MTextureManager() = default;

MTextureManager::~MTextureManager() = default;

MTexture* MTextureManager::acquireTexture(const MString& textureName, const MTextureDescription& description,
                                          const void* pixelData, bool generateMipMaps)
{
    const std::string name = api::toKernel(textureName);
    auto& shared = api::rendererState().byName;
    const auto found = shared.find(name);
    if (found != shared.end()) {
        ++found->second->m_texture->references;
        return found->second;
    }
    const std::size_t packed = std::size_t(description.fWidth) * api::kBytesPerPixel;
    if (!api::isUsable(description) || (description.fBytesPerRow != 0 && description.fBytesPerRow < packed))
        return nullptr;

    std::shared_ptr<api::Texture> texture(new api::Texture, api::release);
    texture->name = name;
    texture->width = int(description.fWidth);
    texture->height = int(description.fHeight);
    texture->mipmaps = generateMipMaps;
    texture->pixels.resize(packed * description.fHeight);
    if (pixelData)
        api::copyRows(*texture, static_cast<const unsigned char*>(pixelData),
                      description.fBytesPerRow ? description.fBytesPerRow : packed, {0, description.fWidth},
                      {0, description.fHeight});
    MTexture* const result = new MTexture(std::move(texture));
    if (!name.empty())
        shared[name] = result;
    return result;
}

void MTextureManager::releaseTexture(MTexture* texture) const
{
    if (!texture || --texture->m_texture->references > 0)
        return;
    if (!texture->m_texture->name.empty())
        api::rendererState().byName.erase(texture->m_texture->name);
    delete texture;
}

MRenderer::MRenderer() = default;

MRenderer::~MRenderer() = default;

MRenderer* MRenderer::theRenderer(bool /*initializeRenderer*/)
{
    return api::isRendererAvailable() ? &api::Access::renderer() : nullptr;
}

MTextureManager* MRenderer::getTextureManager() const
{
    return api::isRendererAvailable() ? &api::Access::textureManager() : nullptr;
}

DrawAPI MRenderer::drawAPI() const
{
    return kOpenGL;
}

bool MRenderer::drawAPIIsOpenGL() const
{
    return true;
}

void MRenderer::setGeometryDrawDirty(MObject object, bool /*topologyChanged*/)
{
    if (api::nodeOf(object) && kernel::Session::exists())
        kernel::Session::current().scene.requestRedraw();
}

}  // namespace MHWRender
OPENMAYA_MAJOR_NAMESPACE_CLOSE
