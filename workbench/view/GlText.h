#pragma once

#include <QColor>
#include <QFont>
#include <QHash>
#include <QPoint>
#include <QString>

namespace view {

/// Text as textures, one per string, so that it looks the same in every frame. To be used with a context current and
/// a projection of port pixels (origin lower left).
class GlText {
public:
    enum class Align { Left, Centre, Right };

    /// baseline: port pixels of the left end, middle or right end of the base line. size: pixels.
    void draw(const QPointF& baseline, const QString& text, int size, const QColor& colour, Align align = Align::Left);
    /// Deletes the textures.
    void clear();

private:
    struct Glyphs {
        unsigned texture = 0;
        int width = 0;
        int height = 0;
        int ascent = 0;
        int advance = 0;
        int margin = 0;
    };
    const Glyphs& glyphs(const QString& text, int size);

    QHash<QString, Glyphs> m_cache;
};

}  // namespace view
