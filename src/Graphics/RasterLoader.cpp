#include "Graphics/Raster.h"
#include "Util/Exception.h"
#include "Util/File.h"

#include <dlfcn.h>

namespace varn {

namespace {

Raster* inForce = nullptr;

constexpr const char* kLibrary = "libvarnraster.so";

/// Beside the program, where the build leaves it; in the library folder, where installing puts it.
void* openLibrary()
{
    const std::filesystem::path folder = programFolder();
    for (const std::filesystem::path& place :
         {folder / kLibrary, folder / "../lib/varn" / kLibrary, std::filesystem::path(kLibrary)})
        if (void* const library = ::dlopen(place.c_str(), RTLD_NOW | RTLD_LOCAL))
            return library;
    return nullptr;
}

Raster* load()
{
    using Make = Raster* (*)();
    void* const library = openLibrary();
    if (!library)
        throw Exception(u"Couldn't load the drawing library: " + fromUtf8(::dlerror()));
    const auto make = reinterpret_cast<Make>(::dlsym(library, "varnMakeRaster"));
    if (!make)
        throw Exception(u"The drawing library beside the program is of another kind.");
    return make(); // lives, like the library, to the end of the process
}

} // namespace

Raster& raster()
{
    if (!inForce)
        inForce = load();
    return *inForce;
}

void setRaster(Raster* next)
{
    inForce = next;
}

} // namespace varn
