#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QMap>
#include <QString>

namespace support {

/// The pictures of a layer by their frame numbers.
using Sheets = QMap<int, QImage>;

/// A text scene with one drawing: a layer on each of the cameras named, which every new scene has.
inline QByteArray drawingScene(const QMap<QString, Sheets>& cameras)
{
    QByteArray record = "1 1 \"persp\" " + QByteArray::number(cameras.size());
    for (auto camera = cameras.begin(); camera != cameras.end(); ++camera) {
        record += "\n\"" + camera.key().toUtf8() + "\" 1 0\n\"Sheet\" " + QByteArray::number(camera->size()) + " 1 1 0";
        for (auto sheet = camera->begin(); sheet != camera->end(); ++sheet) {
            QBuffer png;
            sheet->save(&png, "PNG");
            record += '\n' + QByteArray::number(sheet.key()) + " \"" + png.data().toHex() + '"';
        }
    }
    return "//Maya ASCII 2019 scene\n"
           "requires maya \"2019\";\n"
           "requires -nodeType \"tqLumisketch\" -dataType \"tqLayerData\" \"lumisketch2\" \"2.5.4\";\n"
           "createNode transform -n \"lumisketch\";\n"
           "createNode tqLumisketch -n \"lumisketchShape\" -p \"lumisketch\";\n"
           "setAttr \".ld\" -type \"tqLayerData\" "
         + record + ";\n// End of sheet\n";
}

/// The same with a picture on frame 1 of each camera.
inline QByteArray drawingScene(const QMap<QString, QImage>& pictures)
{
    QMap<QString, Sheets> cameras;
    for (auto each = pictures.begin(); each != pictures.end(); ++each) {
        cameras[each.key()][1] = each.value();
    }
    return drawingScene(cameras);
}

}  // namespace support
