#pragma once

/// The drawing tools, in the order that indexes preferences, menus and stroke records. Transform marks a record that
/// moves pixels instead of drawing; it has no options of its own.
enum class ToolType : int {
    Pencil = 0,
    Brush = 1,
    Eraser = 2,
    Text = 3,
    Line = 4,
    Arrow = 5,
    Ellipse = 6,
    Rectangle = 7,
    Transform = 8
};

constexpr bool isFreehand(ToolType tool)
{
    return tool >= ToolType::Pencil && tool <= ToolType::Eraser;
}

/// The tools that span a shape between two points; text is none of them.
constexpr bool isShape(ToolType tool)
{
    return tool >= ToolType::Line && tool <= ToolType::Rectangle;
}
