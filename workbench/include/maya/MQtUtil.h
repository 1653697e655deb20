#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

#include <maya/MApiNamespace.h>
#include <maya/MString.h>

class QAction;
class QObject;
class QWidget;

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The way from host names to Qt objects, and between the two string classes.
class MQtUtil {
public:
    /// Null in batch mode and before the window is there.
    static QWidget* mainWindow();
    /// A plain name or a full one ("window|layout|control"); null when there is none below the ancestor.
    static QWidget* findControl(MString name, const QWidget* ancestor = NULL);
    static QWidget* findLayout(MString name, const QWidget* ancestor = NULL);
    static QWidget* findWindow(MString name);
    static QAction* findMenuItem(MString name);
    /// Object names from the window down, joined by "|"; empty for null.
    static MString fullName(const QObject* object);
    static QObject* getParent(const QObject* object);

    static QString toQString(const MString& text);
    static MString toMString(const QString& text);

    /// A size in pixels scaled for the screen's resolution.
    static int dpiScale(int size);
    static float dpiScale(float size);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
