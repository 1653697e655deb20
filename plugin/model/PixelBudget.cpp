#include "model/PixelBudget.h"

#include "model/PictureData.h"

#include <maya/MAnimControl.h>

#include <QThread>

#include <algorithm>

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
    if (m_users.empty()) {
        m_nextTurn.stop();
    }
}

void PixelBudget::enter(Picture::Data& data)
{
    remove(data);
    data.budgeted = qint64(data.image.bytesPerLine()) * data.image.height();
    if (data.budgeted > 0) {
        data.inBudget = m_unpacked.insert(m_unpacked.end(), &data);
        m_bytes += data.budgeted;
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
    if (m_bytes <= m_limit) {
        return;
    }
    const bool hasEventLoop = QThread::currentThread()->loopLevel() > 0;
    const Encode encode = !isAtRest() ? Encode::None : hasEventLoop ? Encode::Later : Encode::All;
    if (pack(encode) && !m_nextTurn.isActive()) {
        m_nextTurn.start(0, this);
    }
}

// Stopping leaves the rest to the next trim: a stroke's end and every time change ask for one.
void PixelBudget::timerEvent(QTimerEvent*)
{
    if (!isAtRest() || !pack(Encode::One)) {
        m_nextTurn.stop();
    }
}

bool PixelBudget::isAtRest() const
{
    return !MAnimControl::isPlaying()
        && std::none_of(m_users.begin(), m_users.end(), [](const PictureUser* user) { return user->isDrawnOn(); });
}

bool PixelBudget::pack(Encode encode)
{
    QSet<quint64> inUse;
    for (const PictureUser* user : m_users) {
        user->collectPicturesInUse(inUse);
    }
    qint64 waiting = 0;  // bytes that go when they are encoded
    for (auto next = m_unpacked.begin(); next != m_unpacked.end() && m_bytes - waiting > m_limit;) {
        Picture::Data& data = **next++;  // packing takes it off the list
        if (inUse.contains(data.id) || (!data.isClean() && encode == Encode::None)) {
            continue;
        }
        if (!data.isClean() && encode == Encode::Later) {
            waiting += data.budgeted;
            continue;
        }
        if (!data.isClean()) {
            if (data.encoded().isEmpty()) {
                continue;  // and it is another one's turn, or this one would hold up all behind it
            }
            encode = encode == Encode::One ? Encode::Later : encode;
        }
        data.dropPixels();
    }
    return waiting > 0;
}
