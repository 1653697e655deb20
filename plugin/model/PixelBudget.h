#pragma once

#include "model/Picture.h"

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
/// least recently. A picture in use is never packed. Letting go of pixels of which a packed form is at hand costs
/// nothing and happens at once. What has to be packed first is left to the encoder, one picture after the other, and
/// begun only while nothing is played or drawn; in a process without an event loop it is waited for.
class PixelBudget {
public:
    static PixelBudget& instance();

    qint64 bytes() const { return m_bytes; }  ///< of all unpacked pictures
    qint64 limit() const { return m_limit; }
    void setLimit(qint64 bytes) { m_limit = bytes; }

    void addUser(const PictureUser* user);
    void removeUser(const PictureUser* user);

    /// Called after what may unpack pictures, leave them unused or pack them: time changes, pictures made anew,
    /// strokes, saves, and the encoder's work.
    void trim();
    /// Packs a picture that will hardly be shown again, whatever the limit: undo holds it. This never waits.
    void packSoon(Picture::Data& data);
    /// Comes back when no more pictures wait for the encoder than memory is meant for. Called before more are made.
    void catchUp();

    // For pictures
    void enter(Picture::Data& data);   ///< its pixels are new
    void touch(Picture::Data& data);   ///< they are shown
    void remove(Picture::Data& data);  ///< they go

private:
    void collect();
    bool pack();            // true when pictures wait to be packed before they can go
    bool isAtRest() const;  // nothing is played or drawn
    QSet<quint64> picturesInUse() const;

    qint64 m_limit = qint64(256) << 20;
    qint64 m_bytes = 0;
    std::list<Picture::Data*> m_unpacked;  // least recently shown first
    std::vector<const PictureUser*> m_users;
};
