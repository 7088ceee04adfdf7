#include "Graphics/Raster.h"
#include "Util/Module.h"

namespace varn {

namespace {

Raster* inForce = nullptr;

Raster* load()
{
    using Make = Raster* (*)();
    const auto make = reinterpret_cast<Make>(
        loadModule("libvarnraster.so", "varnMakeRaster", u"drawing library"));
    return make(); // lives to the end of the process
}

} // namespace

Raster& raster()
{
    if (inForce)
        return *inForce;
    static Raster* const loaded = load(); // once, whichever thread draws first
    return *loaded;
}

void setRaster(Raster* next)
{
    inForce = next;
}

} // namespace varn
