#pragma once

#include <maya/MApiNamespace.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN
namespace MHWRender {

/// How a texture is read.
class MSamplerState {
public:
    enum TextureFilter {
        kMinMagMipPoint,
        kMinMag_MipPoint_Linear,
        kMinPoint_MagLinear_MipPoint,
        kMinPoint_MagMipLinear,
        kMinLinear_MagMipPoint,
        kMinLinear_MagPoint_MipLinear,
        kMinMagLinear_MipPoint,
        kMinMagMipLinear,
        kAnisotropic
    };
    enum TextureAddress { kTexWrap, kTexMirror, kTexClamp, kTexBorder };
};

/// How what is drawn mixes with what is there.
class MBlendState {
public:
    enum ChannelMask {
        kNoChannels = 0,
        kRedChannel = 1,
        kGreenChannel = 2,
        kBlueChannel = 4,
        kRGBChannels = 7,
        kAlphaChannel = 8,
        kRGBAChannels = 15
    };
};

}  // namespace MHWRender
OPENMAYA_MAJOR_NAMESPACE_CLOSE
