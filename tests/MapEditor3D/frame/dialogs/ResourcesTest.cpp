#include "DialogFixture.h"

#include "Component/Application.h"
#include "MapEditor3D/frame/dialogs/ResourceManagerDialog.h"
#include "Util/File.h"

#include <chrono>
#include <thread>
#include <unistd.h>

namespace varn::test {

namespace fs = std::filesystem;

namespace {

/// A folder outside of the project.
struct TemporaryFolder
{
    TemporaryFolder()
        : path(fs::canonical(fs::temp_directory_path()) /
               ("varn-elsewhere-" + std::to_string(::getpid())))
    {
        fs::create_directory(path);
    }
    ~TemporaryFolder() { fs::remove_all(path); }

    const fs::path path;
};

class ResourcesTest : public DialogTest
{
  protected:
    static const ResourceItemList& items(ResourceCategory category)
    {
        return GameResourceManager::instance().items(category);
    }

    TemporaryFolder elsewhere;
};

} // namespace

TEST_F(ResourcesTest, FilesFromElsewhereAreCopiedAndKeepWhatIsThere)
{
    const fs::path demo = project.root() / "Audio/SE";
    fs::copy_file(demo / "door.wav", elsewhere.path / "creak.wav");
    fs::copy_file(demo / "bell.wav", elsewhere.path / "door.wav"); // the name is taken
    fs::copy_file(demo / "gate.wav", elsewhere.path / "gate.wav"); // the same file
    ResourceManagerDialog dialog;
    show(dialog);
    const std::size_t before = items(ResourceCategory::SoundEffect).size();
    const auto inProject = readFile(demo / "door.wav");
    EXPECT_EQ(dialog.import(ResourceCategory::SoundEffect,
                            {elsewhere.path / "creak.wav", elsewhere.path / "door.wav",
                             elsewhere.path / "gate.wav", demo / "bell.wav",
                             project.root() / "README.md", elsewhere.path / "none.wav"}),
              2);
    const ResourceItemList& sounds = items(ResourceCategory::SoundEffect);
    ASSERT_EQ(sounds.size(), before + 2);
    EXPECT_EQ(sounds[before]->path, u"Audio/SE/creak.wav");
    EXPECT_EQ(sounds[before + 1]->path, u"Audio/SE/door-2.wav");
    EXPECT_EQ(readFile(demo / "door.wav"), inProject);
    EXPECT_EQ(readFile(demo / "door-2.wav"), readFile(demo / "bell.wav"));
    EXPECT_FALSE(project.has("Audio/SE/gate-2.wav"));
    ASSERT_EQ(host.messages.size(), 1U) << "what was refused is told once";
    EXPECT_NE(host.messages[0].find(u"README.md"), WString::npos);
    EXPECT_NE(host.messages[0].find(u"none.wav"), WString::npos);

    press(dialog, u"OK");
    GameResourceManager stored;
    ASSERT_TRUE(stored.loadDefault());
    EXPECT_TRUE(stored.findByPath(ResourceCategory::SoundEffect, u"Audio/SE/creak.wav"));
}

TEST_F(ResourcesTest, CancelLeavesTheListAndRemovingTheFile)
{
    const std::string document = project.read("Data/ResourceManager.xml");
    ResourceManagerDialog dialog;
    show(dialog);
    const std::size_t before = items(ResourceCategory::BackgroundMusic).size();
    press(dialog, u"Remove");
    EXPECT_EQ(items(ResourceCategory::BackgroundMusic).size(), before - 1);
    EXPECT_TRUE(project.has("Audio/BGM/mere.mid"));
    press(dialog, u"Cancel");
    EXPECT_EQ(items(ResourceCategory::BackgroundMusic).size(), before);
    EXPECT_EQ(project.read("Data/ResourceManager.xml"), document);
}

TEST_F(ResourcesTest, ASoundIsHeardFromAnyPlace)
{
    ResourceManagerDialog dialog;
    show(dialog);
    AuditionBar bar;
    bar.create(&dialog.getPane());
    bar.setFile(u"Audio/SE/bell.wav");
    const auto waitUntil = [](const auto& holds) {
        for (int i = 0; i < 400 && !holds(); ++i) {
            Application::processMessages();
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return holds();
    };
    EXPECT_FALSE(bar.isPlaying());
    bar.play();
    EXPECT_TRUE(waitUntil([&] { return bar.getPosition() > 200; }));
    bar.stop();
    EXPECT_FALSE(bar.isPlaying());
    EXPECT_EQ(bar.getPosition(), 0U);
    bar.setFile(u"Audio/SE/footstep.wav");
    bar.play();
    EXPECT_TRUE(waitUntil([&] { return !bar.isPlaying(); })) << "it ends by itself";
    bar.setFile(u"Audio/SE/none.wav");
    bar.play();
    EXPECT_FALSE(bar.isPlaying());
}

} // namespace varn::test
