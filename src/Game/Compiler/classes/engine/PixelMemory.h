#pragma once

#include "Game/Compiler/Heap.h"
#include "Game/Compiler/InterpreterException.h"
#include "Graphics/Bitmap.h"

namespace varn {

/// Runs what may change the size of a picture that a script owns, and tells the heap what its
/// pixels take then.
template <class Change>
bool countingPixels(Heap& heap, const Bitmap& bitmap, Change&& change)
{
    const auto before = static_cast<std::ptrdiff_t>(bitmap.byteCount());
    const auto count = [&] {
        heap.accountExternal(static_cast<std::ptrdiff_t>(bitmap.byteCount()) - before);
    };
    try {
        const bool done = change();
        count();
        return done;
    } catch (const interpreter::InterpreterException&) {
        throw; // there is no memory left
    } catch (const Exception&) {
        count(); // a load that failed left it empty
        throw;
    }
}

} // namespace varn
