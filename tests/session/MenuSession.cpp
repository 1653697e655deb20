// The plug-in's menus, each as one picture: open over a drawing in the real window, and every submenu beside it. The
// main menu, the one over a view in which one draws, and the one over the time slider.
//
//     menu-session WORKBENCH SCENE FOLDER

#include "session/BouncingBall.h"
#include "session/Checks.h"
#include "support/PointedMenu.h"
#include "support/PointedPopup.h"

#include <QApplication>
#include <QPainter>
#include <QTemporaryDir>

#include <cstdio>
#include <functional>

using support::LiveWorkbench;
using support::PointedMenu;
using support::PointedPopup;

namespace {

/// A submenu, with its first and its last entry.
struct Submenu {
    const char* label;
    const char* first;
    const char* last;
};

const char kShownInWindow[] = "Frame";
const Submenu kDrawTools = {"Draw Tool", "Pencil", "Rectangle"};
const Submenu kLayers = {"Layer", "New Layer...", "Layer Properties..."};
const Submenu kGhosting = {"Ghosting", "Ghost Previous", "Settings..."};
const Submenu kTimelineDisplay = {"Display Timeline Frames", "Always", "Off"};
const Submenu kViews = {"View", "Lumisketch View", "Move layers to Lumisketch View"};
const Submenu kUtilities = {"Utilities", "Reset UI", "Reset UI"};
const Submenu kCleanup = {"Cleanup", "Delete Active Layer", "Clear All"};
constexpr int kGap = 12;
constexpr int kHeading = 24;
constexpr QRect kWindowPart(0, 0, 1060, 760);
constexpr QRect kSliderPart(0, 480, 1060, 420);
const QColor kGround("#444444");
const QColor kText("#d8d8d8");

struct Shot {
    QString label;
    QImage image;
};

/// A menu that stays open until it is closed.
struct Menu {
    std::function<void(const QStringList&)> open;  ///< it and a submenu
    std::function<void()> close;
};

/// A part of the window with the menu and a submenu open over the drawing.
QImage windowShot(LiveWorkbench& host, const Menu& menu, const QStringList& submenu, const QRect& part)
{
    menu.open(submenu);
    if (!submenu.isEmpty()) {
        host.moveTo(host.menuEntryRect(submenu.first()).center());
    }
    const QImage image = host.screenshot(part);
    menu.close();
    return image;
}

Shot submenuShot(LiveWorkbench& host, const Menu& menu, const Submenu& submenu)
{
    menu.open({submenu.label});
    host.moveTo(host.menuEntryRect(submenu.label).center());
    const QImage image = host.screenshot(host.menuEntryRect(submenu.first) | host.menuEntryRect(submenu.last));
    menu.close();
    return {submenu.label, image};
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

/// The whole menu with its submenus.
QImage menuSheet(LiveWorkbench& host, const Menu& menu, const QVector<Submenu>& beside)
{
    QVector<Shot> submenus;
    for (const Submenu& submenu : beside) {
        submenus << submenuShot(host, menu, submenu);
    }
    return sheet(windowShot(host, menu, {kShownInWindow}, kWindowPart), submenus);
}

bool write(const QImage& picture, const QString& file)
{
    const bool isWritten = picture.save(file, "PNG", 0);
    std::fprintf(isWritten ? stdout : stderr, isWritten ? "%s\n" : "%s cannot be written.\n", qPrintable(file));
    return isWritten;
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
        return session::failed("The workbench did not start:\n" + host.output());
    }
    const QRect shownView = host.viewRect() & kWindowPart;
    for (const QVector<QPoint>& stroke : session::bouncingBall(shownView)) {
        host.drag(stroke);
    }
    host.run("tqLumisketchLayer -add -n \"Ink & Wash\" persp; tqLumisketchLayer -e -active 0 persp");
    PointedMenu inBar(host, "$gTqLmMainMenu");
    PointedPopup inView(host, shownView.topLeft() + QPoint(60, 60));
    PointedPopup onSlider(host, host.controlRect("timeControl1").center());
    const Menu mainMenu = {[&](const QStringList& way) { inBar.open(way); }, [&] { inBar.close(); }};
    const Menu drawToolMenu = {[&](const QStringList& way) { inView.choose(way); }, [&] { inView.close(); }};
    const Menu timelineMenu = {[&](const QStringList& way) { onSlider.choose(way); }, [&] { onSlider.close(); }};

    const QDir folder(arguments[3]);
    const bool areWritten =
        write(
            menuSheet(host, mainMenu, {kDrawTools, kLayers, kGhosting, kTimelineDisplay, kViews, kUtilities, kCleanup}),
            folder.filePath("main-menu.png"))
        && write(menuSheet(host, drawToolMenu, {kDrawTools, kLayers, kGhosting, kTimelineDisplay, kCleanup}),
                 folder.filePath("draw-tool-menu.png"))
        && write(windowShot(host, timelineMenu, {}, kSliderPart), folder.filePath("timeline-menu.png"));
    return areWritten ? 0 : 1;
}
