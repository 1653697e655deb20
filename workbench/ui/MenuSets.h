#pragma once

#include "ui/UiObjects.h"

#include <QObject>
#include <QPointer>

#include <deque>
#include <string>
#include <vector>

namespace ui {

class ScriptMenu;

/// The main window shows the menus of one set at a time, beside those of the common set, which stand before them, and
/// those in no set, which stand after them. Help menus are last.
class MenuSets : public QObject {
    Q_OBJECT

public:
    struct Set {
        std::string name;
        std::string label;
        std::vector<QPointer<ScriptMenu>> menus;  ///< in the order of the bar; null once gone
    };

    explicit MenuSets(UiObjects& ui) : m_ui(ui) {}

    bool isEmpty() const { return m_sets.empty(); }
    const std::deque<Set>& all() const { return m_sets; }
    static bool isCommon(const Set& set);
    Set* find(const std::string& name);
    Set* findByLabel(const std::string& label);
    /// The first one made is current until another is.
    Set* current() { return m_current; }
    void setCurrent(Set& set);

    /// Throws when the name is taken.
    Set& add(const std::string& name, const std::string& label);
    void setLabel(Set& set, const std::string& label);
    /// Puts a menu into a set, or elsewhere in it. index: counted from 0; beyond the end: last.
    void insert(Set& set, ScriptMenu& menu, std::size_t index);
    /// False when it was not in the set.
    bool remove(Set& set, ScriptMenu& menu);
    /// Those that scripts still know.
    std::vector<const UiObject*> menus(const Set& set) const;

    /// Orders the bar of a window and shows the menus that are to show. Called after any change.
    void arrange(const UiObject& window) const;

signals:
    /// The sets there are, their labels, or which one is current.
    void Changed();

private:
    void arrangeMain() const;
    bool isShown(const ScriptMenu& menu) const;
    std::pair<int, std::size_t> place(const ScriptMenu& menu) const;

    UiObjects& m_ui;
    std::deque<Set> m_sets;  // a deque: sets keep their places
    Set* m_current = nullptr;
};

}  // namespace ui
