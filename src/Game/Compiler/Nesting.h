#pragma once

#include <exception>
#include <thread>

namespace varn {

/// Bounded recursion over nested source: counts the levels and, every few hundred, goes on with a
/// fresh native stack, so that the deepest text the language admits is walked within any stack
/// size.
class Nesting
{
  public:
    /// What the automaton of the language's grammar could hold; deeper text is refused.
    static constexpr int kMaxEntries = 10000;

    /// Runs `body` one level deeper, counted as `entries` symbols of the grammar. False, without
    /// running it, when the text is nested too deeply.
    template <class Body>
    bool enter(int entries, Body&& body)
    {
        if (held + entries > kMaxEntries)
            return false;
        const Level here(*this, entries);
        if (levels % kLevelsPerStack == 0)
            onFreshStack(body);
        else
            body();
        return true;
    }

  private:
    static constexpr int kLevelsPerStack = 300;

    struct Level
    {
        Level(Nesting& nesting, int entries) : nesting(nesting), entries(entries)
        {
            nesting.held += entries;
            ++nesting.levels;
        }
        ~Level()
        {
            nesting.held -= entries;
            --nesting.levels;
        }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;
        Nesting& nesting;
        int entries;
    };

    template <class Body>
    static void onFreshStack(Body& body)
    {
        std::exception_ptr fault;
        std::thread stack([&] {
            try {
                body();
            } catch (...) {
                fault = std::current_exception();
            }
        });
        stack.join();
        if (fault)
            std::rethrow_exception(fault);
    }

    int held = 0;
    int levels = 0;
};

} // namespace varn
