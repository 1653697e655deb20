#pragma once

#include <QDir>
#include <QFont>
#include <QImage>
#include <QPainter>

#include <cmath>

/// Pictures for an image plane: a ball that bounces over a ground, with the frame number in the corner.
namespace session {

constexpr int kPlateCount = 48;

/// How high the ball is, as a part of its bounce. It lands on frame 12, and every 24 frames.
inline double ballHeight(int frameNumber)
{
    const double bounce = (frameNumber + 12) % 24 / 24.0;
    return 4 * bounce * (1 - bounce);
}

/// 1 for a ball in the air, less where it touches the ground.
inline double ballSquash(int frameNumber)
{
    const double above = ballHeight(frameNumber);
    return above < 0.1 ? 0.75 + 2.5 * above : 1;
}

constexpr double kBallRadius = 70;
constexpr double kGround = 560;

/// The ball's middle in the plate of a frame.
inline QPointF ballAt(int frameNumber)
{
    constexpr double kBounce = 360;
    return QPointF(160 + (frameNumber - 1) * 960.0 / (kPlateCount - 1),
                   kGround - kBallRadius * ballSquash(frameNumber) - kBounce * ballHeight(frameNumber));
}

/// The plate of a frame, 1 to kPlateCount.
inline QImage plate(int frameNumber)
{
    const double above = ballHeight(frameNumber), squash = ballSquash(frameNumber);
    const QPointF ball = ballAt(frameNumber);

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
    painter.drawEllipse(QPointF(ball.x(), kGround + 12), kBallRadius * (1 + above / 2), 12.0);
    painter.setBrush(QColor(0xc2, 0x55, 0x3a));
    painter.drawEllipse(ball, kBallRadius / squash, kBallRadius * squash);
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
