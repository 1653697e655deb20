#pragma once

#include "model/BaseNodeLayerData.h"
#include "model/FrameNumber.h"
#include "node/BaseNode.h"
#include "node/BaseNodeDrawOverride.h"
#include "node/HostViews.h"
#include "node/TimelineMarks.h"
#include "settings/Names.h"
#include "settings/Text.h"
#include "support/Describe.h"
#include "support/PluginFixture.h"

#include "api/Handles.h"
#include "api/Module.h"
#include "api/Registration.h"

#include <maya/MAnimControl.h>
#include <maya/MDrawRegistry.h>
#define MNoVersionString
#include <maya/MFnPlugin.h>

/// A fresh host that knows the drawing node and its data, registered from this program.
class NodeFixture : public PluginFixture {
protected:
    NodeFixture() : m_module(std::make_shared<api::Module>())
    {
        m_module->name = "nodeFixture";  // reading a scene back must not load the built module beside it
        m_module->session = &session();
        MObject object = api::toObject(m_module);
        m_plugin.setObject(object);
        const MString classification(names::kDrawClassification);
        EXPECT_TRUE(m_plugin.registerData(names::kLayerDataType, names::kLayerDataTypeId, BaseNodeLayerData::creator));
        EXPECT_TRUE(m_plugin.registerNode(names::kNodeType, names::kNodeTypeId, BaseNode::creator, BaseNode::initialize,
                                          MPxNode::kLocatorNode, &classification));
        EXPECT_TRUE(MHWRender::MDrawRegistry::registerDrawOverrideCreator(
            names::kDrawClassification, names::kDrawRegistrant, BaseNodeDrawOverride::creator));
        LayerManager::setDrawingViews(&m_views);
    }
    ~NodeFixture() override
    {
        TimelineMarks::install(nullptr);
        MHWRender::MDrawRegistry::deregisterDrawOverrideCreator(names::kDrawClassification, names::kDrawRegistrant);
        api::dropLeftoversOf(session(), m_module->name);
        api::removeNodeType(*m_module, names::kNodeType);
        api::removeDataType(*m_module, names::kLayerDataType);
    }

    void addCommand(const char* name, MCreatorFunction creator, MCreateSyntaxFunction syntax)
    {
        EXPECT_TRUE(m_plugin.registerCommand(name, creator, syntax)) << name;
    }

    /// The scene's drawing; makes it when there is none.
    BaseNode& node()
    {
        if (!BaseNode::masterNode()) {
            run("createNode tqLumisketch");
        }
        return *BaseNode::masterNode();
    }
    LayerManager& drawing() { return *node().layerManager(); }
    QString describeDrawing() { return describe(drawing()); }
    /// Goes to a time and shows the drawing there, as the host's events and views do.
    void goTo(int frameNumber)
    {
        MAnimControl::setCurrentTime(timeOfFrame(frameNumber));
        for (BaseNode* node : BaseNode::allNodes()) {
            node->setCurrentFrame(frameNumber, false);
        }
    }

    MFnPlugin m_plugin;

private:
    HostViews m_views;
    std::shared_ptr<api::Module> m_module;
};
