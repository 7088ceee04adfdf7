#pragma once

#include "Component/Events.h"
#include "Util/Text.h"

#include <map>
#include <memory>
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
    ListenerList() = default;
    ~ListenerList() { lists->clear(); }
    ListenerList(const ListenerList&) = delete;
    ListenerList& operator=(const ListenerList&) = delete;

    /// Appends a listener; one that the key has already stays where it is.
    void addListener(WStringView key, EventListener* listener);
    void removeListener(WStringView key, EventListener* listener);
    /// Calls the key's listeners in the order they were added; one may add and remove others, and
    /// may even end the life of the component that fires. False: the key has none.
    bool fire(WStringView key, const EventObject& event) const;
    void clear() { lists->clear(); }
    /// Expires when the list does.
    std::weak_ptr<const void> getLife() const { return lists; }

  private:
    using Lists = std::map<WString, std::vector<EventListener*>, std::less<>>;
    /// Shared with the calls of `fire` that are under way.
    std::shared_ptr<Lists> lists = std::make_shared<Lists>();
};

} // namespace varn
