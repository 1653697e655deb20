#pragma once

#include "support/CameraSetting.h"
#include "support/LiveWorkbench.h"

#include <QSize>
#include <QString>
#include <QTemporaryDir>

namespace support {

/// A window of its own in a running workbench, filled by one view or by four, of any size and through any camera.
class ViewStage {
public:
    explicit ViewStage(LiveWorkbench& host);
    ViewStage(const ViewStage&) = delete;
    ~ViewStage() { close(); }

    /// One view; `size` is its own, at least 160 x 90.
    void openSingle(const QSize& size);
    /// Four views side by side and one above the other; `size` is that of all of them together.
    void openFour(const QSize& size);
    void close();
    /// Panel names, clockwise from the upper left.
    QStringList panels() const { return m_panels; }
    QString panel() const { return m_panels.first(); }

    void lookThrough(const CameraSetting& setting) { lookThrough(panel(), setting); }
    void lookThrough(const QString& panel, const CameraSetting& setting);
    /// The single view's, by the host's name for it.
    void useRenderer(const QString& name);
    QString renderer();
    /// The view as the graphics card has it, one image pixel for each of the view's.
    QImage picture() { return picture(panel()); }
    QImage picture(const QString& panel);

private:
    void open(const QString& configuration, const QStringList& panels, const QSize& size);

    LiveWorkbench& m_host;
    QTemporaryDir m_folder;
    QStringList m_panels;
};

}  // namespace support
