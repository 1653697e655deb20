// Leaves a numbered image sequence to draw over.
//
//     plate-sequence FOLDER

#include "session/Plates.h"

#include <QGuiApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: plate-sequence FOLDER\n");
        return 2;
    }
    const QDir folder(argv[1]);
    if (!session::writePlates(folder)) {
        std::fprintf(stderr, "The plates cannot be written into %s.\n", argv[1]);
        return 1;
    }
    std::printf("%s\n", qPrintable(folder.filePath("plate.0001.png")));
    return 0;
}
