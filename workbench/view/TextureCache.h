#pragma once

#include "api/DrawList.h"

namespace view {

/// The GPU side of the host API's textures. All views share their GL objects, so one texture serves every view.
/// Except for forget(), to be called with a context current.
class TextureCache {
public:
    static TextureCache& instance();

    /// Binds the texture, uploading it first when it changed since the last time.
    void bind(api::Texture& texture, bool linearFilter, bool clamp);
    /// Deletes what was given back since the last frame.
    void collect();
    /// Takes the record of a texture whose owner let go of it. Needs no context.
    static void forget(api::Texture& texture);

private:
    struct Record {
        unsigned name = 0;
        unsigned revision = 0;
        int width = 0;
        int height = 0;
    };
    void upload(api::Texture& texture, Record& record);

    std::vector<unsigned> m_released;
};

}  // namespace view
