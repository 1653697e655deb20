#pragma once

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// The real program without a window or a display, and a folder of its own.
class BatchFixture : public testing::Test {
protected:
    struct Outcome {
        int status = -1;  ///< of the program's exit; -1 when it crashed or hung
        QString output;
    };

    QString path(const QString& name) const { return m_folder.filePath(name); }

    void write(const QString& name, const QByteArray& bytes)
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void start(QProcess& process, const QStringList& arguments) const
    {
        process.setProcessEnvironment(withoutDisplay());
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(LUMISKETCH_BIN "/lumisketch-workbench",
                      QStringList{"-batch", "-prefs", path("prefs")} + arguments);
    }

    Outcome run(const QStringList& arguments) const
    {
        QProcess process;
        start(process, arguments);
        Outcome result;
        if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit) {
            result.status = process.exitCode();
        }
        result.output = QString::fromUtf8(process.readAll());
        return result;
    }

    Outcome command(const QString& text) const { return run({"-command", text}); }

    /// The commands that save the scene in this folder.
    QString save(const QString& name, const QString& type = "mayaAscii") const
    {
        return QString("file -rename \"%1\"; file -save -type \"%2\"; ").arg(path(name), type);
    }

private:
    static QProcessEnvironment withoutDisplay()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("DISPLAY");
        environment.remove("QT_QPA_PLATFORM");
        return environment;
    }

    QTemporaryDir m_folder;
};
