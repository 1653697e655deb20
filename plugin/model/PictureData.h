#pragma once

#include "model/PackedPixels.h"
#include "model/Picture.h"

#include <list>

/// What the copies of a picture share. While it has pixels it is entered in the pixel budget.
struct Picture::Data {
    Data();
    ~Data();
    Data(const Data&) = delete;
    Data& operator=(const Data&) = delete;

    bool isPacked() const { return !packed.isEmpty(); }  ///< the pixels may go
    const QByteArray& encoded();                         ///< empty when encoding fails
    void packNow();                                      ///< stays unpacked when it cannot be
    void setPixels(const QImage& pixels);
    void dropPixels();  ///< only when packed

    void leaveBudget();
    void leaveEncoder();

    quint64 id;
    QImage image;
    PackedPixels packed;  // of the image, from its packing or unpacking
    InkMap ink;
    bool inkKnown = false;
    bool isPackable = true;  // as far as is known
    bool isInEncoder = false;
    qint64 budgeted = 0;                           // bytes entered in the budget
    std::list<Picture::Data*>::iterator inBudget;  // meaningful while some are
};
