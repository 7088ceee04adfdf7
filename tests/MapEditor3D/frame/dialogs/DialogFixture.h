#pragma once

#include "Component/Dialog.h"
#include "Component/native/Robot.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn::test {

/// A project that is a copy of the demo, texts in English, and a host that answers.
class DialogTest : public ::testing::Test
{
  protected:
    DialogTest();
    ~DialogTest() override;

    /// Takes a language document beside the program into force.
    static void speak(WStringView language);
    /// Shows a dialog without waiting for its end.
    static void show(Dialog& dialog);
    /// It was not closed yet.
    static bool stands(Dialog& dialog);
    /// The window of a dialog that stands.
    static NativeHandle windowOf(Dialog& dialog);
    /// The control of a dialog that a label names, or the button with that text; a test failure
    /// where there is none.
    static NativeHandle control(Dialog& dialog, WStringView text);
    static void press(Dialog& dialog, WStringView button);

    TemporaryProject project;
    RecordingHost host;
};

} // namespace varn::test
