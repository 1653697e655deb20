#pragma once

#include "app/Host.h"
#include "model/BaseNodeLayerData.h"
#include "model/LayerManager.h"
#include "node/BaseNode.h"
#include "node/BaseNodeDrawOverride.h"
#include "settings/Names.h"

#include "api/Handles.h"
#include "api/Module.h"

#include <QTemporaryDir>

#include <maya/MDrawRegistry.h>
#define MNoVersionString  // this is no module
#include <maya/MFnPlugin.h>

/// A host that knows the drawing node and how views draw it, and a scene with one. For the whole program.
class NodeStage {
public:
    NodeStage()
    {
        m_module->name = "bench";
        m_module->session = &session();
        MObject object = api::toObject(m_module);
        m_plugin.setObject(object);
        const MString classification(names::kDrawClassification);
        m_plugin.registerData(names::kLayerDataType, names::kLayerDataTypeId, BaseNodeLayerData::creator);
        m_plugin.registerNode(names::kNodeType, names::kNodeTypeId, BaseNode::creator, BaseNode::initialize,
                              MPxNode::kLocatorNode, &classification);
        MHWRender::MDrawRegistry::registerDrawOverrideCreator(names::kDrawClassification, names::kDrawRegistrant,
                                                              BaseNodeDrawOverride::creator);
        m_host.run("createNode tqLumisketch");
    }

    MFnPlugin& plugin() { return m_plugin; }
    app::Host& host() { return m_host; }
    kernel::Session& session() { return m_host.session(); }
    kernel::NodePtr camera() { return session().scene.findOrNull("perspShape"); }
    BaseNode& node() { return *BaseNode::masterNode(); }
    LayerManager& drawing() { return *node().layerManager(); }

private:
    static app::HostOptions hostOptions(const QTemporaryDir& folder)
    {
        app::HostOptions options;
        options.prefsDir = folder.path().toStdString();
        return options;
    }

    QTemporaryDir m_folder;
    app::Host m_host{hostOptions(m_folder)};
    api::ModulePtr m_module = std::make_shared<api::Module>();
    MFnPlugin m_plugin;
};
