#include "Util/Module.h"

#include "Util/Exception.h"
#include "Util/File.h"

#include <dlfcn.h>

namespace varn {

namespace {

void* openLibrary(const char* file)
{
    const std::filesystem::path folder = programFolder();
    for (const std::filesystem::path& place :
         {folder / file, folder / "../lib/varn" / file, std::filesystem::path(file)})
        if (void* const library = ::dlopen(place.c_str(), RTLD_NOW | RTLD_LOCAL))
            return library;
    return nullptr;
}

} // namespace

void* loadModule(const char* file, const char* symbol, WStringView what)
{
    void* const library = openLibrary(file);
    if (!library)
        throw Exception(u"Couldn't load the " + WString(what) + u": " + fromUtf8(::dlerror()));
    void* const address = ::dlsym(library, symbol);
    if (!address)
        throw Exception(u"The " + WString(what) + u" beside the program is of another kind.");
    return address;
}

} // namespace varn
