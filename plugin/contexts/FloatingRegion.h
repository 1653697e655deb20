#pragma once

#include "model/LayerManager.h"

#include <maya/MObjectHandle.h>
#include <maya/MTime.h>

#include <QRect>
#include <QString>

#include <memory>

class BaseNode;

/// A region of the drawing on its way from where it is taken to where it is put down. Meanwhile it floats in the
/// manager's stroke, and taking it back leaves no trace.
class FloatingRegion {
public:
    /// Begins in the active view, with nothing floating yet. False, and nothing is begun, without a view or a drawing
    /// node.
    bool open();
    void close();  ///< takes back what still floats, its outline too, and forgets where
    void letGo();  ///< drops what floats, for the drawing has changed beneath it, and leaves the rest as it is now
    bool isOpen() const { return !m_camera.isEmpty(); }
    const QString& camera() const { return m_camera; }  ///< empty unless open
    BaseNode* node() const;                             ///< null unless open and when it is gone

    // What is taken from, or put into, is the camera's active layer as it is now. False, and reported, when that
    // may not be changed.
    bool aimAtSelection();
    bool aimAtPasteTarget();  ///< makes a layer and a frame where the preferences allow it

    /// What becomes of the region when it is taken.
    struct Taking {
        bool clear;  ///< it is emptied, and nothing floats
        bool keep;   ///< a copy is kept for pasting, and unless it is cleared the source stays
        bool paste;  ///< what was kept floats, and the source stays
    };
    /// False when the active layer shows no frame at this time.
    bool take(const QRect& region, const Taking& taking);
    ActiveStroke* record() const;  ///< of what floats; null when nothing does, or does any more

    bool isInActiveView() const;  ///< the view the user works in looks through the same camera
    bool isWhereItBegan() const;  ///< the same, and at the same time
    /// Puts what floats down as one undo step. What the host refuses floats on, unless it is gone.
    void commit();

    bool hasClipboard() const;                                  ///< something was kept in this scene
    QSize clipboardSize() const { return m_clipboard.size(); }  ///< canvas pixels

private:
    void aimAtActiveLayer(LayerManager& manager);
    void takeBack(BaseNode& node);
    void takeBackStroke(BaseNode& node, LayerManager& drawing);
    std::shared_ptr<LayerManager> manager() const;
    ActiveStroke* recordIn(const LayerManager* manager) const;

    MObjectHandle m_node;
    QString m_camera;
    MTime m_begun;  // the scene's time then
    CurrentCameras m_camerasBefore;
    bool m_leavesTrace = false;   // of what was put down, or gave way to an edit, all stays as it is
    bool m_layerCreated = false;  // for what is pasted
    bool m_frameCreated = false;
    QRect m_clipboard;  // the region that was kept last
};
