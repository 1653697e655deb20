// What the tools draw.

#include "session/sheet/Sections.h"

#include "session/sheet/Drawings.h"
#include "session/sheet/Sketch.h"

namespace sheet {

namespace {

const QColor kAmber(0xfa, 0xcd, 0x6e);
const QColor kInk(0x2b, 0x38, 0x46);

Sketch& blank(Sketch& sketch)
{
    sketch.addLayer("Ink", {1});
    sketch.goTo(1);
    return sketch;
}

/// Ink all over, for the eraser.
void fill(Sketch& sketch, const QRect& area, const QColor& colour)
{
    for (int y = area.top(); y <= area.bottom() + 40; y += 40) {
        sketch.stroke({ToolType::Pencil, 100, 1.0f, colour}, {{area.left(), y}, {area.right(), y}});
    }
}

}  // namespace

// Freehand ------------------------------------------------------------------------------------------------------------

namespace {

struct FreehandColumn {
    int penWidth;
    int pictureWidth;  // on the sheet
    int reduction;     // canvas pixels for each of the sheet's
};
const FreehandColumn kColumns[] = {{1, 168, 1},  {2, 168, 1},  {5, 180, 1},  {10, 200, 1}, {19, 220, 1},
                                   {20, 220, 1}, {40, 340, 1}, {70, 320, 2}, {100, 344, 2}};

constexpr int kCurveHeight = 200;
constexpr int kClickHeight = 116;

QImage freehand(const Ink& ink, const QSize& size, int reduction, bool clicked)
{
    Sketch sketch;
    blank(sketch);
    const QRect area(kCorner, size * reduction);
    if (ink.tool == ToolType::Eraser) {
        fill(sketch, area, ink.colour);
    }
    if (clicked) {
        sketch.click(ink, area.center());
    } else {
        sketch.stroke(ink, crossingCurve(area, ink.width));
    }
    const QImage shown = sketch.shown(area.size());
    return reduction == 1 ? shown : shown.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void addFreehandRows(Page& page, ToolType tool, const QString& name, const QColor& colour, Ground ground)
{
    const struct {
        const char* label;
        float from;
        float to;
        bool clicked;
    } rows[] = {{"100 %", 1.0f, 1.0f, false},
                {"50 %", 0.5f, 0.5f, false},
                {"pressure\n0 to 1", 0.0f, 1.0f, false},
                {"click", 1.0f, 1.0f, true}};
    for (const auto& row : rows) {
        const bool first = &row == rows;
        QVector<Tile> pictures;
        for (const FreehandColumn& column : kColumns) {
            const QSize size(column.pictureWidth, row.clicked ? kClickHeight : kCurveHeight);
            const Ink ink = {tool, column.penWidth, row.from, colour, row.to};
            const QString caption = QString(column.reduction == 1 ? "%1 px" : "%1 px, at half size");
            pictures << Tile{freehand(ink, size, column.reduction, row.clicked),
                             first ? caption.arg(column.penWidth) : QString()};
        }
        page.row(first ? name + "\n" + row.label : row.label, ground, pictures);
    }
}

}  // namespace

void addFreehand(Page& page)
{
    page.section("Freehand",
                 "One curve at every width. It crosses itself, and a stroke never builds up beyond its own opacity.");
    addFreehandRows(page, ToolType::Pencil, "Pencil", kAmber, Ground::DarkChecks);
    addFreehandRows(page, ToolType::Brush, "Brush", kAmber, Ground::DarkChecks);
    addFreehandRows(page, ToolType::Eraser, "Eraser", Page::kAccent, Ground::DarkChecks);
}

// Edges ---------------------------------------------------------------------------------------------------------------

namespace {

constexpr int kEdgeZoom = 4;
const QSize kEdgeSize(67, 60);

using EdgeDrawing = void (*)(Sketch&, const QPoint& centre);

void slant(Sketch& sketch, const Ink& ink, const QPoint& centre)
{
    sketch.stroke(ink, {centre + QPoint(-60, 28), centre + QPoint(60, -28)});
}

void cross(Sketch& sketch, const Ink& ink, const QPoint& centre)
{
    sketch.stroke(ink, {centre + QPoint(-60, -28), centre + QPoint(60, 28), centre + QPoint(60, 110),
                        centre + QPoint(-60, 110), centre + QPoint(-60, 28), centre + QPoint(60, -28)});
}

void clicks(Sketch& sketch, ToolType tool, const QPoint& centre)
{
    int x = -29;
    for (const int width : {1, 2, 3, 5, 10, 19}) {
        sketch.click({tool, width, 1.0f, kInk}, centre + QPoint(x + width / 2, -8));
        x += width + 3;
    }
    sketch.click({tool, 20, 1.0f, kInk}, centre + QPoint(-18, 16));
    sketch.click({tool, 21, 1.0f, kInk}, centre + QPoint(12, 16));
}

}  // namespace

void addEdges(Page& page)
{
    page.section("Edges", "Four times enlarged.");
    const struct {
        const char* caption;
        EdgeDrawing draw;
    } edges[] = {
        {"pencil 1 and brush 1",
         [](Sketch& s, const QPoint& c) {
             slant(s, {ToolType::Pencil, 1, 1.0f, kInk}, c - QPoint(0, 8));
             slant(s, {ToolType::Brush, 1, 1.0f, kInk}, c + QPoint(0, 8));
         }},
        {"pencil clicks 1 2 3 5 10 19, 20 21", [](Sketch& s, const QPoint& c) { clicks(s, ToolType::Pencil, c); }},
        {"brush clicks 1 2 3 5 10 19, 20 21", [](Sketch& s, const QPoint& c) { clicks(s, ToolType::Brush, c); }},
        {"pencil 20, rim",
         [](Sketch& s, const QPoint& c) {
             slant(s, {ToolType::Pencil, 20, 1.0f, kInk}, c);
         }},
        {"pencil 14, crossing at 50 %",
         [](Sketch& s, const QPoint& c) {
             cross(s, {ToolType::Pencil, 14, 0.5f, kInk}, c);
         }},
        {"brush 40, fall-off",
         [](Sketch& s, const QPoint& c) {
             slant(s, {ToolType::Brush, 40, 1.0f, kInk}, c);
         }},
        {"brush 30, crossing at 50 %",
         [](Sketch& s, const QPoint& c) {
             cross(s, {ToolType::Brush, 30, 0.5f, kInk}, c);
         }},
        {"eraser 20, rim",
         [](Sketch& s, const QPoint& c) {
             fill(s, QRect(c - QPoint(60, 60), QSize(120, 120)), kInk);
             slant(s, {ToolType::Eraser, 20, 1.0f, kInk}, c);
         }},
    };
    QVector<Tile> pictures;
    for (const auto& edge : edges) {
        Sketch sketch;
        const QRect area(kCorner, kEdgeSize);
        edge.draw(blank(sketch), area.center());
        pictures << Tile{sketch.shown(area.size()), edge.caption, kEdgeZoom};
    }
    page.row("", Ground::LightChecks, pictures);
}

// Shapes, text, transforms --------------------------------------------------------------------------------------------

namespace {

constexpr int kShapeHeight = 196;

using ShapeDrawing = void (*)(Sketch&, float opacity);

void drawLines(Sketch& sketch, float opacity)
{
    int y = 16;
    for (const int width : {1, 2, 5, 10, 20, 40}) {
        y += width / 2;
        sketch.shape({ToolType::Line, width, opacity, kAmber}, kCorner + QPoint(34, y + 8), kCorner + QPoint(236, y));
        y += width / 2 + 14;
    }
}

void drawArrows(Sketch& sketch, float opacity)
{
    const struct {
        int width;
        QPoint from, to;
    } arrows[] = {{1, {20, 24}, {60, 24}},  {3, {82, 30}, {142, 18}},  {6, {172, 34}, {252, 18}},
                  {2, {20, 66}, {250, 60}}, {6, {20, 108}, {246, 98}}, {12, {24, 164}, {240, 152}}};
    for (const auto& arrow : arrows) {
        sketch.shape({ToolType::Arrow, arrow.width, opacity, kAmber}, kCorner + arrow.from, kCorner + arrow.to);
    }
}

void drawBoxes(Sketch& sketch, ToolType tool, float opacity)
{
    const struct {
        int width;
        QRect box;
    } boxes[] = {{1, {14, 14, 60, 44}}, {3, {92, 16, 60, 44}},  {8, {176, 20, 72, 38}},
                 {2, {16, 80, 40, 98}}, {16, {86, 92, 66, 76}}, {30, {190, 100, 50, 60}}};
    for (const auto& each : boxes) {
        const QRect box = each.box.translated(kCorner);
        sketch.shape({tool, each.width, opacity, kAmber}, box.topLeft(), box.bottomRight());
    }
}

using Change = void (*)(ActiveStroke&);

/// The region as the transform tool frames it; it is no part of the drawing.
QImage framed(QImage image, const QRect& region)
{
    QPainter painter(&image);
    painter.setPen(QPen(Page::kHighlight, 1, Qt::DashLine));
    painter.drawRect(region.translated(-kCorner).adjusted(-1, -1, 0, 0));
    return image;
}

}  // namespace

void addShapes(Page& page)
{
    page.section("Shapes", "Widths 1 to 40 at full and at half opacity; an arrow shorter than 200 has a smaller head.");
    const struct {
        const char* name;
        ShapeDrawing draw;
    } shapes[] = {
        {"line", drawLines},
        {"arrow", drawArrows},
        {"ellipse", [](Sketch& s, float opacity) { drawBoxes(s, ToolType::Ellipse, opacity); }},
        {"rectangle", [](Sketch& s, float opacity) { drawBoxes(s, ToolType::Rectangle, opacity); }},
    };
    QVector<Tile> pictures;
    for (const auto& shape : shapes) {
        for (const float opacity : {1.0f, 0.5f}) {
            Sketch sketch;
            shape.draw(blank(sketch), opacity);
            pictures << Tile{sketch.shown(QSize(Page::share(8), kShapeHeight)),
                             QString("%1, %2 %").arg(shape.name).arg(int(opacity * 100))};
        }
    }
    page.row("", Ground::DarkChecks, pictures);
}

void addText(Page& page)
{
    page.section("Text", "Sizes in points. While it is edited a frame stands around it, even around no text yet.");
    const struct {
        const char* caption;
        int size;
        float opacity;
        const char* text;
        bool edited;
    } cases[] = {{"12 pt", 12, 1.0f, "hold two frames,\nthen snap", false},
                 {"12 pt, edited", 12, 1.0f, "hold two frames,\nthen snap", true},
                 {"36 pt", 36, 1.0f, "Smear", false},
                 {"36 pt, edited", 36, 1.0f, "Smear", true},
                 {"36 pt, 50 %", 36, 0.5f, "Smear", false},
                 {"36 pt, 50 %, edited", 36, 0.5f, "Smear", true},
                 {"36 pt, edited, empty", 36, 1.0f, "", true},
                 {"60 pt", 60, 1.0f, "\u00c0g\u00e9", false}};
    QVector<Tile> pictures;
    for (const auto& c : cases) {
        Sketch sketch;
        blank(sketch).beginText({ToolType::Text, c.size, c.opacity, kAmber}, kCorner + QPoint(24, 20),
                                QString::fromUtf8(c.text));
        if (!c.edited) {
            sketch.commit();
        }
        pictures << Tile{sketch.shown(QSize(Page::share(8), 120)), c.caption};
    }
    page.row("", Ground::DarkChecks, pictures);
}

void addTransforms(Page& page)
{
    page.section("Transforms", "What is done to the region in the dashed frame.");
    const struct {
        const char* caption;
        Change change;
        Change after;  // a second transform
    } cases[] = {
        {"as drawn", nullptr, nullptr},
        {"moved", [](ActiveStroke& t) { t.translation = QPoint(56, 32); }, nullptr},
        {"turned by 30\u00b0", [](ActiveStroke& t) { t.angle = 30; }, nullptr},
        {"turned by 90\u00b0", [](ActiveStroke& t) { t.angle = 90; }, nullptr},
        {"scaled by 1.4 and 0.7", [](ActiveStroke& t) { t.scaleX = 1.4, t.scaleY = 0.7; }, nullptr},
        {"mirrored", [](ActiveStroke& t) { t.scaleX = -1; }, nullptr},
        {"cut", [](ActiveStroke& t) { t.clearOnly = true; }, nullptr},
        {"cut and pasted elsewhere", [](ActiveStroke& t) { t.clearOnly = t.keepCut = true; },
         [](ActiveStroke& t) { t.pasteAsIs = true, t.translation = QPoint(56, 32); }},
    };
    const QRect region(kCorner + QPoint(52, 30), QSize(146, 118));
    QVector<Tile> pictures;
    for (const auto& c : cases) {
        Sketch sketch;
        bird(sketch, region.topLeft() - QPoint(12, 26));
        for (const Change change : {c.change, c.after}) {
            if (change) {
                change(sketch.beginTransform(region));
                sketch.commit();
            }
        }
        pictures << Tile{framed(sketch.shown(QSize(Page::share(8), kShapeHeight)), region), c.caption};
    }
    page.row("", Ground::LightChecks, pictures);
}

}  // namespace sheet
