#include "Component/ListenerList.h"

#include <algorithm>

namespace varn {

void ListenerList::addListener(WStringView key, EventListener* listener)
{
    std::vector<EventListener*>& list = lists[WString(key)];
    if (std::ranges::find(list, listener) == list.end())
        list.push_back(listener);
}

void ListenerList::removeListener(WStringView key, EventListener* listener)
{
    if (const auto found = lists.find(key); found != lists.end())
        std::erase(found->second, listener);
}

bool ListenerList::fire(WStringView key, const EventObject& event) const
{
    const auto found = lists.find(key);
    if (found == lists.end() || found->second.empty())
        return false;
    const std::vector<EventListener*> heard = found->second; // a listener may change the list
    for (EventListener* const listener : heard)
        listener->handleEvent(event);
    return true;
}

} // namespace varn
