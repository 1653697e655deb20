#pragma once

#include "api/UserInterface.h"
#include "kernel/Session.h"

#include <QHash>
#include <QObject>
#include <QPointer>

#include <map>
#include <memory>
#include <string>
#include <vector>

class QMainWindow;

namespace ui {

/// Whether a script that is run stands in the journal.
enum class Echo { No, Yes };

enum class Kind : unsigned {
    Window = 1,
    Layout = 2,
    Control = 4,
    Panel = 8,
    Menu = 16,
    MenuItem = 32,
    MenuCollection = 64,  ///< radio items of one menu that exclude each other
};

/// Several kinds at once, as a bit set.
using Kinds = unsigned;
constexpr Kinds operator|(Kind a, Kind b)
{
    return static_cast<unsigned>(a) | static_cast<unsigned>(b);
}
constexpr Kinds operator|(Kinds a, Kind b)
{
    return a | static_cast<unsigned>(b);
}
constexpr Kinds only(Kind kind)
{
    return static_cast<unsigned>(kind);
}
constexpr Kinds kAnyKind = ~0u;

/// A part of the program's windows that scripts know by name. It stands for a real widget, menu or action and goes when
/// that is destroyed, whoever destroys it.
struct UiObject {
    std::string name;  ///< short; also the Qt object's name
    Kind kind;
    std::string type;            ///< the command that makes such objects: "menuItem"
    UiObject* parent = nullptr;  ///< null for windows and panels
    QObject* object = nullptr;   ///< never null while the entry stands

    QWidget* widget() const;  ///< null when it is none (an action, a collection)
};

/// Every named object of the program's windows, and which of them new objects go into.
/// The commands throw kernel::CommandError for what cannot be found or made.
class UiObjects : public QObject, public api::UserInterface {
    Q_OBJECT

public:
    explicit UiObjects(kernel::Session& session);
    ~UiObjects() override;

    /// The program's main window, under the name "MayaWindow"; without one (batch mode) nothing can be made.
    void setMainWindow(QMainWindow* window);
    bool isAvailable() const { return m_main != nullptr; }
    /// Throws when there is no main window: "menu: cannot be made in batch mode".
    void requireAvailable(const std::string& command) const;
    UiObject* mainWindowObject() const { return m_main; }

    /// Puts a Qt object under a name, which it also gets. wanted: empty for `type` and a number.
    /// Throws "Object's name 'foo' is not unique." when a sibling (for windows and panels: any such) has the name.
    UiObject& add(Kind kind, const std::string& type, const std::string& wanted, UiObject* parent, QObject* object);
    /// The one made last among those that fit; null when there is none.
    UiObject* find(const std::string& name, Kinds kinds = kAnyKind) const;
    /// Throws "menuItem: Object 'foo' not found."
    UiObject& get(const std::string& command, const std::string& name, Kinds kinds = kAnyKind) const;
    /// Null for a Qt object without a name of its own.
    UiObject* of(const QObject* object) const { return m_byQtObject.value(object); }
    static std::string path(const UiObject& object);
    /// The parent, or for a panel, which has none by name, the layout it stands in now; null when there is none.
    const UiObject* above(const UiObject& object) const;
    /// In the order in which they were made.
    std::vector<UiObject*> children(const UiObject& parent) const;
    std::vector<UiObject*> all(Kinds kinds) const;

    /// Takes the names of an object and of all below it away at once; the Qt object is hidden and deleted when control
    /// is back at the event loop, so that a script may delete what it was called from.
    void destroy(UiObject& object);

    // --- where new objects go -----------------------------------------------------------------------------------
    /// A window or a layout; null when there is none.
    UiObject* layoutParent() const { return m_layoutParent; }
    void setLayoutParent(UiObject* parent) { m_layoutParent = parent; }
    /// A menu or an item with a menu below it; null when there is none.
    UiObject* menuParent() const { return m_menuParent; }
    void setMenuParent(UiObject* parent) { m_menuParent = parent; }

    /// Runs the script of a control as a user's action: at the global scope, one undo step. Empty: nothing.
    void runScript(const std::string& script, Echo echo = Echo::Yes);

    kernel::Session& session() { return m_session; }

    QWidget* mainWindow() const override;
    QWidget* findControl(const std::string& name) const override;
    QWidget* findLayout(const std::string& name) const override;
    QWidget* findWindow(const std::string& name) const override;
    QAction* findMenuItem(const std::string& name) const override;
    std::string fullName(const QObject& object) const override;

private slots:
    void Forget(QObject* object);

private:
    void forget(UiObject& object);
    void forgetPanels(const UiObject& around);
    bool isAtPath(const UiObject& object, const std::string& path) const;
    std::string freeName(const std::string& type);
    bool isTaken(Kind kind, const std::string& name, const UiObject* parent) const;

    kernel::Session& m_session;
    std::vector<std::unique_ptr<UiObject>> m_objects;  // in the order in which they were made
    std::multimap<std::string, UiObject*> m_byName;
    QHash<const QObject*, UiObject*> m_byQtObject;
    std::map<std::string, int> m_made;  ///< type -> objects named by counting so far
    UiObject* m_main = nullptr;
    UiObject* m_layoutParent = nullptr;
    UiObject* m_menuParent = nullptr;
};

}  // namespace ui
