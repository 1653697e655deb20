#pragma once

#include <QDir>
#include <QFont>
#include <QImage>
#include <QPainter>

#include <cmath>

/// Pictures for an image plane: a ball that bounces over a ground, with the frame number in the corner.
namespace session {

constexpr int kPlateCount = 48;

/// The plate of a frame, 1 to kPlateCount. The ball lands on frame 12, and every 24 frames.
inline QImage plate(int frameNumber)
{
    constexpr double kRadius = 70;
    constexpr double kGround = 560;
    constexpr double kHeight = 360;  // of a bounce
    const double bounce = (frameNumber + 12) % 24 / 24.0;
    const double above = 4 * bounce * (1 - bounce);
    const double squash = above < 0.1 ? 0.75 + 2.5 * above : 1;
    const QPointF ball(160 + (frameNumber - 1) * 960.0 / (kPlateCount - 1),
                       kGround - kRadius * squash - kHeight * above);

    QImage image(1280, 720, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QLinearGradient sky(0, 0, 0, kGround);
    sky.setColorAt(0, QColor(0x5f, 0x86, 0xa8));
    sky.setColorAt(1, QColor(0xc9, 0xd6, 0xdc));
    painter.fillRect(image.rect(), sky);
    painter.fillRect(QRectF(0, kGround, image.width(), image.height() - kGround), QColor(0x7a, 0x72, 0x64));
    painter.setBrush(QColor(0, 0, 0, int(110 - 70 * above)));
    painter.drawEllipse(QPointF(ball.x(), kGround + 12), kRadius * (1 + above / 2), 12.0);
    painter.setBrush(QColor(0xc2, 0x55, 0x3a));
    painter.drawEllipse(ball, kRadius / squash, kRadius * squash);
    painter.setBrush(QColor(255, 255, 255, 70));
    painter.drawEllipse(ball - QPointF(24, 28 * squash), 18.0, 14 * squash);
    QFont font("DejaVu Sans");
    font.setPixelSize(48);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(image.rect().adjusted(0, 0, -28, -18), Qt::AlignRight | Qt::AlignBottom,
                     QString("%1").arg(frameNumber, 4, 10, QChar('0')));
    return image;
}

/// Writes plate.0001.png and those after it into an existing folder. False when one cannot be written.
inline bool writePlates(const QDir& folder)
{
    for (int number = 1; number <= kPlateCount; ++number) {
        if (!plate(number).save(folder.filePath(QString("plate.%1.png").arg(number, 4, 10, QChar('0'))))) {
            return false;
        }
    }
    return true;
}

}  // namespace session
