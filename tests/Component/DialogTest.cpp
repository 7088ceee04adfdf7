#include "Component/Dialog.h"
#include "Component/Application.h"
#include "Component/TabbedPane.h"
#include "Component/TextArea.h"
#include "Component/native/Robot.h"

#include <gtest/gtest.h>
#include <optional>

namespace varn {
namespace {

class NameDialog : public Dialog
{
  public:
    NameDialog() : Dialog(u"Rename") {}
    TextField name;
    Button extra{u"Extra"};
    TabbedPane tabs;
    Button onFirst{u"on first"};
    WString accepted;
    int builds = 0, pressed = 0, turned = 0;
    void tellProblem(WStringView text) { form->setProblem(name, text); }

  protected:
    void build() override
    {
        ++builds;
        setInitialSize(360, 240);
        form.emplace(getPane());
        form->addRow(u"&Name:", name);
        form->addWide(extra);
        form->addWide(tabs);
        onFirst.create(&tabs.addPage(u"One"));
        tabs.addPage(u"Two");
        tabs.onAction([this] { ++turned; });
        extra.onAction([this] { ++pressed; });
    }
    bool accept() override
    {
        accepted = name.getText();
        if (accepted.empty())
            tellProblem(u"A name is needed.");
        return !accepted.empty();
    }
    BaseWindow* firstFocus() override { return &name; }

  private:
    std::optional<FormLayout> form;
};

TEST(DialogTest, ReturnIsTheDefaultButtonAndEscapeLeaves)
{
    NameDialog dialog;
    robot::later(50, [&] {
        EXPECT_EQ(robot::focused(), dialog.name.getHandle());
        robot::key(robot::focused(), kKeyReturn); // refused: no name
        EXPECT_TRUE(dialog.isOpen());
        EXPECT_NE(robot::findByText(dialog.getHandle(), u"\u26A0 A name is needed."), nullptr);
        dialog.tellProblem(u"");
        EXPECT_EQ(robot::findByText(dialog.getHandle(), u"\u26A0 A name is needed."), nullptr);
        robot::type(robot::focused(), u"Crypt");
        robot::key(robot::focused(), kKeyReturn);
    });
    EXPECT_EQ(dialog.doModal(nullptr), Dialog::Ok);
    EXPECT_EQ(dialog.accepted, u"Crypt");
    EXPECT_EQ(dialog.name.getHandle(), nullptr);
    EXPECT_EQ(dialog.turned, 0); // its end turned no page

    robot::later(50, [&] { robot::key(robot::focused(), kKeyEscape); });
    EXPECT_EQ(dialog.doModal(nullptr), Dialog::Cancelled);
}

TEST(DialogTest, ShownAgainItListensOnceAndHasTheSizeItWasLeftWith)
{
    NameDialog dialog;
    for (int time = 0; time < 2; ++time) {
        robot::later(50, [&] {
            robot::click(dialog.extra.getHandle(), 3, 3);
            dialog.name.setText(u"x");
            if (time == 0)
                dialog.resize(500, 300);
            else
                EXPECT_EQ(dialog.getSize().width, 500);
            robot::click(robot::findByText(dialog.getHandle(), u"OK"), 3, 3);
        });
        EXPECT_EQ(dialog.doModal(nullptr), Dialog::Ok);
    }
    EXPECT_EQ(dialog.builds, 2);
    EXPECT_EQ(dialog.pressed, 2);
}

TEST(DialogTest, ADialogThatIsShownWithoutWaitingGoesWithItsOwner)
{
    {
        NameDialog dialog;
        dialog.show(nullptr);
        EXPECT_TRUE(dialog.isOpen());
    }
    NameDialog dialog;
    dialog.show(nullptr);
    dialog.end(Dialog::Cancelled);
    Application::processMessages();
    EXPECT_FALSE(dialog.isOpen());
}

} // namespace
} // namespace varn
