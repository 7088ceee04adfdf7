#pragma once

#include "Game/Compiler/Objects.h"

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace varn {

/// Collects what is reached. Natives that hold values report them here (`ClassInterface::trace`).
class Marker
{
  public:
    void mark(const OperandData& value)
    {
        if (value.getKind() == ValueKind::String ||
            (value.getKind() >= ValueKind::Array && value.getKind() <= ValueKind::UserPtr))
            markObject(reinterpret_cast<HeapObject*>(value.bits));
    }
    void mark(std::span<const OperandData> values)
    {
        for (const OperandData& value : values)
            mark(value);
    }

  private:
    friend class Heap;
    void markObject(HeapObject* object)
    {
        if (object->marked)
            return;
        object->marked = true;
        if (object->type != HeapObject::Type::String)
            pending.push_back(object);
    }
    /// Follows what was marked until nothing is pending: a list, not the native stack, so any
    /// nesting of values is walked.
    void drain();

    std::vector<HeapObject*> pending;
    std::size_t reachedObjects = 0;
};

/// Owner of the texts, arrays, tables and native instances of one interpreter: allocation by size
/// class, mark and sweep. Used by the interpreter's thread only.
///
/// Nothing is collected during an allocation. The machine asks `wantsCollection` at the
/// instructions that allocate, so a native may make values and hold them in plain variables until
/// it returns.
///
/// Everything that allocates throws interpreter::InterpreterException when the limit is reached.
class Heap
{
  public:
    Heap();
    ~Heap();
    Heap(const Heap&) = delete;
    Heap& operator=(const Heap&) = delete;

    static constexpr std::size_t kDefaultLimit = std::size_t{1} << 30;
    static constexpr std::size_t kFirstThreshold = 1000;

    /// Most bytes that values may take together.
    void setLimit(std::size_t bytes) { limit = bytes; }

    OperandData makeString(WStringView text);
    /// `left` and `right` in one text; appends to the buffer of `left` when no other cell sees
    /// further into it, so building a text piece by piece is linear.
    OperandData concat(const OperandData& left, WStringView right);
    /// `size` elements, each "undefined". "Exception: array length is too large" beyond the limit.
    Array* makeArray(std::int64_t size = 0);
    Array* makeArray(std::span<const OperandData> elements);
    MemberTable* makeTable();
    /// The new value owns `instance`: the class's `destroy` gets it once nothing reaches it.
    OperandData makeObject(ClassInterface& classInterface, void* instance);
    /// A value for an instance that somebody else owns and that outlives the run.
    OperandData makeUserPointer(ClassInterface& classInterface, void* instance);

    void push(Array& array, const OperandData& value)
    {
        if (array.count == array.capacity)
            grow(array, std::uint64_t{array.count} + 1);
        array.elements[array.count++] = value;
    }
    void append(Array& array, std::span<const OperandData> values);
    /// New elements are "undefined"; a size that cannot be is refused as by `makeArray`.
    void resize(Array& array, std::int64_t size);
    /// Puts `values`, which lie outside of the array, in the place of `count` elements.
    void replace(Array& array, std::uint32_t position, std::uint32_t count,
                 std::span<const OperandData> values);
    OperandData& ensureMember(MemberTable& table, std::uint32_t name);
    /// Tells of memory a native instance took (or, negative, gave back) beside itself.
    void accountExternal(std::ptrdiff_t bytes);

    /// Is a collection due before another `coming` bytes are allocated?
    bool wantsCollection(std::size_t coming = 0) const
    {
        return objects >= collectThreshold || bytes + coming >= byteThreshold;
    }
    /// Marks from what `markRoots` reports and frees the rest.
    void collect(const std::function<void(Marker&)>& markRoots);
    /// Frees everything. Costs nothing where nothing was made.
    void clear()
    {
        if (!isUntouched())
            freeAll();
    }
    /// Nothing was made since the heap was made or cleared.
    bool isUntouched() const { return blocks.empty() && large.empty(); }

    /// Live arrays, tables and native instances, and the count at which the next collection is due.
    std::size_t objectCount() const { return objects; }
    std::size_t threshold() const { return collectThreshold; }
    std::size_t byteCount() const { return bytes; }

  private:
    static constexpr std::size_t kStep = 16;
    static constexpr std::size_t kClasses = 17; // cells of 16 to 256 bytes by index 1 to 16
    static constexpr std::size_t kBlockBytes = std::size_t{32} << 10;
    static constexpr std::size_t kFirstBytes = std::size_t{1} << 20;
    static constexpr std::size_t kKeptEmptyBytes = std::size_t{4} << 20;
    static constexpr std::uint64_t kMaxTextUnits = std::uint64_t{1} << 30;

    /// First cell of a run of free ones; its head's count is their number.
    struct FreeCell
    {
        HeapObject head;
        FreeCell* next;
    };
    /// Where the next cell of a size comes from.
    struct FreeRun
    {
        std::byte* cursor = nullptr;
        std::byte* end = nullptr;
        FreeCell* next = nullptr;
    };
    struct Block
    {
        std::unique_ptr<std::byte[]> memory;
        std::size_t sizeClass;
        std::size_t size;
    };
    struct SweptBlock
    {
        FreeCell* first = nullptr;
        FreeCell* last = nullptr;
        std::size_t live = 0;
    };

    void* allocate(std::size_t size, HeapObject::Type type);
    void* allocateCell(std::size_t sizeClass);
    void refill(std::size_t sizeClass);
    void* allocateLarge(std::size_t size);
    StringBuffer* makeBuffer(std::uint64_t used, std::uint64_t capacity);
    OperandData makeBox(ClassInterface& classInterface, void* instance, ValueKind kind);
    void reserve(Array& array, std::uint64_t size, std::uint64_t wanted);
    void checkLength(std::int64_t size) const;
    void grow(Array& array, std::uint64_t size);
    void allocateElements(Array& array, std::uint32_t size);
    void charge(std::size_t size);
    void release(HeapObject& object);
    void freeAll();
    void sweep();
    SweptBlock sweepBlock(Block& block);
    void sweepLarge();
    [[noreturn]] void outOfMemory() const;

    std::array<FreeRun, kClasses> freeRuns{};
    std::vector<Block> blocks;
    std::vector<HeapObject*> large;
    std::size_t objects = 0;
    std::size_t collectThreshold = kFirstThreshold;
    std::size_t bytes = 0;
    std::size_t byteThreshold = kFirstBytes;
    std::size_t limit = kDefaultLimit;
};

} // namespace varn
