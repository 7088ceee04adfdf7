#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Util/Host.h"

#include <ctime>

namespace varn {
namespace {

/// The clock on the wall, in the user's time zone. Each method asks it anew.
struct Date
{};

std::tm now()
{
    const auto seconds = static_cast<std::time_t>(host().wallClockMs() / 1000);
    std::tm local{};
    localtime_r(&seconds, &local);
    return local;
}

/// A field of the calendar, counted from `origin`.
template <int std::tm::*field, int origin = 0>
int get()
{
    return now().*field + origin;
}

int getMilliseconds()
{
    return static_cast<int>(host().wallClockMs() % 1000);
}

double getTime()
{
    return static_cast<double>(host().wallClockMs()) / 1000;
}

} // namespace

void registerDate()
{
    auto made = std::make_unique<SQClassDef<Date>>("Date");
    made->addStaticFunc<&get<&std::tm::tm_mday>>("getDate");
    made->addStaticFunc<&get<&std::tm::tm_wday>>("getDay");
    made->addStaticFunc<&get<&std::tm::tm_year, 1900>>("getFullYear");
    made->addStaticFunc<&get<&std::tm::tm_hour>>("getHours");
    made->addStaticFunc<&getMilliseconds>("getMilliseconds");
    made->addStaticFunc<&get<&std::tm::tm_min>>("getMinutes");
    made->addStaticFunc<&get<&std::tm::tm_mon>>("getMonth");
    made->addStaticFunc<&get<&std::tm::tm_sec>>("getSeconds");
    made->addStaticFunc<&getTime>("getTime");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
