#include "app/TimeField.h"

#include "support/HostFixture.h"
#include "workbench/app/WindowSession.h"

namespace {

class TimeFieldTest : public HostFixture {
protected:
    TimeFieldTest()
    {
        field.show();
        QApplication::setActiveWindow(&field);
    }
    /// Types one part, lets the time go on from 10 to 11, and types the other.
    void typeDuring(const QString& before, const QString& after)
    {
        run("currentTime 10");
        field.setFocus();
        field.selectAll();
        type(&field, before);
        run("currentTime 11");
        EXPECT_EQ(field.text(), before);
        type(&field, after);
    }
    double time() { return session().scene.currentTime().value; }

    int actions = 0;
    app::TimeField field{session(), app::TimeField::Shows::CurrentTime, [this](const std::string& text) {
                             ++actions;
                             return run(text);
                         }};
};

}  // namespace

TEST_F(TimeFieldTest, KeepsWhatIsTypedWhileTheTimeGoesOn)
{
    typeDuring("2", "5\n");
    EXPECT_EQ(time(), 25);
    typeDuring("10", "\n");
    EXPECT_EQ(time(), 10) << "what the field held before";
    EXPECT_EQ(actions, 2);
    run("currentTime 30");
    EXPECT_EQ(field.text(), "30") << "and follows again";
}

TEST_F(TimeFieldTest, TakesWhatIsTypedWhenItIsLeftButNotAfterEscape)
{
    typeDuring("10", "");
    field.clearFocus();
    EXPECT_EQ(time(), 10);
    typeDuring("2", "");
    pressKey(&field, Qt::Key_Escape);
    EXPECT_EQ(field.text(), "11");
    field.clearFocus();
    EXPECT_EQ(time(), 11);
    EXPECT_EQ(actions, 1);
}
