#pragma once

#include <maya/MBoundingBox.h>
#include <maya/MDagPath.h>
#include <maya/MFrameContext.h>
#include <maya/MObject.h>
#include <maya/MPxDrawOverride.h>
#include <maya/MString.h>
#include <maya/MTextureManager.h>
#include <maya/MUIDrawManager.h>
#include <maya/MUserData.h>
#include <maya/MViewport2Renderer.h>

#include <QImage>

/// Shows a drawing node in Viewport 2.0: one textured square over each camera's view.
class BaseNodeDrawOverride : public MHWRender::MPxDrawOverride {
public:
    static MHWRender::MPxDrawOverride* creator(const MObject& object);
    ~BaseNodeDrawOverride() override;

    MHWRender::DrawAPI supportedDrawAPIs() const override;
    bool hasUIDrawables() const override;
    MBoundingBox boundingBox(const MDagPath& objPath, const MDagPath& cameraPath) const override;
    MUserData* prepareForDraw(const MDagPath& objPath, const MDagPath& cameraPath,
                              const MHWRender::MFrameContext& frameContext, MUserData* oldData) override;
    void addUIDrawables(const MDagPath& objPath, MHWRender::MUIDrawManager& drawManager,
                        const MHWRender::MFrameContext& frameContext, const MUserData* data) override;

private:
    explicit BaseNodeDrawOverride(const MObject& object);
    bool upload(const QImage& image, quint64 generation);

    const MString m_textureName;
    MHWRender::MTexture* m_texture = nullptr;
    quint64 m_shown = 0;  ///< generation of the picture in the texture
};
