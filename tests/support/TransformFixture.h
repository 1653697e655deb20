#pragma once

#include "support/DrawingScene.h"
#include "support/PointedTransform.h"
#include "support/SceneText.h"
#include "support/ViewStage.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>

constexpr int kCanvas = 1024;
constexpr QSize kView(kCanvas, 400);  // a pixel of the one is a pixel of the other, without 2D zoom

/// The program with the transform tool in use, in a view of its own that looks through the camera "front".
class TransformFixture : public testing::Test {
protected:
    // Starting the program takes longer than any of the tests, so those of a suite share one.
    static void SetUpTestSuite() { s_session = std::make_unique<Session>(); }
    static void TearDownTestSuite() { s_session.reset(); }

    void SetUp() override { ASSERT_TRUE(host().isRunning()) << host().output().toStdString(); }

    static support::LiveWorkbench& host() { return s_session->host; }
    static support::ViewStage& stage() { return s_session->stage; }
    static support::PointedTransform& tool() { return s_session->tool; }

    /// Runs a text that must not fail.
    static QString run(const QString& text)
    {
        const QString answer = host().run(text);
        EXPECT_FALSE(answer.contains("Error")) << text.toStdString() << ": " << answer.toStdString();
        return answer;
    }

    /// A scene with nothing but a picture, at frame 1 of the one layer of the camera. Nothing is kept to be
    /// pasted or undone.
    static void open(const QImage& picture)
    {
        QFile file(s_session->folder.filePath("scene.ma"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(support::drawingScene(QMap<QString, QImage>{{"front", picture}}));
        file.close();
        run(QString("file -force -open \"%1\"; currentTime 1").arg(file.fileName()));
        look(zoomed(1, {}));
        tool().takeUp();
        run("flushUndo");
    }

    static support::CameraSetting zoomed(double zoom, const QPointF& pan)
    {
        support::CameraSetting camera;
        camera.camera = "front";
        camera.fit = support::FilmFit::Horizontal;
        camera.panZoom = true;
        camera.zoom = zoom;
        camera.pan = pan;
        return camera;
    }
    static void look(const support::CameraSetting& camera) { stage().lookThrough(camera); }

    /// The drawing of all cameras, as the scene would hold it now.
    static QByteArray drawing()
    {
        QFile file(s_session->folder.filePath("saved.ma"));
        run(QString("file -rename \"%1\"; file -save -type \"mayaAscii\"").arg(file.fileName()));
        return file.open(QIODevice::ReadOnly) ? support::drawingText(file.readAll()) : QByteArray();
    }

private:
    struct Session {
        Session() { stage.openSingle(kView); }

        QTemporaryDir folder;
        support::LiveWorkbench host{LUMISKETCH_BIN "/lumisketch-workbench", {"-prefs", folder.path()}};
        support::ViewStage stage{host};
        support::PointedTransform tool{host, "stageView"};
    };
    inline static std::unique_ptr<Session> s_session;
};
