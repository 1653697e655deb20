#include "view/GlText.h"

#include <QApplication>
#include <QFontMetrics>
#include <QImage>
#include <QOpenGLFunctions>
#include <QPainter>

#include <cmath>

namespace view {

namespace {

constexpr int kMostCached = 64;

}  // namespace

const GlText::Glyphs& GlText::glyphs(const QString& text, int size)
{
    const QString key = QString::number(size) + '|' + text;
    const auto found = m_cache.constFind(key);
    if (found != m_cache.constEnd()) {
        return *found;
    }
    if (m_cache.size() >= kMostCached) {
        clear();
    }
    QFont font = QApplication::font();
    font.setPixelSize(size);
    const QFontMetrics metrics(font);
    Glyphs made;
    made.margin = 2;  // what leans out of its box
    made.advance = metrics.horizontalAdvance(text);
    made.width = made.advance + 2 * made.margin;
    made.height = metrics.height();
    made.ascent = metrics.ascent();

    QImage image(made.width, made.height, QImage::Format_Alpha8);
    image.fill(0);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(made.margin, made.ascent, text);
    painter.end();

    glGenTextures(1, &made.texture);
    glBindTexture(GL_TEXTURE_2D, made.texture);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, image.bytesPerLine());
    glTexImage2D(GL_TEXTURE_2D, 0, GL_ALPHA8, made.width, made.height, 0, GL_ALPHA, GL_UNSIGNED_BYTE,
                 image.constBits());
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    return *m_cache.insert(key, made);
}

void GlText::draw(const QPointF& baseline, const QString& text, int size, const QColor& colour, Align align)
{
    if (text.isEmpty()) {
        return;
    }
    const Glyphs& glyphs = this->glyphs(text, size);
    double x = baseline.x() - glyphs.margin;
    x -= align == Align::Left ? 0 : align == Align::Centre ? glyphs.advance / 2.0 : glyphs.advance;
    // Texels on pixels: anything else would blur.
    const double left = std::floor(x + 0.5);
    const double top = std::floor(baseline.y() + 0.5) + glyphs.ascent;
    glBindTexture(GL_TEXTURE_2D, glyphs.texture);
    glEnable(GL_TEXTURE_2D);
    glColor4d(colour.redF(), colour.greenF(), colour.blueF(), colour.alphaF());
    glBegin(GL_QUADS);
    glTexCoord2i(0, 1);
    glVertex2d(left, top - glyphs.height);
    glTexCoord2i(1, 1);
    glVertex2d(left + glyphs.width, top - glyphs.height);
    glTexCoord2i(1, 0);
    glVertex2d(left + glyphs.width, top);
    glTexCoord2i(0, 0);
    glVertex2d(left, top);
    glEnd();
    glDisable(GL_TEXTURE_2D);
}

void GlText::clear()
{
    for (const Glyphs& glyphs : m_cache) {
        glDeleteTextures(1, &glyphs.texture);
    }
    m_cache.clear();
}

}  // namespace view
