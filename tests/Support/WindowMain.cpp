// main of the test programs that open windows: kept in memory, unless a display is asked for.
#include "Component/Application.h"

#include <cstdlib>
#include <gtest/gtest.h>

int main(int argumentCount, char** arguments)
{
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    ::testing::InitGoogleTest(&argumentCount, arguments);
    const varn::Application application(argumentCount, arguments);
    return RUN_ALL_TESTS();
}
