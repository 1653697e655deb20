// Test programs that need Qt run here. String-based connections fail at run time with a warning only, so any Qt warning
// fails the test during which it comes. That a platform without a screen cannot raise windows is no fault.

#include <QApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cstdlib>

namespace {

void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    std::fprintf(stderr, "Qt: %s\n", qPrintable(text));
    const bool isPlatformLimit = text.startsWith("This plugin does not support ");
    if (type != QtDebugMsg && type != QtInfoMsg && !isPlatformLimit) {
        ADD_FAILURE() << "Qt warned: " << text.toStdString();
    }
}

}  // namespace

int main(int argc, char** argv)
{
    // Without a private runtime folder the platform warns before any test starts.
    const QTemporaryDir runtime;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
    }
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);  // as the program has it
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    qInstallMessageHandler(failOnWarning);
    return RUN_ALL_TESTS();
}
