// The part of the script bridge that defines and calls the menu script's procedures.

#include "settings/MenuEntries.h"
#include "settings/Preferences.h"
#include "settings/ScriptBridge.h"
#include "settings/ScriptTemplates.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>

namespace script {

namespace {

const char kResource[] = ":/scripts/Lumisketch.mel";
const char* const kMarks[] = {"", "check", "radio"};  // by MenuMark

// Whether there is a menu that wants to be told of changes.
bool s_hasMenu = false;

/// An array of texts as the script writes it.
QString arrayOf(const QStringList& texts)
{
    QStringList literals;
    for (const QString& text : texts) {
        literals << quoted(text);
    }
    return QLatin1Char('{') + literals.join(QLatin1String(", ")) + QLatin1Char('}');
}

/// What the script's procedure takes to add a group: the submenu's label, then the entries' labels, commands and marks.
QString argumentsOf(const MenuGroup& group)
{
    QStringList labels;
    QStringList commands;
    QStringList marks;
    for (int i = 0; i < group.count; ++i) {
        const MenuEntry& entry = group.entries[i];
        labels << QLatin1String(entry.label);
        commands << entry.commandText();
        marks << QLatin1String(kMarks[static_cast<int>(entry.mark)]);
    }
    return QStringList({quoted(QLatin1String(group.submenu)), arrayOf(labels), arrayOf(commands), arrayOf(marks)})
        .join(QLatin1String(", "));
}

// All names, whichever of them the script makes use of.
QHash<QString, QString> placeholders()
{
    QHash<QString, QString> values = {
        {"{MAIN_MENU_NAME}", escaped(Preferences::instance().mainMenuName())},
        {"{NODE_CMD}", names::kNodeCommand},
        {"{LAYER_CMD}", names::kLayerCommand},
        {"{FRAME_CMD}", names::kFrameCommand},
        {"{UTIL_CMD}", names::kUtilCommand},
        {"{FUNC_CREATE_MAIN_MENU}", names::kCreateMainMenu},
        {"{FUNC_DELETE_MAIN_MENU}", names::kDeleteMainMenu},
        {"{FUNC_UPDATE_MAIN_MENU}", names::kUpdateMainMenu},
        {"{FUNC_CREATE_FLOATING_VIEWPORT}", names::kCreateFloatingViewport},
        {"{FUNC_VIEWPORT_LOOK_THROUGH}", names::kViewportLookThrough},
        {"{FUNC_VIEWPORT_CREATE_CAMERA}", names::kViewportCreateCamera},
        {"{FUNC_DELETE_ACTIVE_LAYER}", names::kDeleteActiveLayer},
        {"{FUNC_DELETE_ACTIVE_CAMERA_LAYERS}", names::kDeleteActiveCameraLayers},
        {"{FUNC_DELETE_ALL_NODES}", names::kDeleteAllNodes},
        {"{NODE_TYPE_NAME}", names::kNodeType},
    };
    for (int part = 0; part < kMenuPartCount; ++part) {
        const MenuGroup& group = menuGroup(static_cast<MenuPart>(part));
        values.insert(QLatin1String(group.placeholder), argumentsOf(group));
    }
    return values;
}

/// In one pass: what is filled in, the user's menu name above all, is not looked at again.
QString withoutPlaceholders(const QString& script)
{
    const QHash<QString, QString> values = placeholders();
    const QRegularExpression placeholder("\\{[A-Z_]+\\}");
    QString result;
    int end = 0;
    for (QRegularExpressionMatchIterator matches = placeholder.globalMatch(script); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result += script.midRef(end, match.capturedStart() - end);
        result += values.value(match.captured(), match.captured());
        end = match.capturedEnd();
    }
    return result + script.midRef(end);
}

}  // namespace

bool sourceMenuScript()
{
    QFile file(kResource);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    return run(templates::kSourceText, {withoutPlaceholders(QString::fromLatin1(file.readAll()))});
}

bool createMainMenu()
{
    const int inAnimationSet = Preferences::instance().showMainMenuInAnimationSet() ? 1 : 0;
    s_hasMenu = run(templates::kCreateMenu, {QString::number(inAnimationSet)});
    return s_hasMenu;
}

bool deleteMainMenu()
{
    s_hasMenu = false;
    return run(templates::kDeleteMenu);
}

bool notifyMainMenu()
{
    const Preferences& preferences = Preferences::instance();
    return !s_hasMenu
        || run(templates::kUpdateMenu,
               {QString::number(static_cast<int>(preferences.activeTool())), QString::number(preferences.ghostPrev()),
                QString::number(preferences.ghostNext()), QString::number(preferences.timelineFrameDisplay())});
}

bool openFloatingViewport(const QString& sourceCamera)
{
    return run(templates::kFloatingView, {quoted(sourceCamera)});
}

}  // namespace script
