#pragma once

#include <QTreeView>

namespace app {

/// A tree that leaves to the window all keys it does not move with, so that hot keys go on working in it.
class OutlinerView : public QTreeView {
    Q_OBJECT

public:
    explicit OutlinerView(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void leaveKeysToTool();
};

}  // namespace app
