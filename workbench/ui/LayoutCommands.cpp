#include "ui/BoxLayout.h"
#include "ui/Commands.h"
#include "ui/ControlCommand.h"
#include "ui/FormLayout.h"
#include "ui/FrameLayout.h"
#include "ui/PaneLayout.h"
#include "ui/ViewPanel.h"
#include "view/Viewport.h"
#include "view/Viewports.h"

namespace ui {

using kernel::CommandError;
using kernel::StringArray;
using kernel::Value;
using kernel::ValueList;

namespace {

StringArray childNames(const Subject& subject)
{
    StringArray names;
    for (const QWidget* widget : subject.as<LayoutWidget>().placed()) {
        if (const UiObject* const child = subject.ui.of(widget)) {
            names.push_back(child->name);
        }
    }
    return names;
}

/// What all layouts can say of their children, after their own flags.
std::vector<ControlFlag> withChildren(std::vector<ControlFlag> flags)
{
    flags.push_back({{"childArray", "ca"}, nullptr, [](const Subject& s) { return childNames(s); }});
    flags.push_back({{"numberOfChildren", "nch"}, nullptr, [](const Subject& s) { return int(childNames(s).size()); }});
    return flags;
}

/// The child of a layout that a flag names.
QWidget& childOf(const Subject& subject, const std::string& name)
{
    for (QWidget* widget : subject.as<LayoutWidget>().placed()) {
        const UiObject* const child = subject.ui.of(widget);
        if (child && (child == subject.ui.find(name) || child->name == name)) {
            return *widget;
        }
    }
    throw CommandError(subject.object.type + ": Object '" + name + "' not found.");
}

// --- panes ---------------------------------------------------------------------------------------------------------

void configure(const Subject& subject, const ValueList& values)
{
    const std::string name = kernel::toText(values.front());
    if (!subject.as<PaneLayout>().setConfiguration(name)) {
        throw CommandError("paneLayout: Invalid configuration '" + name + "'");
    }
}

void setPane(const Subject& subject, const ValueList& values)
{
    QWidget& child = childOf(subject, kernel::toText(values.front()));
    if (!subject.as<PaneLayout>().setPane(&child, whole(values, 1) - 1)) {
        throw CommandError("paneLayout: There is no pane " + kernel::toText(values[1]));
    }
}

void setPaneSize(const Subject& subject, const ValueList& values)
{
    const auto percent = [&](std::size_t i) { return std::clamp(whole(values, i), 1, 99); };
    subject.as<PaneLayout>().setPaneSize(whole(values, 0) - 1, percent(1), percent(2));
}

void activatePane(const Subject& subject, const ValueList& values)
{
    const auto* const panel = qobject_cast<ViewPanel*>(&childOf(subject, kernel::toText(values.front())));
    if (panel && view::Viewports::installed()) {
        view::Viewports::installed()->setActive(panel->view());
    }
}

Value activePane(const Subject& subject)
{
    const view::Viewports* const views = view::Viewports::installed();
    const view::Viewport* const active = views ? views->active() : nullptr;
    const bool isHere = active && LayoutWidget::around(*active) == &subject.as<LayoutWidget>();
    return isHere ? active->panelName() : std::string();
}

std::vector<ControlFlag> paneFlags()
{
    return {
        {{"configuration", "cn", "s"}, configure, [](const Subject& s) { return s.as<PaneLayout>().configuration(); }},
        {{"setPane", "sp", "si", true}, setPane},
        {{"paneSize", "ps", "iii", true}, setPaneSize},
        {{"activePane", "ap", "s"}, activatePane, activePane},
        {{"separatorThickness", "st", "i"},
         [](const Subject& s, const ValueList& values) { s.as<PaneLayout>().setBarThickness(whole(values)); }},
    };
}

// --- boxes ---------------------------------------------------------------------------------------------------------

std::vector<ControlFlag> columnFlags()
{
    return {
        {{"adjustableColumn", "adj", "b"},
         [](const Subject& s, const ValueList& values) { s.as<BoxLayout>().setAdjustable(truth(values)); },
         [](const Subject& s) { return int(s.as<BoxLayout>().isAdjustable()); }},
        {{"rowSpacing", "rs", "i"},
         [](const Subject& s, const ValueList& values) { s.as<BoxLayout>().setSpacing(whole(values)); }},
        {{"columnWidth", "cw", "i"}},
        {{"columnAlign", "cal", "s"}},
        {{"columnAttach", "cat", "si"}},
        {{"columnOffset", "co", "si"}},
    };
}

/// "columnWidth3": the widths of as many cells at once.
ControlFlag cellWidthsFlag(const char* longName, const char* shortName, const char* letters)
{
    return {{longName, shortName, letters}, [](const Subject& s, const ValueList& values) {
                for (std::size_t i = 0; i < values.size(); ++i) {
                    s.as<BoxLayout>().setCellWidth(int(i), whole(values, i));
                }
            }};
}

std::vector<ControlFlag> rowFlags()
{
    return {
        {{"numberOfColumns", "nc", "i"}},
        {{"columnWidth", "cw", "ii", true},
         [](const Subject& s, const ValueList& values) {
             s.as<BoxLayout>().setCellWidth(whole(values, 0) - 1, whole(values, 1));
         }},
        cellWidthsFlag("columnWidth2", "cw2", "ii"),
        cellWidthsFlag("columnWidth3", "cw3", "iii"),
        cellWidthsFlag("columnWidth4", "cw4", "iiii"),
        {{"adjustableColumn", "adj", "i"},
         [](const Subject& s, const ValueList& values) { s.as<BoxLayout>().setAdjustableCell(whole(values) - 1); }},
        {{"columnAlign", "cal", "is", true}},
        {{"columnAttach", "cat", "isi", true}},
    };
}

template <QBoxLayout::Direction direction>
QWidget* makeBox(UiObjects&)
{
    return new BoxLayout(direction, BoxLayout::Sharing::Natural);
}

// --- forms and frames ----------------------------------------------------------------------------------------------

FormLayout::Edge edgeOf(const std::string& name)
{
    const std::pair<const char*, FormLayout::Edge> edges[] = {{"left", FormLayout::Edge::Left},
                                                              {"top", FormLayout::Edge::Top},
                                                              {"right", FormLayout::Edge::Right},
                                                              {"bottom", FormLayout::Edge::Bottom}};
    for (const auto& edge : edges) {
        if (name == edge.first) {
            return edge.second;
        }
    }
    throw CommandError("formLayout: Invalid edge '" + name + "'");
}

/// A flag whose values start with the child and its edge; `read` has the rest.
ControlFlag attachFlag(const char* longName, const char* shortName, const char* letters,
                       std::function<FormLayout::Attachment(const Subject&, const ValueList&)> read)
{
    return {{longName, shortName, letters, true}, [read](const Subject& s, const ValueList& values) {
                QWidget& child = childOf(s, kernel::toText(values[0]));
                s.as<FormLayout>().attach(&child, edgeOf(kernel::toText(values[1])), read(s, values));
            }};
}

std::vector<ControlFlag> formFlags()
{
    using To = FormLayout::Attachment::To;
    using Attachment = FormLayout::Attachment;
    return {
        {{"numberOfDivisions", "nd", "i"},
         [](const Subject& s, const ValueList& values) { s.as<FormLayout>().setDivisions(whole(values)); }},
        attachFlag("attachForm", "af", "ssi",
                   [](const Subject&, const ValueList& values) {
                       return Attachment{To::Form, whole(values, 2), nullptr, 0};
                   }),
        attachFlag("attachControl", "ac", "ssis",
                   [](const Subject& s, const ValueList& values) {
                       return Attachment{To::Control, whole(values, 2), &childOf(s, kernel::toText(values[3])), 0};
                   }),
        attachFlag("attachPosition", "ap", "ssii",
                   [](const Subject&, const ValueList& values) {
                       return Attachment{To::Position, whole(values, 2), nullptr, whole(values, 3)};
                   }),
        attachFlag("attachNone", "an", "ss", [](const Subject&, const ValueList&) { return Attachment(); }),
    };
}

std::vector<ControlFlag> frameFlags()
{
    return {
        {{"label", "l", "s"},
         [](const Subject& s, const ValueList& values) { s.as<FrameLayout>().setLabel(text(values)); },
         [](const Subject& s) { return s.as<FrameLayout>().label().toStdString(); }},
        {{"labelVisible", "lv", "b"},
         [](const Subject& s, const ValueList& values) { s.as<FrameLayout>().setLabelVisible(truth(values)); }},
        {{"collapsable", "cll", "b"},
         [](const Subject& s, const ValueList& values) { s.as<FrameLayout>().setCollapsable(truth(values)); }},
        {{"collapse", "cl", "b"},
         [](const Subject& s, const ValueList& values) { s.as<FrameLayout>().setCollapsed(truth(values)); },
         [](const Subject& s) { return int(s.as<FrameLayout>().isCollapsed()); }},
        {{"marginWidth", "mw", "i"},
         [](const Subject& s, const ValueList& values) { s.as<FrameLayout>().setMarginWidth(whole(values)); }},
        {{"marginHeight", "mh", "i"},
         [](const Subject& s, const ValueList& values) { s.as<FrameLayout>().setMarginHeight(whole(values)); }},
        {{"borderVisible", "bv", "b"}},
    };
}

}  // namespace

void registerLayouts(UiObjects& ui)
{
    const auto add = [&](const char* command, std::vector<ControlFlag> flags, QWidget* (*make)(UiObjects&)) {
        addControlCommand(ui, {command, command, Kind::Layout, withChildren(std::move(flags)), make});
    };
    add("paneLayout", paneFlags(), [](UiObjects&) -> QWidget* { return new PaneLayout; });
    add("columnLayout", columnFlags(), &makeBox<QBoxLayout::TopToBottom>);
    add("rowLayout", rowFlags(), &makeBox<QBoxLayout::LeftToRight>);
    add("formLayout", formFlags(), [](UiObjects&) -> QWidget* { return new FormLayout; });
    add("frameLayout", frameFlags(), [](UiObjects&) -> QWidget* { return new FrameLayout; });
}

}  // namespace ui
