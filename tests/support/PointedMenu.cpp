#include "support/PointedMenu.h"

namespace support {

namespace {

const char kProcedures[] = R"(
    global proc string pointedItem(string $menu, string $labels[])
    {
        string $label;
        for ($label in $labels) {
            string $found = "";
            string $item;
            for ($item in `menu -q -itemArray $menu`) {
                if (`menuItem -q -label ($menu + "|" + $item)` == $label) {
                    $found = $menu + "|" + $item;
                }
            }
            if ($found == "") {
                return "";
            }
            $menu = $found;
        }
        return $menu;
    }
    global proc string pointedMarks(string $menu)
    {
        string $marked = "";
        string $item;
        for ($item in `menu -q -itemArray $menu`) {
            string $path = $menu + "|" + $item;
            if (`menuItem -q -subMenu $path`) {
                $marked += pointedMarks($path);
            } else if ((`menuItem -q -isCheckBox $path` && `menuItem -q -checkBox $path`)
                       || (`menuItem -q -isRadioButton $path` && `menuItem -q -radioButton $path`)) {
                $marked += `menuItem -q -label $path` + ";";
            }
        }
        return $marked;
    }
)";

constexpr int kStripToFirstItem = 4;  // pixels
constexpr int kTurnsToShow = 10;

}  // namespace

PointedMenu::PointedMenu(LiveWorkbench& host, const QString& menu) : m_host(host), m_menu(menu)
{
    m_host.run(kProcedures);
}

QString PointedMenu::item(const QStringList& labels)
{
    return m_host.run(QString("pointedItem(%1, {\"%2\"})").arg(m_menu, labels.join("\", \"")));
}

QStringList PointedMenu::marked()
{
    return m_host.run(QString("pointedMarks(%1)").arg(m_menu)).split(';', QString::SkipEmptyParts);
}

bool PointedMenu::open(const QStringList& submenus)
{
    bool isOpen = clickControl(name());
    for (int depth = 1; isOpen && depth <= submenus.size(); ++depth) {
        isOpen = click(submenus.mid(0, depth));
    }
    return isOpen;
}

bool PointedMenu::click(const QStringList& labels)
{
    return clickControl(item(labels));
}

bool PointedMenu::choose(const QStringList& labels)
{
    return open(labels.mid(0, labels.size() - 1)) && click(labels);
}

bool PointedMenu::tearOff(const QStringList& submenus)
{
    if (!open(submenus)) {
        return false;
    }
    const QString menu = submenus.isEmpty() ? name() : item(submenus);
    const QString first = m_host.run(QString("string $items[] = `menu -q -itemArray \"%1\"`; $items[0]").arg(menu));
    const QRect rect = m_host.controlRect(menu + '|' + first);
    if (rect.isNull()) {
        return false;
    }
    m_host.clickControl(QPoint(rect.center().x(), rect.top() - kStripToFirstItem));
    return true;
}

void PointedMenu::close()
{
    for (int open = 0; open < 3; ++open) {
        m_host.key("Escape");
    }
}

bool PointedMenu::clickControl(const QString& name)
{
    QRect rect;
    for (int turns = 0; !name.isEmpty() && rect.isNull() && turns < kTurnsToShow; ++turns) {
        rect = m_host.controlRect(name);
        if (rect.isNull()) {
            m_host.letTurn();
        }
    }
    if (rect.isNull()) {
        return false;
    }
    m_host.clickControl(rect.center());
    return true;
}

}  // namespace support
