#include "DialogFixture.h"

#include "Component/Application.h"
#include "Component/native/NativeWindow.h"
#include "Game/Database/LanguageManager.h"
#include "Game/Map/MapFile.h"
#include "MapEditor3D/frame/Texts.h"

namespace varn::test {

DialogTest::DialogTest()
{
    std::filesystem::copy(std::filesystem::path(VARN_SOURCE_DIR) / "demo", project.root(),
                          std::filesystem::copy_options::recursive);
    setMapFolder(u"Dungeon/");
    Dialog::rememberedSizes().clear();
    speak(u"Languages/English.xml");
}

DialogTest::~DialogTest() = default;

void DialogTest::speak(WStringView language)
{
    EXPECT_TRUE(LanguageManager::instance().load(language));
    useLanguageTexts();
}

void DialogTest::show(Dialog& dialog)
{
    dialog.show(nullptr);
    Application::processMessages();
}

bool DialogTest::stands(Dialog& dialog)
{
    return native::isVisible(windowOf(dialog));
}

NativeHandle DialogTest::windowOf(Dialog& dialog)
{
    return native::getParent(dialog.getPane().getHandle());
}

NativeHandle DialogTest::control(Dialog& dialog, WStringView text)
{
    const NativeHandle found = robot::findField(windowOf(dialog), text);
    EXPECT_TRUE(found) << toUtf8(text);
    return found;
}

void DialogTest::press(Dialog& dialog, WStringView button)
{
    const NativeHandle found = robot::findByText(windowOf(dialog), button);
    ASSERT_TRUE(found) << toUtf8(button);
    robot::click(found, 4, 4);
}

} // namespace varn::test

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    const varn::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
