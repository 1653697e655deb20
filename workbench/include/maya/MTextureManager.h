#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <memory>

namespace api {
struct Access;
struct Texture;
}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN
namespace MHWRender {

enum MRasterFormat {
    kR32G32B32A32_FLOAT = 2,
    kR8G8B8A8_UNORM = 41,
    kR8G8B8A8_SNORM = 43,
    kB8G8R8A8 = 55,
    kA8B8G8R8 = 58,
    kNumberOfRasterFormats = 73
};

enum MTextureType {
    kImage1D = 0,
    kImage1DArray = 1,
    kImage2D = 2,
    kImage2DArray = 3,
    kCubeMap = 4,
    kVolumeTexture = 5,
    kDepthTexture = 6,
    kNumberOfTextureTypes = 7
};

enum MEnvironmentMapType {
    kEnvNone = 0,
    kEnvSphere = 1,
    kEnvHemiSphere = 2,
    kEnvLatLong = 3,
    kEnvCrossVert = 4,
    kEnvCrossHoriz = 5,
    kEnvCubemap = 6
};

class MTextureDescription {
public:
    MTextureDescription();
    /// A 2D image of no size in 8-bit RGBA.
    void setToDefault2DTexture();

    unsigned int fWidth;
    unsigned int fHeight;
    unsigned int fDepth;
    unsigned int fBytesPerRow;
    unsigned int fBytesPerSlice;
    unsigned int fMipmaps;
    unsigned int fArraySlices;
    MRasterFormat fFormat;
    MTextureType fTextureType;
    MEnvironmentMapType fEnvMapType;
};

/// Part of a texture, in pixels.
class MTextureUpdateRegion {
public:
    MTextureUpdateRegion();

    unsigned int fXRangeMin;
    unsigned int fXRangeMax;  ///< one past the last column
    unsigned int fYRangeMin;
    unsigned int fYRangeMax;  ///< one past the last row
    unsigned int fZRangeMin;
    unsigned int fZRangeMax;
};

/// A texture of the renderer; made and destroyed by the texture manager only.
class MTexture {
public:
    /// Replaces the pixels, or those of a region; size and format stay. rowPitch: bytes from row to row, 0 for packed.
    MStatus update(const void* pixelData, bool generateMipMaps, unsigned int rowPitch = 0,
                   MTextureUpdateRegion* region = NULL);
    void textureDescription(MTextureDescription& description) const;
    const MString& name() const;
    unsigned int bytesPerPixel() const;

private:
    friend struct api::Access;
    friend class MTextureManager;
    explicit MTexture(std::shared_ptr<api::Texture> texture);
    ~MTexture();
    MTexture(const MTexture&) = delete;
    MTexture& operator=(const MTexture&) = delete;

    std::shared_ptr<api::Texture> m_texture;
    MString m_name;
};

class MTextureManager {
public:
    /// A texture of a name that is already there comes back with one more reference and its pixels as they are; one
    /// with an empty name is never shared. Null for anything but 2D 8-bit RGBA. pixelData may be null (clear).
    MTexture* acquireTexture(const MString& textureName, const MTextureDescription& description, const void* pixelData,
                             bool generateMipMaps = true);
    void releaseTexture(MTexture* texture) const;

private:
    friend struct api::Access;
    MTextureManager();
    ~MTextureManager();
    MTextureManager(const MTextureManager&) = delete;
    MTextureManager& operator=(const MTextureManager&) = delete;
};

}  // namespace MHWRender
OPENMAYA_MAJOR_NAMESPACE_CLOSE
