#pragma once

#include <QComboBox>

namespace ui {

class MenuSets;
class UiObjects;

/// The choice of the menu set whose menus show. Choosing is a script like any action.
class MenuSetBox : public QComboBox {
    Q_OBJECT

public:
    MenuSetBox(UiObjects& ui, MenuSets& sets, QWidget* parent = nullptr);

private slots:
    void ShowSets();
    void Choose(int row);

private:
    UiObjects& m_ui;
    MenuSets& m_sets;
};

}  // namespace ui
