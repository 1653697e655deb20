#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QMap>
#include <QString>

namespace support {

/// A text scene with one drawing: a picture on frame 1 of each of the cameras named, which every new scene has.
inline QByteArray drawingScene(const QMap<QString, QImage>& pictures)
{
    QByteArray record = "1 1 \"persp\" " + QByteArray::number(pictures.size());
    for (auto each = pictures.begin(); each != pictures.end(); ++each) {
        QBuffer png;
        each.value().save(&png, "PNG");
        record += "\n\"" + each.key().toUtf8() + "\" 1 0\n\"Sheet\" 1 1 1 0\n1 \"" + png.data().toHex() + '"';
    }
    return "//Maya ASCII 2019 scene\n"
           "requires maya \"2019\";\n"
           "requires -nodeType \"tqLumisketch\" -dataType \"tqLayerData\" \"lumisketch2\" \"2.5.4\";\n"
           "createNode transform -n \"lumisketch\";\n"
           "createNode tqLumisketch -n \"lumisketchShape\" -p \"lumisketch\";\n"
           "setAttr \".ld\" -type \"tqLayerData\" "
         + record + ";\n// End of sheet\n";
}

}  // namespace support
