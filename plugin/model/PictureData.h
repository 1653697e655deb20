#pragma once

#include "model/Picture.h"

#include <list>

/// What the copies of a picture share. While it has pixels it is entered in the pixel budget.
struct Picture::Data {
    Data();
    ~Data();
    Data(const Data&) = delete;
    Data& operator=(const Data&) = delete;

    bool isClean() const { return !png.isEmpty(); }
    const QByteArray& encoded();  ///< empty when encoding fails
    void setPixels(const QImage& pixels);
    void dropPixels();  ///< only when clean

    void leaveBudget();

    quint64 id;
    QImage image;
    QByteArray png;  // of the image, from its decoding or encoding
    InkMap ink;
    bool inkKnown = false;
    qint64 budgeted = 0;                           // bytes entered in the budget
    std::list<Picture::Data*>::iterator inBudget;  // meaningful while some are
};
