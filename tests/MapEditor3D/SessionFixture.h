#pragma once

#include "MapEditor3D/ProjectSession.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace varn::test {

/// An empty project with a settings file, a temporary folder and a lock of its own.
class SessionFixture : public ::testing::Test
{
  protected:
    SessionFixture()
    {
        std::filesystem::create_directories(project.root() / "machine/tmp");
        ::setenv("TMPDIR", (project.root() / "machine/tmp").c_str(), 1);
        ::setenv("XDG_RUNTIME_DIR", (project.root() / "machine").c_str(), 1);
    }
    ~SessionFixture() override
    {
        ::unsetenv("TMPDIR");
        ::unsetenv("XDG_RUNTIME_DIR");
    }

    std::filesystem::path settingsFile() const { return project.root() / "machine/mapeditor.ini"; }
    std::filesystem::path tempFolder() const
    {
        return project.root() / "machine/tmp/Varn's MapEditor";
    }
    void writeSettings(std::string_view text) { project.write("machine/mapeditor.ini", text); }
    void writeLanguages()
    {
        project.write("Languages/Japanese.xml",
                      "<Language><StringTable><string name=\"Inn\">Yado</string></StringTable>"
                      "</Language>");
        project.write("Languages/English.xml", "<Language/>");
    }

    TemporaryProject project;
    RecordingHost host;
};

/// An editor that remembers what it was asked for, and takes `steps` of zoom either way.
class RecordingEditor : public MapEditing
{
  public:
    std::vector<std::string> calls;
    WString mapName = u"B1F";
    bool canSave = true;
    int steps = 5;

    bool doSave() override
    {
        calls.emplace_back("save");
        return canSave;
    }
    WString getMapName() const override { return mapName; }
    bool undo() override { return note("undo"); }
    bool redo() override { return note("redo"); }
    void rotateMap() override { note("rotate"); }
    void reflectMap() override { note("reflect"); }
    void shiftMap(int dx, int dy) override
    {
        note("shift " + std::to_string(dx) + " " + std::to_string(dy));
    }
    void setTool(EditorTool tool) override
    {
        note("tool " + std::to_string(static_cast<int>(tool)));
    }
    bool setLayer(EditorLayer layer) override
    {
        note("layer " + std::to_string(static_cast<int>(layer)));
        return layer != EditorLayer::Third;
    }
    bool zoom(bool in) override
    {
        const int next = zoomed + (in ? 1 : -1);
        if (next < -steps || next > steps)
            return false;
        zoomed = next;
        return note(in ? "zoom in" : "zoom out");
    }

  private:
    bool note(std::string call)
    {
        calls.push_back(std::move(call));
        return true;
    }

    int zoomed = 0;
};

} // namespace varn::test
