#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Util/Host.h"

namespace varn {
namespace {

/// Calls of another system, under the names they have there. What has no counterpart answers as if
/// there were no window.
struct WinAPI
{};

/// Opens a file or address with what the desktop uses for it. Over 32 is success, as callers test;
/// a program with parameters cannot be started.
int shellExecute(WStringView file, WStringView parameters)
{
    constexpr int kDone = 33, kFailed = 0;
    return parameters.empty() && host().openWithShell(file) ? kDone : kFailed;
}

int findHandleByTitle(WStringView)
{
    return 0;
}

WStringView getWindowText(int)
{
    return {};
}

bool setWindowText(int, WStringView)
{
    return false;
}

} // namespace

void registerWinApi()
{
    auto made = std::make_unique<SQClassDef<WinAPI>>("WinAPI");
    made->addStaticFunc<&shellExecute>("ShellExecute");
    made->addStaticFunc<&findHandleByTitle>("findHandleByTitle");
    made->addStaticFunc<&getWindowText>("GetWindowText");
    made->addStaticFunc<&setWindowText>("SetWindowText");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
