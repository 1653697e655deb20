#pragma once

#include "support/NodeFixture.h"
#include "support/TestView.h"

#include "api/Tools.h"

/// A drawing node, and two views for a tool. In place of the stroke command stands one that notes its arguments and
/// commits.
class ToolFixture : public NodeFixture {
protected:
    ToolFixture()
    {
        session().batch = false;
        session().commands.add(names::kStrokeCommand, [this](const kernel::ValueList& args) { return commit(args); });
        run("setAttr perspShape.filmFit 1; setAttr topShape.filmFit 1");
        node();
    }

    /// What the host tells the current tool of the pointer, in view pixels.
    void send(api::ToolEvent::Kind kind, const QPoint& at = QPoint(100, 100),
              api::ToolEvent::Button button = api::ToolEvent::Button::Left)
    {
        api::ToolEvent event;
        event.kind = kind;
        event.x = at.x();
        event.y = at.y();
        event.button = button;
        api::ToolBox::instance().send(event, nullptr, nullptr);
    }
    void press() { send(api::ToolEvent::Kind::Press); }
    void release() { send(api::ToolEvent::Kind::Release); }
    static std::string textOf(const kernel::ValueList& args)
    {
        std::string text;
        for (const kernel::Value& arg : args) {
            text += (text.empty() ? "" : " ") + kernel::toText(arg);
        }
        return text;
    }
    kernel::Value commit(const kernel::ValueList& args)
    {
        commits.push_back(textOf(args));
        Picture before;
        if (refuseCommits || !drawing().commitStroke(QString::fromStdString(kernel::toText(args.back())), before)) {
            throw kernel::CommandError("refused");
        }
        return {};
    }
    QString pixels(const QString& camera, int index = 0)
    {
        const Layer* layer = drawing().layer(camera, index);
        return layer && layer->currentFrame() ? pixels::hash(layer->currentFrame()->image()) : QString();
    }

    TestViews views;
    std::vector<std::string> commits;
    bool refuseCommits = false;
};
