#pragma once

#include "model/PackedPixels.h"
#include "model/Picture.h"

#include <list>

/// What the copies of a picture share. While it has pixels it is entered in the pixel budget.
struct Picture::Data {
    /// What packed copies share as well, so that none is packed twice and no ink looked for twice.
    struct Shared {
        quint64 id;
        PackedPixels packed;
        InkMap ink;
        bool inkKnown;
    };

    Data();
    explicit Data(const std::shared_ptr<Shared>& drawing);  ///< without pixels
    ~Data();
    Data(const Data&) = delete;
    Data& operator=(const Data&) = delete;

    quint64 id() const { return shared->id; }
    bool isPacked() const { return !shared->packed.isEmpty(); }  ///< the pixels may go
    bool isSlowToUnpack() const;                                 ///< there are pixels that should be packed quickly
    const QByteArray& encoded();                                 ///< empty when encoding fails
    void packNow();                                              ///< stays unpacked when it cannot be
    void setPixels(const QImage& pixels);
    void setInk(const InkMap& ink);
    void unpackBeside(const Data* similar);  ///< null: nothing is similar
    void dropPixels();                       ///< only when packed

    void leaveBudget();
    void leaveEncoder();
    void leaveEncoderIfPacked();

    const std::shared_ptr<Shared> shared;
    QImage image;
    bool isPackable = true;  // as far as is known
    bool isInEncoder = false;
    qint64 budgeted = 0;                           // bytes entered in the budget
    std::list<Picture::Data*>::iterator inBudget;  // meaningful while some are
};
