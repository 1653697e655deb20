// A contact sheet of the drawing model, to be looked at: every tool at many sizes, shapes, text, transforms and
// ghosts, each drawn with the model as the tools draw.
//
//     model-sheet FOLDER

#include "app/Host.h"
#include "session/Checks.h"
#include "session/sheet/Sections.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: model-sheet FOLDER\n");
        return 2;
    }
    QTemporaryDir preferences;
    app::HostOptions options;
    options.prefsDir = preferences.path().toStdString();
    app::Host host(options);
    sheet::Page page;
    page.heading("Lumisketch", "What the drawing model makes, from the drawing model itself.");
    sheet::addFreehand(page);
    sheet::addEdges(page);
    sheet::addShapes(page);
    sheet::addText(page);
    sheet::addTransforms(page);
    sheet::addGhosts(page);
    const QString file = QDir(argv[1]).filePath("model.png");
    if (!page.finished().save(file, "PNG", 0)) {
        return session::failed(file + " cannot be written.");
    }
    std::printf("%s\n", qPrintable(file));
    return 0;
}
