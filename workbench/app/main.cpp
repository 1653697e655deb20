#include "app/Batch.h"
#include "app/CommandLine.h"
#include "app/Console.h"
#include "app/Host.h"
#include "app/MainWindow.h"
#include "app/Theme.h"
#include "app/Version.h"
#include "mel/builtins/Quoting.h"

#include <QApplication>
#include <QScreen>

#include <algorithm>
#include <clocale>
#include <cstdio>

namespace {

/// Without a login session there is no runtime folder, which the toolkit mentions at every start; nothing here uses it.
void writeToolkitMessage(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.startsWith("QStandardPaths: ")) {
        std::fprintf(stderr, "%s\n", qPrintable(text));
    }
}

/// Qt takes the user's locale over; numbers in scenes and scripts have a point in every country.
void keepNumbersPlain()
{
    std::setlocale(LC_NUMERIC, "C");
}

int runWithoutWindow(int argc, char** argv, const app::CommandLine& line)
{
    // Pictures and fonts work without a display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    keepNumbersPlain();
    app::HostOptions options;
    options.batch = true;
    options.prefsDir = line.prefsDir;
    app::Host host(options);
    const app::Console console(host.session().output, stdout, app::Console::Shown::Everything);
    const int status = app::runBatch(host, line, QCoreApplication::applicationDirPath().toStdString());
    host.shutDown();
    return status;
}

/// What the command line asks for, once the window is there: callbacks and dialogs find it complete.
void runArguments(app::Host& host, app::MainWindow& window, const app::CommandLine& line)
{
    if (line.loadPlugin) {
        host.loadModule(app::ownModulePath(QCoreApplication::applicationDirPath().toStdString()));
    }
    if (!line.file.empty()) {
        window.runAction("file -force -open " + mel::quoted(line.file));
    }
    for (const app::CommandLine::Step& step : line.steps) {
        if (step.kind == app::CommandLine::Step::Kind::Script) {
            host.session().script().executeFile(step.text, true);
        } else {
            window.runAction(step.text);
        }
    }
}

void placeWindow(app::MainWindow& window)
{
    const QRect desk = QGuiApplication::primaryScreen()->availableGeometry();
    const QSize size(std::min(1440, desk.width()), std::min(900, desk.height()));
    window.resize(size);
    window.move(desk.x() + (desk.width() - size.width()) / 2, desk.y() + (desk.height() - size.height()) / 2);
}

int runWindow(int argc, char** argv, const app::CommandLine& line)
{
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);  // views show the same textures
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication application(argc, argv);
    keepNumbersPlain();
    QApplication::setApplicationDisplayName(QString());
    app::applyTheme(application);
    app::HostOptions options;
    options.batch = false;
    options.prefsDir = line.prefsDir;
    app::Host host(options);
    const app::Console console(host.session().output, stderr, app::Console::Shown::Problems);
    app::MainWindow window(host);
    placeWindow(window);
    window.show();
    window.activateWindow();
    host.session().idle.post([&] { runArguments(host, window, line); });
    const int status = application.exec();
    host.shutDown();
    return status;
}

bool hasDisplay()
{
#if defined(Q_OS_LINUX)
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(variable)) {
            return true;
        }
    }
    return false;
#else
    return true;
#endif
}

}  // namespace

int main(int argc, char** argv)
{
    const app::CommandLine line = app::parseCommandLine(std::vector<std::string>(argv + 1, argv + argc));
    if (!line.error.empty()) {
        std::fprintf(stderr, "lumisketch-workbench: %s\n\n%s", line.error.c_str(), app::usageText().c_str());
        return 2;
    }
    if (line.showHelp) {
        std::fputs(app::usageText().c_str(), stdout);
        return 0;
    }
    if (line.showVersion) {
        std::printf("lumisketch-workbench %s\n", app::kVersion);
        return 0;
    }
    qInstallMessageHandler(writeToolkitMessage);
    if (line.batch) {
        return runWithoutWindow(argc, argv, line);
    }
    if (!hasDisplay()) {
        std::fputs("lumisketch-workbench: there is no display to open a window on; -batch needs none\n", stderr);
        return 1;
    }
    return runWindow(argc, argv, line);
}
