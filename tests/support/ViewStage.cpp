#include "support/ViewStage.h"

namespace support {

namespace {

const QString kWindow = "stageWindow";
constexpr int kEdge = 1;  // of a panel, around its view

QString setCamera(const CameraSetting& setting)
{
    const QString shape = setting.camera + "Shape";
    const struct {
        const char* attribute;
        double value;
    } rows[] = {
        {"filmFit", double(int(setting.fit))},
        {"overscan", setting.overscan},
        {"horizontalFilmAperture", setting.horizontalAperture},
        {"verticalFilmAperture", setting.verticalAperture},
        {"panZoomEnabled", double(setting.panZoom)},
        {"zoom", setting.zoom},
        {"horizontalPan", setting.pan.x()},
        {"verticalPan", setting.pan.y()},
    };
    QString text;
    for (const auto& row : rows) {
        text += QString("setAttr %1.%2 %3;").arg(shape, row.attribute).arg(row.value, 0, 'g', 12);
    }
    return text;
}

}  // namespace

ViewStage::ViewStage(LiveWorkbench& host) : m_host(host)
{
    // The main window's view is painted whenever the stage's are: the smaller, the sooner.
    m_host.run("window -e -widthHeight 640 480 $gMainWindow");
}

void ViewStage::openSingle(const QSize& size)
{
    open("single", {"stageView"}, size);
}

void ViewStage::openFour(const QSize& size)
{
    open("quad", {"stageView1", "stageView2", "stageView3", "stageView4"}, size);
}

void ViewStage::open(const QString& configuration, const QStringList& panels, const QSize& size)
{
    close();
    m_panels = panels;
    QString text =
        QString("window -widthHeight %1 %2 -topLeftCorner 30 30 %3; paneLayout -configuration %4 stagePanes;")
            .arg(size.width() + 2 * kEdge)
            .arg(size.height() + 2 * kEdge)
            .arg(kWindow, configuration);
    for (const QString& panel : panels) {
        text += QString("modelPanel -menuBarVisible 0 %1; modelEditor -e -grid 0 -headsUpDisplay 0 %1;").arg(panel);
    }
    m_host.run(text + "showWindow " + kWindow);
    m_host.letTurn();
}

void ViewStage::close()
{
    if (!m_panels.isEmpty()) {
        m_host.run("deleteUI " + kWindow);
        m_panels.clear();
    }
}

void ViewStage::lookThrough(const QString& panel, const CameraSetting& setting)
{
    m_host.run(setCamera(setting)
               + QString("setAttr defaultResolution.width %1; setAttr defaultResolution.height %2; lookThru %3 %4")
                     .arg(setting.resolution.width())
                     .arg(setting.resolution.height())
                     .arg(panel, setting.camera));
}

void ViewStage::useRenderer(const QString& name)
{
    m_host.run(QString("modelEditor -edit -rendererName %1 %2").arg(name, panel()));
}

QString ViewStage::renderer()
{
    return m_host.run(QString("modelEditor -query -rendererName %1").arg(panel()));
}

QImage ViewStage::picture(const QString& panel)
{
    const QString path = m_folder.filePath("view.bmp");
    m_host.run(QString("workbenchView -panel %1 -capture \"%2\"").arg(panel, path));
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}

}  // namespace support
