#pragma once

#include "BareCommand.h"
#include "Require.h"

#include "app/Host.h"
#include "commands/FrameCommand.h"
#include "commands/LayerCommand.h"
#include "commands/NodeCommand.h"
#include "commands/StrokeCommand.h"
#include "model/BaseNodeLayerData.h"
#include "model/FrameNumber.h"
#include "model/LayerManager.h"
#include "node/BaseNode.h"
#include "node/Callbacks.h"
#include "node/HostViews.h"
#include "settings/Names.h"
#include "support/TestView.h"

#include "api/Handles.h"
#include "api/Module.h"
#include "api/Registration.h"

#include <QTemporaryDir>

#include <maya/MAnimControl.h>
#define MNoVersionString  // this is no module
#include <maya/MFnPlugin.h>

#include <memory>
#include <string>

const char kCamera[] = "persp";

/// A host with the drawing node, its commands and callbacks, and views that draw nothing. Beside each command there is
/// a bare one, whose name begins with "bare" in place of "tqLumisketch".
class CommandStage {
public:
    CommandStage()
    {
        m_module->name = "bench";
        m_module->session = &session();
        MObject object = api::toObject(m_module);
        MFnPlugin plugin(object);
        plugin.registerData(names::kLayerDataType, names::kLayerDataTypeId, BaseNodeLayerData::creator);
        plugin.registerNode(names::kNodeType, names::kNodeTypeId, BaseNode::creator, BaseNode::initialize,
                            MPxNode::kLocatorNode);
        const struct {
            const char* name;
            const char* bare;
            MCreatorFunction creator;
            MCreateSyntaxFunction syntax;
        } commands[] = {{names::kNodeCommand, "bareNode", NodeCommand::creator, NodeCommand::newSyntax},
                        {names::kLayerCommand, "bareLayer", LayerCommand::creator, LayerCommand::newSyntax},
                        {names::kFrameCommand, "bareFrame", FrameCommand::creator, FrameCommand::newSyntax},
                        {names::kStrokeCommand, "bareStroke", StrokeCommand::creator, StrokeCommand::newSyntax}};
        for (const auto& c : commands) {
            require(plugin.registerCommand(c.name, c.creator, c.syntax), "the command is there");
            require(plugin.registerCommand(c.bare, BareCommand::creator, c.syntax), "the bare command is there");
        }
        LayerManager::setDrawingViews(&m_hostViews);
        answerEvents(true);
        session().batch = false;
        run("setAttr perspShape.filmFit 1");
    }
    ~CommandStage()
    {
        run("file -force -new");  // nothing is left that would be kept as text
        answerEvents(false);
        LayerManager::setDrawingViews(nullptr);
        api::dropLeftoversOf(session(), m_module->name);
        api::removeNodeType(*m_module, names::kNodeType);
        api::removeDataType(*m_module, names::kLayerDataType);
    }

    kernel::Session& session() { return m_host.session(); }
    void run(const std::string& text) { require(m_host.run(text), text.c_str()); }
    BaseNode& node() { return *BaseNode::masterNode(); }
    LayerManager& drawing() { return *node().layerManager(); }

    /// Whether the drawing hears of the host's events.
    void answerEvents(bool on)
    {
        require(on ? callbacks::install([] {}) : callbacks::remove(), "callbacks change");
    }

    /// Gives the scene a drawing of so many layers with so many frames each, keyed from 1 on, that all show a picture.
    /// The bottom layer is the active one.
    void addDrawing(int layers, int frames, const Picture& picture)
    {
        run("createNode tqLumisketch");
        for (int i = 0; i < layers; ++i) {
            auto layer = std::make_unique<Layer>();
            layer->setName(QString("Sheet %1").arg(i));
            for (int number = 1; number <= frames; ++number) {
                auto frame = std::make_unique<Frame>(timeOfFrame(number));
                frame->setPicture(picture);
                layer->insertFrame(std::move(frame));
            }
            drawing().insertLayer(kCamera, -1, std::move(layer));
        }
        drawing().setActiveLayer(kCamera, 0, true);
        goTo(1);
    }
    void goTo(int frameNumber) { MAnimControl::setCurrentTime(timeOfFrame(frameNumber)); }

private:
    static app::HostOptions hostOptions(const QTemporaryDir& folder)
    {
        app::HostOptions options;
        options.prefsDir = folder.path().toStdString();
        return options;
    }

    QTemporaryDir m_folder;
    app::Host m_host{hostOptions(m_folder)};
    TestViews m_views;
    HostViews m_hostViews;
    api::ModulePtr m_module = std::make_shared<api::Module>();
};
