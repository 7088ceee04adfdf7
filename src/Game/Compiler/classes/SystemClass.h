#pragma once

namespace varn {

/// The native type of the script class "System"; what scripts can listen to is added to it by the
/// engine's classes.
struct ScriptSystem
{};

} // namespace varn
