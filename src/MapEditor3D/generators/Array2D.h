#pragma once

#include <cassert>
#include <vector>

namespace varn {

/// A rectangle of values, `y * width + x`.
template <class T>
class Array2D
{
  public:
    Array2D() = default;
    Array2D(int width, int height)
        : columns(width), lines(height),
          values(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
    {}

    int width() const { return columns; }
    int height() const { return lines; }
    bool contains(int x, int y) const { return x >= 0 && x < columns && y >= 0 && y < lines; }

    T& at(int x, int y)
    {
        assert(contains(x, y));
        return values[static_cast<std::size_t>(y) * static_cast<std::size_t>(columns) +
                      static_cast<std::size_t>(x)];
    }
    const T& at(int x, int y) const { return const_cast<Array2D*>(this)->at(x, y); }
    /// False, and `value` untouched: the place lies outside.
    bool read(int x, int y, T& value) const
    {
        if (!contains(x, y))
            return false;
        value = at(x, y);
        return true;
    }

  private:
    int columns = 0, lines = 0;
    std::vector<T> values;
};

} // namespace varn
