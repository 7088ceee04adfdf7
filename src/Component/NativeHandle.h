#pragma once

namespace varn {

class NativeWindow; // never defined: stands for what the window toolkit calls a widget

/// Identifies a widget of the window toolkit; null: none.
using NativeHandle = NativeWindow*;

} // namespace varn
