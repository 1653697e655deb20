#pragma once

#include <string>

class QAction;
class QObject;
class QWidget;

namespace api {

/// The named objects of the program's windows as the host API finds them. None is installed in batch mode.
/// A name is short ("toolBar6") or a path from the window down ("MayaWindow|toolBar6|timeControl1").
class UserInterface {
public:
    virtual ~UserInterface() = default;
    virtual QWidget* mainWindow() const = 0;
    // Each null when there is no such object.
    virtual QWidget* findControl(const std::string& name) const = 0;
    virtual QWidget* findLayout(const std::string& name) const = 0;
    virtual QWidget* findWindow(const std::string& name) const = 0;
    virtual QAction* findMenuItem(const std::string& name) const = 0;
    /// The path of an object; empty for one without a name of its own.
    virtual std::string fullName(const QObject& object) const = 0;
};

UserInterface* userInterface();                           ///< null in batch mode
void installUserInterface(UserInterface* userInterface);  ///< null to take it away

}  // namespace api
