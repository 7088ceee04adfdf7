#include "MapEditor3D/recovery/RecoveryKeeper.h"

#include "Util/File.h"
#include "Util/Host.h"
#include "Util/Thread.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>

namespace varn {

/// Writes records and takes them away, in the order it is told to. Of several orders for one file
/// only the last counts.
class RecoveryKeeper::Writer
{
  public:
    Writer() : thread("recovery", [this](const std::stop_token& stop) { run(stop); }) {}
    ~Writer()
    {
        thread.requestStop();
        thread.join();
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    void write(const std::filesystem::path& file, RecoveryRecord record)
    {
        order({file, std::move(record)});
    }
    void remove(const std::filesystem::path& file) { order({file, std::nullopt}); }
    void flush()
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return orders.empty() && !isBusy; });
    }

  private:
    struct Order
    {
        std::filesystem::path file;
        std::optional<RecoveryRecord> record; ///< nothing: the file goes
    };

    void order(Order next)
    {
        {
            const std::lock_guard lock(mutex);
            std::erase_if(orders, [&](const Order& one) { return one.file == next.file; });
            orders.push_back(std::move(next));
        }
        changed.notify_all();
    }
    /// Ends when it is told to and nothing is left to do.
    void run(const std::stop_token& stop)
    {
        std::unique_lock lock(mutex);
        for (;;) {
            changed.wait(lock, stop, [this] { return !orders.empty(); });
            if (orders.empty())
                return;
            const Order next = std::move(orders.front());
            orders.pop_front();
            isBusy = true;
            lock.unlock();
            carryOut(next);
            lock.lock();
            isBusy = false;
            changed.notify_all();
        }
    }
    /// A disk that takes nothing keeps nothing: there is no one to tell in the middle of a stroke.
    static void carryOut(const Order& one)
    {
        if (one.record) {
            createDirectories(one.file.parent_path());
            replaceFile(one.file, asBytes(writeRecovery(*one.record)));
        } else {
            std::error_code fault;
            std::filesystem::remove(one.file, fault);
        }
    }

    std::mutex mutex; ///< guards what follows, but the thread
    std::condition_variable_any changed;
    std::deque<Order> orders;
    bool isBusy = false;
    Thread thread;
};

RecoveryKeeper::RecoveryKeeper(WizMapEditor& editor, std::filesystem::path folder,
                               std::filesystem::path project)
    : editor(editor), folder(std::move(folder)), project(std::move(project))
{
    editor.addListener(*this);
    mapLoaded();
}

RecoveryKeeper::~RecoveryKeeper()
{
    editor.removeListener(*this);
    if (!isKept)
        drop();
}

void RecoveryKeeper::flush()
{
    if (writer)
        writer->flush();
}

/// The record of the open map goes, if this run kept one.
void RecoveryKeeper::drop()
{
    if (writer && hasUnsaved())
        writer->remove(file);
}

void RecoveryKeeper::mapLoaded()
{
    drop();
    file = recoveryPath(folder, project, editor.getMap().fileName);
    saved = kept = contentsOf(editor.getMap());
}

void RecoveryKeeper::mapSaved()
{
    drop();
    saved = kept = contentsOf(editor.getMap());
}

void RecoveryKeeper::committed()
{
    const WString& name = editor.getMap().fileName;
    MapContents now = contentsOf(editor.getMap());
    if (name.empty() || now == kept)
        return;
    kept = std::move(now);
    if (folder.empty())
        return;
    if (!writer)
        writer = std::make_unique<Writer>();
    if (hasUnsaved())
        writer->write(file, {toWide(project), name, host().wallClockMs(), kept});
    else
        writer->remove(file);
}

} // namespace varn
