#include "Util/InstanceLock.h"

#include "Support/ChildProcess.h"
#include "Support/TemporaryProject.h"

#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>

namespace varn {
namespace {

using Result = InstanceLock::Result;

/// A process that owns the lock until it is killed; it answers requests if told to.
class OtherInstance
{
  public:
    explicit OtherInstance(bool answers)
        : ready(makePipe()), child([this, answers] {
              InstanceLock lock(u"Test's product", ".");
              const char owned = lock.acquire() == Result::Owned ? 'y' : 'n';
              if (::write(ready.in, &owned, 1) != 1)
                  return 1;
              for (;;) {
                  ::usleep(1000);
                  if (answers)
                      lock.takeRequest();
              }
          })
    {
        char owned = 0;
        EXPECT_EQ(::read(ready.out, &owned, 1), 1);
        EXPECT_EQ(owned, 'y');
    }
    ~OtherInstance()
    {
        ::close(ready.in);
        ::close(ready.out);
    }
    void kill() { child.kill(); }

  private:
    struct Pipe
    {
        int out, in;
    };
    static Pipe makePipe()
    {
        int ends[2] = {-1, -1};
        EXPECT_EQ(::pipe(ends), 0);
        return {ends[0], ends[1]};
    }

    Pipe ready;
    test::ChildProcess child;
};

TEST(InstanceLock, KnowsALiveOwnerAndForgetsADeadOne)
{
    test::TemporaryProject project;
    OtherInstance other(true);
    InstanceLock lock(u"Test's product", ".");
    EXPECT_EQ(lock.acquire(), Result::OtherAlive);
    EXPECT_TRUE(lock.askToComeForward());
    EXPECT_EQ(InstanceLock(u"Other product", ".").acquire(), Result::Owned);
    other.kill();
    EXPECT_FALSE(lock.askToComeForward(50)) << "nobody is left to answer";
    EXPECT_EQ(lock.acquire(), Result::Owned);
    EXPECT_EQ(lock.acquire(), Result::Owned);
    EXPECT_GE(lock.descriptor(), 0) << "the dead owner's socket is in nobody's way";
}

TEST(InstanceLock, GivesUpOnAnOwnerThatDoesNotAnswer)
{
    test::TemporaryProject project;
    const OtherInstance other(false);
    InstanceLock lock(u"Test's product", ".");
    EXPECT_EQ(lock.acquire(), Result::OtherAlive);
    EXPECT_FALSE(lock.askToComeForward(100));
}

TEST(InstanceLock, CallsBackOnRequest)
{
    test::TemporaryProject project;
    std::filesystem::create_directory(
        std::string(120, 'x')); // too deep for a socket's address as such
    const std::filesystem::path folder = project.root() / std::string(120, 'x');
    InstanceLock owner(kProductName, folder), second(kProductName, folder);
    ASSERT_EQ(owner.acquire(), Result::Owned);
    ASSERT_EQ(second.acquire(), Result::OtherAlive);
    std::mutex mutex; // guards calls
    std::condition_variable called;
    int calls = 0;
    owner.callOnRequest([&] {
        const std::lock_guard lock(mutex);
        ++calls;
        called.notify_one();
    });
    for (int expected = 1; expected <= 2; ++expected) {
        EXPECT_TRUE(second.askToComeForward());
        std::unique_lock lock(mutex);
        EXPECT_TRUE(
            called.wait_for(lock, std::chrono::seconds(5), [&] { return calls == expected; }));
    }
}

TEST(InstanceLock, NeedsAFolder)
{
    EXPECT_EQ(InstanceLock(kProductName, "/nowhere/at all").acquire(), Result::CouldNotCreate);
}

} // namespace
} // namespace varn
