#pragma once

#include "Component/Application.h"
#include "Component/Layout.h"
#include "MapEditor3D/ProjectSession.h"
#include "MapEditor3D/WizMapEditor.h"
#include "MapEditor3D/frame/dialogs/DialogFixture.h"

namespace varn::test {

/// The demo with a floor open, and a window to put a pane into.
class PaneTest : public DialogTest
{
  protected:
    PaneTest()
    {
        session.openProject();
        editor.load(u"Dungeon/Cloister.map");
        session.setEditor(&editor);
    }

    /// Shows a pane alone in a window.
    void show(GroupComponent& pane, int width = 320, int height = 360)
    {
        window.createTopLevel();
        BoxLayout(window, BoxLayout::Axis::Column, BoxLayout::Margin::None).add(pane, 1);
        window.setBounds(0, 0, width, height);
        window.setVisible(true);
        Application::processMessages();
    }

    WizMapEditor editor;
    ProjectSession session{"settings.ini", ProjectSession::Presence::Headless};
    GroupComponent window;
};

} // namespace varn::test
