#include "MapEditor3D/recovery/RecoveryFile.h"
#include "MapEditor3D/recovery/ViewState.h"

#include <cstddef>
#include <cstdint>

// Any bytes as a record of unsaved strokes and as what a window is remembered by: what is read is
// written as the same, or refused.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const varn::ByteSpan bytes = std::as_bytes(std::span(data, size));
    try {
        const varn::RecoveryRecord record = varn::readRecovery(bytes, u"m.recovery");
        if (varn::writeRecovery(record) != varn::asChars(bytes))
            __builtin_trap();
    } catch (const varn::Exception&) {
    }
    const varn::ViewState state = varn::readViewState(bytes);
    if (varn::readViewState(varn::asBytes(varn::writeViewState(state))) != state)
        __builtin_trap();
    return 0;
}
