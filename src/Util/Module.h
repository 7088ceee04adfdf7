#pragma once

#include "Util/Text.h"

namespace varn {

/// A part of the program that is loaded at its first use, because the libraries behind it would
/// weigh on every start. It lies beside the program, or in the library folder of an installation,
/// and stays to the end of the process.
/// @param file    "libvarnraster.so"
/// @param symbol  its C function that makes what the module is for
/// @param what    for the message: "drawing library"
/// @return the function's address
/// @throws Exception  the file cannot be loaded, or is of another kind
void* loadModule(const char* file, const char* symbol, WStringView what);

} // namespace varn
