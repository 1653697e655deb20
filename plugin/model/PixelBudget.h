#pragma once

#include "model/Picture.h"

#include <QBasicTimer>
#include <QObject>
#include <QSet>

#include <list>
#include <vector>

/// Whose pictures are looked at and drawn on: a drawing.
class PictureUser {
public:
    virtual ~PictureUser() = default;
    virtual void collectPicturesInUse(QSet<quint64>& ids) const = 0;
    virtual bool isDrawnOn() const = 0;  ///< a stroke is open
};

/// Holds the pixels of all unpacked pictures of the process within a number of bytes, by packing those that were shown
/// least recently. A picture in use is never packed. Packing a picture whose PNG is at hand costs nothing and happens
/// at once; encoding takes its time, so it waits for the event loop, one picture a turn, and for the end of a stroke or
/// of playback. A process without an event loop has nobody who would wait, and encodes at once.
class PixelBudget : public QObject {
public:
    static PixelBudget& instance();

    qint64 bytes() const { return m_bytes; }  ///< of all unpacked pictures
    qint64 limit() const { return m_limit; }
    void setLimit(qint64 bytes) { m_limit = bytes; }

    void addUser(const PictureUser* user);
    void removeUser(const PictureUser* user);

    /// Called after what may unpack pictures, leave them unused or encode them: time changes, pictures made anew,
    /// strokes and saves.
    void trim();

    // For pictures
    void enter(Picture::Data& data);   ///< its pixels are new
    void touch(Picture::Data& data);   ///< they are shown
    void remove(Picture::Data& data);  ///< they go

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Encode {
        None,
        Later,  ///< by the event loop; what waits for it counts as gone
        One,    ///< and the others later
        All
    };
    bool pack(Encode encode);  ///< true when pictures wait for the event loop
    bool isAtRest() const;     // nothing is played or drawn

    qint64 m_limit = qint64(256) << 20;
    qint64 m_bytes = 0;
    std::list<Picture::Data*> m_unpacked;  // least recently shown first
    std::vector<const PictureUser*> m_users;
    QBasicTimer m_nextTurn;
};
