// The plug-in's menu as one picture: open over a drawing in the real window, and every submenu beside it.
//
//     menu-session WORKBENCH SCENE FOLDER

#include "session/BouncingBall.h"
#include "support/PointedMenu.h"

#include <QApplication>
#include <QPainter>
#include <QTemporaryDir>

#include <cstdio>

using support::LiveWorkbench;
using support::PointedMenu;

namespace {

const char* const kShownInWindow = "Frame";
const char* const kSubmenus[] = {"Draw Tool", "Layer",     "Ghosting", "Display Timeline Frames",
                                 "View",      "Utilities", "Cleanup"};
constexpr int kGap = 12;
constexpr int kHeading = 24;
constexpr QSize kWindowPart(1060, 760);
const QColor kGround("#444444");
const QColor kText("#d8d8d8");

struct Shot {
    QString label;
    QImage image;
};

/// What the items of an open menu cover.
QRect menuRect(LiveWorkbench& host, const QString& menu)
{
    QRect rect;
    const QString items = host.run(QString("stringArrayToString(`menu -q -itemArray \"%1\"`, \" \")").arg(menu));
    for (const QString& item : items.split(' ')) {
        rect = rect.united(host.controlRect(menu + '|' + item));
    }
    return rect;
}

/// The window's left part with the menu and a submenu open over the drawing.
QImage windowShot(LiveWorkbench& host, PointedMenu& menu)
{
    menu.open({kShownInWindow});
    host.moveTo(host.controlRect(menu.item({kShownInWindow})).center());
    const QImage image = host.screenshot(QRect(QPoint(0, 0), kWindowPart));
    menu.close();
    return image;
}

Shot submenuShot(LiveWorkbench& host, PointedMenu& menu, const QString& label)
{
    menu.open({label});
    host.moveTo(host.controlRect(menu.item({label})).center());
    const QImage image = host.screenshot(menuRect(host, menu.item({label})));
    menu.close();
    return {label, image};
}

/// The window at the left, the submenus under their labels in a column beside it.
QImage sheet(const QImage& window, const QVector<Shot>& submenus)
{
    int width = 0;
    int height = kGap;
    for (const Shot& shot : submenus) {
        width = qMax(width, shot.image.width());
        height += kHeading + shot.image.height() + kGap;
    }
    QImage page(window.width() + width + 3 * kGap, qMax(window.height() + 2 * kGap, height), QImage::Format_RGB32);
    page.fill(kGround);
    QPainter painter(&page);
    painter.setPen(kText);
    painter.drawImage(kGap, kGap, window);
    const int left = window.width() + 2 * kGap;
    int top = kGap;
    for (const Shot& shot : submenus) {
        painter.drawText(QRect(left, top, width, kHeading), Qt::AlignLeft | Qt::AlignVCenter, shot.label);
        painter.drawImage(left, top + kHeading, shot.image);
        top += kHeading + shot.image.height() + kGap;
    }
    return page;
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 4) {
        std::fprintf(stderr, "usage: menu-session WORKBENCH SCENE FOLDER\n");
        return 2;
    }
    QTemporaryDir work;
    session::choosePencil(work.path());
    LiveWorkbench host(QDir::current().absoluteFilePath(arguments[1]),
                       {"-prefs", work.path(), "-file", QDir::current().absoluteFilePath(arguments[2]), "-command",
                        "setToolTo `tqLmDrawCtx`"});
    if (!host.isRunning()) {
        std::fprintf(stderr, "The workbench did not start:\n%s\n", qPrintable(host.output()));
        return 1;
    }
    const QRect shownView = host.viewRect() & QRect(QPoint(0, 0), kWindowPart);
    for (const QVector<QPoint>& stroke : session::bouncingBall(shownView)) {
        host.drag(stroke);
    }
    PointedMenu menu(host, "$gTqLmMainMenu");
    const QImage window = windowShot(host, menu);
    QVector<Shot> submenus;
    for (const char* label : kSubmenus) {
        submenus << submenuShot(host, menu, label);
    }
    const QString file = QDir(arguments[3]).filePath("main-menu.png");
    if (!sheet(window, submenus).save(file, "PNG", 0)) {
        std::fprintf(stderr, "%s cannot be written.\n", qPrintable(file));
        return 1;
    }
    std::printf("%s\n", qPrintable(file));
    return 0;
}
