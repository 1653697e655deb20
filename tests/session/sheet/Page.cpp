#include "session/sheet/Page.h"

#include <algorithm>

namespace sheet {

namespace {

constexpr int kMargin = 32;
constexpr int kLabelGap = 12;
constexpr int kTallest = 12000;
constexpr int kTextHeight = 20;
constexpr int kCheck = 8;

QFont sheetFont(bool heading)
{
    QFont font("DejaVu Sans");
    font.setPixelSize(14);
    font.setBold(heading);
    return font;
}

void paintGround(QPainter& painter, const QRect& rect, Ground ground)
{
    switch (ground) {
    case Ground::None: return;
    case Ground::Paper: painter.fillRect(rect, QColor(0xf3, 0xef, 0xe6)); return;
    case Ground::DarkChecks:
    case Ground::LightChecks: break;
    }
    const bool dark = ground == Ground::DarkChecks;
    painter.fillRect(rect, dark ? QColor(0x2b, 0x2b, 0x2b) : QColor(0xff, 0xff, 0xff));
    const QColor other = dark ? QColor(0x33, 0x33, 0x33) : QColor(0xe6, 0xe6, 0xe6);
    for (int y = 0; y < rect.height(); y += kCheck) {
        for (int x = (y / kCheck) % 2 * kCheck; x < rect.width(); x += 2 * kCheck) {
            painter.fillRect(QRect(rect.topLeft() + QPoint(x, y), QSize(kCheck, kCheck)) & rect, other);
        }
    }
}

}  // namespace

const QColor Page::kWindow(0x44, 0x44, 0x44);
const QColor Page::kSeparator(0x6a, 0x6a, 0x6a);
const QColor Page::kText(0xd8, 0xd8, 0xd8);
const QColor Page::kFaintText(0xb4, 0xb4, 0xb4);
const QColor Page::kAccent(0x8f, 0xc1, 0xcf);
const QColor Page::kHighlight(0x52, 0x85, 0xa6);

Page::Page(int width) : m_page(width, kTallest, QImage::Format_RGB32), m_y(kMargin)
{
    m_page.fill(kWindow);
}

void Page::section(const QString& text, const QString& explanation)
{
    m_y += 24;
    QPainter painter(&m_page);
    painter.fillRect(kMargin, m_y, m_page.width() - 2 * kMargin, 1, kSeparator);
    painter.end();
    m_y += 16;
    heading(text, explanation);
}

void Page::heading(const QString& text, const QString& explanation)
{
    QPainter painter(&m_page);
    const QRect line(kMargin, m_y, m_page.width() - 2 * kMargin, kTextHeight);
    painter.setPen(kText);
    painter.setFont(sheetFont(true));
    QRect taken;
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, text, &taken);
    painter.setPen(kFaintText);
    painter.setFont(sheetFont(false));
    painter.drawText(line.adjusted(taken.width() + 16, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, explanation);
    m_y += kTextHeight + 12;
}

void Page::row(const QString& label, Ground ground, const QVector<Tile>& pictures)
{
    const bool captioned =
        std::any_of(pictures.begin(), pictures.end(), [](const Tile& p) { return !p.caption.isEmpty(); });
    const int top = m_y + (captioned ? kTextHeight : 0);
    QPoint corner(kLabels - kMargin, top);
    int height = 0;
    for (const Tile& each : pictures) {
        picture(corner, ground, each);
        corner.rx() += each.image.width() * each.zoom + kGap;
        height = std::max(height, each.image.height() * each.zoom);
    }
    QPainter painter(&m_page);
    painter.setFont(sheetFont(false));
    painter.setPen(kText);
    painter.drawText(QRect(kMargin, top, kLabels - 2 * kMargin - kLabelGap, height),
                     Qt::AlignRight | Qt::AlignTop | Qt::TextWordWrap, label);
    m_y = top + height + kGap;
}

void Page::picture(const QPoint& corner, Ground ground, const Tile& picture)
{
    QPainter painter(&m_page);
    const QRect rect(corner, picture.image.size() * picture.zoom);
    paintGround(painter, rect, ground);
    painter.drawImage(rect, picture.image);
    painter.setFont(sheetFont(false));
    painter.setPen(kFaintText);
    painter.drawText(QRect(corner.x(), corner.y() - kTextHeight, rect.width(), kTextHeight),
                     Qt::AlignLeft | Qt::AlignVCenter, picture.caption);
}

QImage Page::finished() const
{
    return m_page.copy(0, 0, m_page.width(), m_y - kGap + kMargin);
}

}  // namespace sheet
