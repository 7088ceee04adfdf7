#include "Component/ListenerList.h"

#include <algorithm>

namespace varn {

void ListenerList::addListener(WStringView key, EventListener* listener)
{
    std::vector<EventListener*>& list = (*lists)[WString(key)];
    if (std::ranges::find(list, listener) == list.end())
        list.push_back(listener);
}

void ListenerList::removeListener(WStringView key, EventListener* listener)
{
    if (const auto found = lists->find(key); found != lists->end())
        std::erase(found->second, listener);
}

bool ListenerList::fire(WStringView key, const EventObject& event) const
{
    const std::shared_ptr<const Lists> held = lists;
    const auto listed = held->find(key);
    if (listed == held->end() || listed->second.empty())
        return false;
    const std::vector<EventListener*> heard = listed->second;
    for (EventListener* const listener : heard) {
        // One that was called before may have removed it, and with it perhaps its life.
        const auto now = held->find(key);
        if (now != held->end() && std::ranges::find(now->second, listener) != now->second.end())
            listener->handleEvent(event);
    }
    return true;
}

} // namespace varn
