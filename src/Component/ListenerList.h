#pragma once

#include "Component/Events.h"
#include "Util/Text.h"

#include <map>
#include <vector>

namespace varn {

inline constexpr WStringView kEventListener = u"EventListener";
inline constexpr WStringView kMouseListener = u"MouseListener";
inline constexpr WStringView kKeyListener = u"KeyListener";
inline constexpr WStringView kActionListener = u"ActionListener";
inline constexpr WStringView kChangeListener = u"ChangeListener";

/// Listeners by a text key, borrowed.
class ListenerList
{
  public:
    /// Appends a listener; one that the key has already stays where it is.
    void addListener(WStringView key, EventListener* listener);
    void removeListener(WStringView key, EventListener* listener);
    /// Calls the key's listeners in the order they were added; one may add and remove others.
    /// False: the key has none.
    bool fire(WStringView key, const EventObject& event) const;
    void clear() { lists.clear(); }

  private:
    std::map<WString, std::vector<EventListener*>, std::less<>> lists;
};

} // namespace varn
