#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QVector>

namespace sheet {

/// What a picture lies on: checks show where it is transparent.
enum class Ground { DarkChecks, LightChecks, Paper, None };

struct Tile {
    QImage image;
    QString caption = QString();
    int zoom = 1;  ///< sheet pixels for each of the image's, repeated and not smoothed
};

/// A tall page of pictures in rows: a column of labels at the left, captions above the pictures.
class Page {
public:
    static constexpr int kWidth = 2400;
    static constexpr int kLabels = 176;             ///< of the width is the labels' and the margins'
    static constexpr int kRoom = kWidth - kLabels;  ///< for a row's pictures and the gaps between them
    static constexpr int kGap = 8;                  ///< between pictures

    static const QColor kWindow;
    static const QColor kSeparator;
    static const QColor kText;
    static const QColor kFaintText;
    static const QColor kAccent;
    static const QColor kHighlight;

    explicit Page(int width = kWidth);

    /// The width that each of so many equal pictures has when they fill a row.
    static int share(int count) { return (kRoom - (count - 1) * kGap) / count; }

    void heading(const QString& text, const QString& explanation);
    void section(const QString& text, const QString& explanation);  ///< a heading under a rule
    void row(const QString& label, Ground ground, const QVector<Tile>& pictures);
    QImage finished() const;

private:
    void picture(const QPoint& corner, Ground ground, const Tile& picture);

    QImage m_page;
    int m_y;  // where the next row begins
};

}  // namespace sheet
