#include <maya/MQtUtil.h>

#include "api/Handles.h"
#include "api/UserInterface.h"

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
    return api::userInterface() ? api::userInterface()->mainWindow() : nullptr;
}

QWidget* MQtUtil::findControl(MString name, const QWidget* ancestor)
{
    if (ancestor)
        return name.isEmpty() ? nullptr : ancestor->findChild<QWidget*>(toQString(name).section('|', -1));
    return api::userInterface() ? api::userInterface()->findControl(api::toKernel(name)) : nullptr;
}

QWidget* MQtUtil::findLayout(MString name, const QWidget* ancestor)
{
    if (ancestor) {
        QWidget* const control = findControl(name, ancestor);
        return control && control->layout() ? control : nullptr;
    }
    return api::userInterface() ? api::userInterface()->findLayout(api::toKernel(name)) : nullptr;
}

QWidget* MQtUtil::findWindow(MString name)
{
    return api::userInterface() ? api::userInterface()->findWindow(api::toKernel(name)) : nullptr;
}

QAction* MQtUtil::findMenuItem(MString name)
{
    return api::userInterface() ? api::userInterface()->findMenuItem(api::toKernel(name)) : nullptr;
}

MString MQtUtil::fullName(const QObject* object)
{
    if (!object)
        return MString();
    if (api::userInterface()) {
        const std::string known = api::userInterface()->fullName(*object);
        if (!known.empty())
            return api::toHost(known);
    }
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
