#include "view/TextureCache.h"

#include <QOpenGLFunctions>

namespace view {

TextureCache& TextureCache::instance()
{
    static TextureCache cache;
    return cache;
}

void TextureCache::bind(api::Texture& texture, bool linearFilter, bool clamp)
{
    if (!texture.renderer) {
        auto* const record = new Record;
        glGenTextures(1, &record->name);
        texture.renderer = record;
    }
    Record& record = *static_cast<Record*>(texture.renderer);
    glBindTexture(GL_TEXTURE_2D, record.name);
    if (record.revision != texture.revision) {
        upload(texture, record);
    }
    // Never mipmapped: smaller versions would mix straight colours with those of empty pixels, and thin lines would
    // lose more by turning dark in a view of half the canvas's size than they gain in one of a quarter.
    const int filter = linearFilter ? GL_LINEAR : GL_NEAREST;
    const int wrap = clamp ? GL_CLAMP_TO_EDGE : GL_REPEAT;
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, filter);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, filter);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, wrap);
}

void TextureCache::upload(api::Texture& texture, Record& record)
{
    if (texture.pixels.size() < std::size_t(texture.width) * std::size_t(texture.height) * 4) {
        return;
    }
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    if (record.width == texture.width && record.height == texture.height) {
        glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, texture.width, texture.height, GL_RGBA, GL_UNSIGNED_BYTE,
                        texture.pixels.data());
    } else {
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, texture.width, texture.height, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                     texture.pixels.data());
        record.width = texture.width;
        record.height = texture.height;
    }
    record.revision = texture.revision;
}

void TextureCache::collect()
{
    if (!m_released.empty()) {
        glDeleteTextures(int(m_released.size()), m_released.data());
        m_released.clear();
    }
}

void TextureCache::forget(api::Texture& texture)
{
    if (auto* const record = static_cast<Record*>(texture.renderer)) {
        instance().m_released.push_back(record->name);
        delete record;
        texture.renderer = nullptr;
    }
}

}  // namespace view
