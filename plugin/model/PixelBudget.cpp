#include "model/PixelBudget.h"

#include "model/PictureData.h"
#include "model/PictureEncoder.h"

#include <maya/MAnimControl.h>

#include <QThread>

#include <algorithm>

namespace {

constexpr int kMostWaiting = 8;  // pictures of undo that wait to be packed when a stroke begins

}  // namespace

PixelBudget& PixelBudget::instance()
{
    static PixelBudget budget;
    return budget;
}

void PixelBudget::addUser(const PictureUser* user)
{
    m_users.push_back(user);
}

void PixelBudget::removeUser(const PictureUser* user)
{
    m_users.erase(std::remove(m_users.begin(), m_users.end(), user), m_users.end());
}

void PixelBudget::enter(Picture::Data& data)
{
    remove(data);
    const qint64 bytes = qint64(data.image.bytesPerLine()) * data.image.height();
    if (bytes > 0) {
        data.inBudget = m_unpacked.insert(m_unpacked.end(), &data);
        data.budgeted = bytes;
        m_bytes += bytes;
    }
}

void PixelBudget::touch(Picture::Data& data)
{
    if (data.budgeted > 0) {
        m_unpacked.splice(m_unpacked.end(), m_unpacked, data.inBudget);
    }
}

void PixelBudget::remove(Picture::Data& data)
{
    if (data.budgeted > 0) {
        m_unpacked.erase(data.inBudget);
        m_bytes -= data.budgeted;
        data.budgeted = 0;
    }
}

void PixelBudget::trim()
{
    collect();
    const bool hasEventLoop = QThread::currentThread()->loopLevel() > 0;
    while (m_bytes > m_limit && pack() && !hasEventLoop) {
        PictureEncoder::instance().finish();
        collect();
    }
}

void PixelBudget::packSoon(Picture::Data& data)
{
    collect();
    if (data.isSlowToUnpack()) {
        PictureEncoder::instance().add(data, PackedPixels::quick);
    } else if (!picturesInUse().contains(data.id())) {
        data.dropPixels();
    }
}

void PixelBudget::catchUp()
{
    PictureEncoder& encoder = PictureEncoder::instance();
    while (encoder.waiting() > kMostWaiting && encoder.packOldest()) {
    }
    collect();
}

// What the encoder has ready.
void PixelBudget::collect()
{
    const std::vector<Picture::Data*> finished = PictureEncoder::instance().takeFinished();
    const QSet<quint64> inUse = finished.empty() ? QSet<quint64>() : picturesInUse();
    for (Picture::Data* data : finished) {
        if (data->isPacked() && !inUse.contains(data->id())) {
            data->dropPixels();
        }
    }
}

bool PixelBudget::isAtRest() const
{
    return !MAnimControl::isPlaying()
        && std::none_of(m_users.begin(), m_users.end(), [](const PictureUser* user) { return user->isDrawnOn(); });
}

QSet<quint64> PixelBudget::picturesInUse() const
{
    QSet<quint64> inUse;
    for (const PictureUser* user : m_users) {
        user->collectPicturesInUse(inUse);
    }
    return inUse;
}

// Of those that must be packed before they go only one is with the encoder at a time, so that undo's are not kept
// waiting; it becomes a PNG, which the next save wants of it. All of them count as gone already.
bool PixelBudget::pack()
{
    PictureEncoder& encoder = PictureEncoder::instance();
    const QSet<quint64> inUse = picturesInUse();
    const bool atRest = isAtRest();
    qint64 waiting = 0;  // bytes
    for (auto next = m_unpacked.begin(); next != m_unpacked.end() && m_bytes - waiting > m_limit;) {
        Picture::Data& data = **next++;  // dropping its pixels takes it off the list
        if (inUse.contains(data.id())) {
            continue;
        }
        if (data.isPacked()) {
            data.dropPixels();
            continue;
        }
        if (!data.isInEncoder && !(atRest && data.isPackable)) {
            continue;
        }
        if (data.isInEncoder || encoder.waiting() == 0) {
            encoder.add(data, PackedPixels::asPng);
        }
        waiting += data.budgeted;
    }
    return waiting > 0;
}
