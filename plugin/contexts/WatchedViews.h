#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

/// The views whose events an input handler filters.
class WatchedViews {
public:
    explicit WatchedViews(QObject& handler) : m_handler(handler) {}

    void addActive();
    bool contains(const QObject* watched) const;
    void release();

private:
    QObject& m_handler;
    QList<QPointer<QWidget>> m_views;
};
