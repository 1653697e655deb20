#include "node/BaseNodeDrawOverride.h"

#include "model/Canvas.h"
#include "model/LayerManager.h"
#include "node/BaseNode.h"
#include "node/BaseNodeUserData.h"
#include "settings/Names.h"
#include "settings/ScriptBridge.h"
#include "settings/Text.h"

#include <maya/MColor.h>
#include <maya/MStateManager.h>

namespace {

// Of what lies on one another in a view the higher one is in front, whatever the order in which it is queued.
const unsigned int kPictureDepth = 0;
const unsigned int kOutlineDepth = 1;

/// A texture's name is its key in the host's cache: two nodes must never share one.
MString nextTextureName()
{
    static int instanceCount = 0;
    return toMString(QString::fromLatin1(names::kTextureBase) + QString::number(instanceCount++));
}

MHWRender::MTextureManager* textureManager()
{
    MHWRender::MRenderer* renderer = MHWRender::MRenderer::theRenderer();
    return renderer ? renderer->getTextureManager() : nullptr;
}

MHWRender::MTextureDescription canvasDescription()
{
    MHWRender::MTextureDescription description;
    description.setToDefault2DTexture();
    description.fWidth = kCanvasSize;
    description.fHeight = kCanvasSize;
    description.fDepth = 1;
    description.fBytesPerRow = kCanvasSize * 4;
    description.fBytesPerSlice = kCanvasSize * kCanvasSize * 4;
    description.fMipmaps = 0;
    description.fArraySlices = 1;
    description.fFormat = MHWRender::kR8G8B8A8_UNORM;
    description.fTextureType = MHWRender::kImage2D;
    return description;
}

}  // namespace

MHWRender::MPxDrawOverride* BaseNodeDrawOverride::creator(const MObject& object)
{
    return new BaseNodeDrawOverride(object);
}

BaseNodeDrawOverride::BaseNodeDrawOverride(const MObject& object)
    : MHWRender::MPxDrawOverride(object, nullptr, true), m_textureName(nextTextureName())
{}

BaseNodeDrawOverride::~BaseNodeDrawOverride()
{
    MHWRender::MTextureManager* textures = m_texture ? textureManager() : nullptr;
    if (textures) {
        textures->releaseTexture(m_texture);
    }
}

MHWRender::DrawAPI BaseNodeDrawOverride::supportedDrawAPIs() const
{
    return MHWRender::kAllDevices;
}

bool BaseNodeDrawOverride::hasUIDrawables() const
{
    return true;
}

MBoundingBox BaseNodeDrawOverride::boundingBox(const MDagPath&, const MDagPath&) const
{
    return MBoundingBox(MPoint(), MPoint());
}

MUserData* BaseNodeDrawOverride::prepareForDraw(const MDagPath& objPath, const MDagPath& cameraPath,
                                                const MHWRender::MFrameContext& frameContext, MUserData* oldData)
{
    auto* data = dynamic_cast<BaseNodeUserData*>(oldData);
    if (!data) {
        data = new BaseNodeUserData;  // the host drops the old one itself
    }
    data->image = nullptr;  // was lent for the last frame; its drawing may have gone since
    BaseNode* node = BaseNode::fromObject(objPath.node());
    if (!node) {
        return data;
    }
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    frameContext.getViewportDimensions(x, y, width, height);
    node->updateViewportMetrics(cameraPath, width, height);
    node->updatePanOffset(cameraPath, frameContext);

    // Copies: the node's own metrics are the next view's before this one is drawn.
    const QString camera = script::cameraKey(cameraPath);
    data->centre = node->drawCentre();
    data->halfSize = float(node->drawHalfSize());
    data->image = node->compositeImage(camera);
    data->generation = node->compositeGeneration(camera);
    data->cameraHasDrawing = node->hasDrawingFor(camera);
    data->opacity = node->opacity();
    data->showRegion = node->showsRegionOutline(camera);
    data->corners = cornersInView(node->regionOutline().corners, node->metrics());
    data->frameNumber = node->currentFrameNumber();
    return data;
}

bool BaseNodeDrawOverride::upload(const QImage& image, quint64 generation)
{
    MHWRender::MTextureManager* textures = textureManager();
    if (!textures) {
        return false;
    }
    if (!m_texture) {
        m_texture = textures->acquireTexture(m_textureName, canvasDescription(), image.constBits(), true);
        m_shown = 0;  // one of this name may have been there already, with another picture
    }
    if (!m_texture || (generation != m_shown && !m_texture->update(image.constBits(), true))) {
        return false;
    }
    m_shown = generation;
    return true;
}

void BaseNodeDrawOverride::addUIDrawables(const MDagPath&, MHWRender::MUIDrawManager& drawManager,
                                          const MHWRender::MFrameContext&, const MUserData* data)
{
    const auto* shown = dynamic_cast<const BaseNodeUserData*>(data);
    if (!shown || !shown->image || !upload(*shown->image, shown->generation)) {
        return;
    }
    drawManager.beginDrawable(MHWRender::MUIDrawManager::kAutomatic);
    drawManager.setTexture(m_texture);
    drawManager.setTextureSampler(MHWRender::MSamplerState::kMinMagMipLinear, MHWRender::MSamplerState::kTexClamp);
    drawManager.setTextureMask(MHWRender::MBlendState::kRGBAChannels);
    drawManager.setDepthPriority(kPictureDepth);
    drawManager.setColor(MColor(1.0f, 1.0f, 1.0f, shown->opacity));
    drawManager.rect2d(shown->centre, MVector(0.0, 1.0, 0.0), shown->halfSize, shown->halfSize, true);
    if (shown->showRegion) {
        drawManager.setTexture(nullptr);
        drawManager.setDepthPriority(kOutlineDepth);
        drawOutline(drawManager, shown->corners);
    }
    drawManager.endDrawable();
}
