#pragma once

#include "Game/Database/WizFloor.h"
#include "Game/Map/WizMap.h"
#include "Graphics/Bitmap.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn::test {

/// A project of synthetic pictures in which every pixel tells its place, and a floor that names
/// them.
class PictureScene : public ::testing::Test
{
  protected:
    enum EventType
    {
        Plate,
        Sign,
        Lamp,
        Idol,
        Gloom,
        Gate
    };

    PictureScene();
    ~PictureScene() override { WizFloorList::instance().clear(); }

    void place(EventType type, int x, int y, Direction facing = {}, WString script = {});

    TemporaryProject project;
    RecordingHost host;
    WizMap map;
};

} // namespace varn::test
