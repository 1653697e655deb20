#include "settings/Panels.h"
#include "settings/Preferences.h"
#include "support/QtPrint.h"

#include <QPointer>
#include <QWidget>
#include <gtest/gtest.h>

#include <map>

namespace {

/// Keeps its place when it is closed, as panels do.
class KeepingPanel : public QWidget {
protected:
    void closeEvent(QCloseEvent*) override { Preferences::instance().setToolboxGeometry(saveGeometry()); }
};

class TestPanels : public Panels {
public:
    QWidget* panel(Panel panel) override { return existingPanel(panel); }
    QWidget* existingPanel(Panel panel) override { return m_panels[panel]; }
    void refresh(Panel) override {}
    bool open(Dialog) override { return false; }
    bool openLayerProperties(const QString&, int) override { return false; }

    QPointer<QWidget> add(Panel panel, QWidget* widget)
    {
        widget->setGeometry(30, 40, 200, 100);
        widget->show();
        return m_panels[panel] = widget;
    }

private:
    std::map<Panel, QPointer<QWidget>> m_panels;
};

class PanelsTest : public testing::Test {
protected:
    PanelsTest() { preferences = Preferences(); }
    ~PanelsTest() override { preferences = Preferences(); }

    Preferences& preferences = Preferences::instance();
    TestPanels panels;
};

TEST_F(PanelsTest, ThePlacesOfThoseThatExistAreKept)
{
    const auto toolbox = panels.add(Panel::Toolbox, new KeepingPanel);
    const auto manager = panels.add(Panel::LayerManager, new QWidget);
    manager->setAttribute(Qt::WA_DeleteOnClose);
    const auto options = panels.add(Panel::ToolOptions, new QWidget);
    const QByteArray toolboxPlace = toolbox->saveGeometry();
    const QByteArray optionsPlace = options->saveGeometry();
    preferences.setRetimingToolGeometry("from before");
    panels.destroyAll(Panels::Places::Keep);
    EXPECT_TRUE(!toolbox && !manager && !options);
    EXPECT_EQ(preferences.toolboxGeometry(), toolboxPlace);
    EXPECT_EQ(preferences.toolOptionsGeometry(), optionsPlace);
    EXPECT_FALSE(preferences.layerManagerGeometry().isEmpty());
    EXPECT_TRUE(preferences.colorPaletteGeometry().isEmpty());
    EXPECT_EQ(preferences.retimingToolGeometry(), QByteArray("from before")) << "there is no such panel";
}

TEST_F(PanelsTest, AllPlacesAreForgottenEvenThoseThatAreKeptOnClosing)
{
    const auto toolbox = panels.add(Panel::Toolbox, new KeepingPanel);
    preferences.setRetimingToolGeometry("from before");
    panels.destroyAll(Panels::Places::Forget);
    EXPECT_FALSE(toolbox);
    EXPECT_TRUE(preferences.toolboxGeometry().isEmpty());
    EXPECT_TRUE(preferences.retimingToolGeometry().isEmpty());
}

}  // namespace
