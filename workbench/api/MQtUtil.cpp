#include <maya/MQtUtil.h>

#include "api/Handles.h"
#include "api/Views.h"

#include <QtCore/QStringList>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLayout>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <cmath>

namespace {

/// How much larger than 96 dots an inch the screen is, in the quarter steps the host offers.
double scaleFactor()
{
    const QScreen* const screen = qApp ? QGuiApplication::primaryScreen() : nullptr;
    if (!screen)
        return 1.0;
    return std::max(1.0, std::round(screen->logicalDotsPerInch() / 96.0 * 4) / 4);
}

}  // namespace

OPENMAYA_MAJOR_NAMESPACE_OPEN

QWidget* MQtUtil::mainWindow()
{
    api::ViewHost* const host = api::viewHost();
    return host ? host->mainWindow() : nullptr;
}

QWidget* MQtUtil::findControl(MString name, const QWidget* ancestor)
{
    if (name.isEmpty())
        return nullptr;
    if (ancestor)
        return ancestor->findChild<QWidget*>(toQString(name).section('|', -1));
    api::ViewHost* const host = api::viewHost();
    return host ? host->findControl(api::toKernel(name)) : nullptr;
}

QWidget* MQtUtil::findLayout(MString name, const QWidget* ancestor)
{
    QWidget* const control = findControl(name, ancestor);
    return control && control->layout() ? control : nullptr;
}

QWidget* MQtUtil::findWindow(MString name)
{
    if (!qApp || name.isEmpty())
        return nullptr;
    const QString wanted = toQString(name);
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == wanted)
            return window;
    }
    return nullptr;
}

MString MQtUtil::fullName(const QObject* object)
{
    QStringList names;
    for (; object; object = object->parent()) {
        if (!object->objectName().isEmpty())
            names.prepend(object->objectName());
    }
    return toMString(names.join('|'));
}

QObject* MQtUtil::getParent(const QObject* object)
{
    return object ? object->parent() : nullptr;
}

QString MQtUtil::toQString(const MString& text)
{
    return QString::fromUtf8(text.asUTF8());
}

MString MQtUtil::toMString(const QString& text)
{
    MString result;
    result.setUTF8(text.toUtf8().constData());
    return result;
}

int MQtUtil::dpiScale(int size)
{
    return int(std::lround(size * scaleFactor()));
}

float MQtUtil::dpiScale(float size)
{
    return float(size * scaleFactor());
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
