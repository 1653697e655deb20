#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

/// The views whose events an input handler filters, and other widgets besides.
class WatchedViews {
public:
    explicit WatchedViews(QObject& handler) : m_handler(handler) {}

    /// The view that the user works in, and its window, to which keys go. Null when there is none.
    QWidget* addActive();
    void add(QWidget* other);                  ///< nothing for null
    bool contains(const QObject* view) const;  ///< false for other widgets
    void release();

private:
    using Widgets = QList<QPointer<QWidget>>;
    void watch(Widgets& list, QWidget* widget);
    void release(Widgets& list);

    QObject& m_handler;
    Widgets m_views;
    Widgets m_others;
};
