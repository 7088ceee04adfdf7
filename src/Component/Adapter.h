#pragma once

#include "Util/Text.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace varn {

/// Root of what gives a control its entries.
class Adapter
{
  public:
    virtual ~Adapter() = default;
    virtual std::size_t getCount() const = 0;
    /// What the control shows of an entry.
    virtual WString getText(std::size_t place) const = 0;
};

template <class T>
class ListAdapter : public Adapter
{
  public:
    virtual T* getItem(std::size_t place) const = 0;
};

/// Over a vector of pointers, which it does not own.
template <class T>
class ArrayAdapter : public ListAdapter<T>
{
  public:
    /// @param wording  what is shown of an entry
    ArrayAdapter(const std::vector<T*>& items, std::function<WString(const T&)> wording)
        : items(items), wording(std::move(wording))
    {}
    std::size_t getCount() const override { return items.size(); }
    T* getItem(std::size_t place) const override { return items[place]; }
    WString getText(std::size_t place) const override { return wording(*items[place]); }

  private:
    const std::vector<T*>& items;
    std::function<WString(const T&)> wording;
};

struct ListItem
{
    WString text;
    int data = 0;
};

class DefaultListAdapter : public ListAdapter<ListItem>
{
  public:
    void add(WStringView text, int data = 0) { items.push_back({WString(text), data}); }
    void clear() { items.clear(); }
    std::size_t getCount() const override { return items.size(); }
    ListItem* getItem(std::size_t place) const override { return &items[place]; }
    WString getText(std::size_t place) const override { return items[place].text; }

  private:
    mutable std::vector<ListItem> items;
};

} // namespace varn
