#pragma once

#include "DrawnStage.h"
#include "Require.h"

#include "contexts/ThreadManager.h"

#include <QApplication>
#include <QWidget>

struct Tool {
    ToolType type;
    int size;
    int hardness = 100;  // percent
};

/// A stroke in the drawing, from a press on, in a view that shows one canvas pixel for each of its own.
class PointedStroke {
public:
    PointedStroke(DrawnStage& stage, QWidget& view, const Tool& tool, const PointerSource& pointer)
        : m_stage(stage), m_view(view), m_manager(pointer), m_tool(tool)
    {
        Preferences& preferences = Preferences::instance();
        preferences.setActiveTool(tool.type);
        preferences.setToolSize(tool.type, tool.size);
        preferences.setToolHardness(tool.type, tool.hardness);
        preferences.setToolOpacity(tool.type, 80);
        ActiveStroke* record = stage.drawing().beginStroke(kCamera, false);
        require(record, "a stroke begins");
        record->text = "Cue: turn, then hold";
    }
    ~PointedStroke() { m_manager.stop(); }

    /// A pointer that rests on a canvas pixel. Samples are put in as if it moved.
    static PointerSource restingAt(const QWidget& view, const QPoint& at)
    {
        return [place = view.mapToGlobal(at + QPoint(-1, 1))] { return PointerSighting{place, SampleClock::now()}; };
    }

    void start() { m_manager.start(&m_view, &m_stage.node(), kCamera); }
    /// Until the press has come in.
    void awaitPress() const
    {
        const int pressed = m_tool.type == ToolType::Text ? 1 : 2;
        while (record().points.size() < pressed) {
            QApplication::processEvents();
        }
    }
    void sample(const QPoint& at)
    {
        m_manager.OnMousePositionChanged(QPoint(at.x(), kCanvasSize - at.y()), m_tool.size, 0.8f,
                                         float(m_tool.hardness) / 100.0f);
    }
    /// Ends the sampling thread, with what it still had.
    void stop() { m_manager.stop(); }
    void commit()
    {
        stop();
        Picture undo;
        require(m_stage.drawing().commitStroke(kCamera, undo), "the stroke is committed");
    }

    ThreadManager& manager() { return m_manager; }
    const ActiveStroke& record() const { return *m_stage.drawing().stroke(kCamera); }

private:
    DrawnStage& m_stage;
    QWidget& m_view;
    ThreadManager m_manager;
    const Tool m_tool;
};
