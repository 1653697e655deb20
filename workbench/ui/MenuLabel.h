#pragma once

#include <QString>

namespace ui {

/// The label of a menu or an item as scripts give it: "&" in it is a letter like any other.
struct MenuLabel {
    QString text;
    QString mnemonic;  ///< one letter, underlined where it first stands in the text; empty for none

    /// In the toolkit's notation, where "&" stands before the underlined letter and a tab before a shortcut.
    QString shown() const;
};

}  // namespace ui
