#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace varn {

/// Jumps that wait for their target. Most wait alone or with a few, so those need no memory of
/// their own.
class JumpList
{
  public:
    void push_back(std::size_t jump)
    {
        if (count < few.size())
            few[count++] = jump;
        else
            more.push_back(jump);
    }
    template <class Use>
    void forEach(Use&& use) const
    {
        for (std::size_t i = 0; i < count; ++i)
            use(few[i]);
        for (const std::size_t jump : more)
            use(jump);
    }

  private:
    std::array<std::size_t, 4> few;
    std::size_t count = 0;
    std::vector<std::size_t> more;
};

} // namespace varn
