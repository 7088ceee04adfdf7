#include "Game/Compiler/Heap.h"

#include "Game/Compiler/ClassInterface.h"
#include "Game/Compiler/ElementMemory.h"
#include "Game/Compiler/InterpreterException.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace varn {

using interpreter::InterpreterException;

namespace {

constexpr std::uint8_t kOwned = 1; // flag of a box: its instance dies with it

std::size_t objectSize(const HeapObject& object)
{
    switch (object.type) {
    case HeapObject::Type::String:
        return sizeof(StringBuffer) +
               static_cast<const StringBuffer&>(object).capacity * sizeof(char16_t);
    case HeapObject::Type::Array:
        return sizeof(Array);
    case HeapObject::Type::Table:
        return sizeof(MemberTable);
    default:
        return sizeof(ObjectBox);
    }
}

} // namespace

void Marker::drain()
{
    while (!pending.empty()) {
        HeapObject* object = pending.back();
        pending.pop_back();
        ++reachedObjects;
        switch (object->type) {
        case HeapObject::Type::Array: {
            const auto& array = static_cast<const Array&>(*object);
            mark(std::span(array.begin(), array.end()));
            break;
        }
        case HeapObject::Type::Table:
            for (const MemberTable::Member& member : static_cast<const MemberTable&>(*object).all())
                mark(member.value);
            break;
        case HeapObject::Type::Box: {
            const auto& box = static_cast<const ObjectBox&>(*object);
            if (box.classInterface && box.instance)
                box.classInterface->trace(box.instance, *this);
            break;
        }
        default:
            break;
        }
    }
}

Heap::Heap() = default;

Heap::~Heap()
{
    clear();
}

void Heap::outOfMemory() const
{
    throw InterpreterException(u"Exception: out of memory", u"Interpreter::allocate", 0,
                               InterpreterException::Severity::Fatal);
}

void Heap::charge(std::size_t size)
{
    if (size > limit || bytes > limit - size)
        outOfMemory();
    bytes += size;
}

void* Heap::allocate(std::size_t size, HeapObject::Type type)
{
    charge(size);
    const std::size_t sizeClass = (size + kStep - 1) / kStep;
    void* memory = sizeClass < kClasses ? allocateCell(sizeClass) : allocateLarge(size);
    HeapObject head;
    head.type = type;
    head.sizeClass = static_cast<std::uint8_t>(sizeClass < kClasses ? sizeClass : 0);
    std::memcpy(memory, &head, sizeof head);
    return memory;
}

void* Heap::allocateCell(std::size_t sizeClass)
{
    FreeRun& run = freeRuns[sizeClass];
    if (run.cursor == run.end)
        refill(sizeClass);
    std::byte* cell = run.cursor;
    run.cursor += sizeClass * kStep;
    return cell;
}

/// Takes the next run of free cells of the class, or a new block.
void Heap::refill(std::size_t sizeClass)
{
    FreeRun& run = freeRuns[sizeClass];
    if (run.next) {
        FreeCell* cell = run.next;
        run.cursor = reinterpret_cast<std::byte*>(cell);
        run.end = run.cursor + std::size_t{cell->head.count} * sizeClass * kStep;
        run.next = cell->next;
        return;
    }
    const std::size_t size = kBlockBytes / (sizeClass * kStep) * sizeClass * kStep;
    Block block{std::unique_ptr<std::byte[]>(new (std::nothrow) std::byte[size]()), sizeClass,
                size};
    if (!block.memory)
        outOfMemory();
    run.cursor = block.memory.get();
    run.end = run.cursor + size;
    blocks.push_back(std::move(block));
}

void* Heap::allocateLarge(std::size_t size)
{
    void* memory = std::malloc(size);
    if (!memory)
        outOfMemory();
    large.push_back(static_cast<HeapObject*>(memory));
    return memory;
}

StringBuffer* Heap::makeBuffer(std::uint64_t used, std::uint64_t capacity)
{
    if (capacity > kMaxTextUnits)
        outOfMemory();
    const std::size_t size =
        (sizeof(StringBuffer) + capacity * sizeof(char16_t) + kStep - 1) / kStep * kStep;
    void* memory = allocate(size, HeapObject::Type::String);
    const HeapObject head = *static_cast<HeapObject*>(memory);
    auto* buffer = new (memory) StringBuffer;
    static_cast<HeapObject&>(*buffer) = head;
    buffer->capacity = static_cast<std::uint32_t>((size - sizeof(StringBuffer)) / sizeof(char16_t));
    buffer->count = static_cast<std::uint32_t>(used);
    return buffer;
}

OperandData Heap::makeString(WStringView text)
{
    StringBuffer* buffer = makeBuffer(text.size(), text.size());
    if (!text.empty()) // an empty view may point nowhere
        std::memcpy(buffer->units(), text.data(), text.size() * sizeof(char16_t));
    return OperandData::string(buffer, buffer->count);
}

OperandData Heap::concat(const OperandData& left, WStringView right)
{
    StringBuffer* buffer = left.asBuffer();
    const std::uint32_t before = left.textLength();
    const std::uint64_t total = std::uint64_t{before} + right.size();
    if (buffer->count != before || buffer->capacity < total) {
        StringBuffer* grown = makeBuffer(before, total + total / 2);
        std::memcpy(grown->units(), buffer->units(), before * sizeof(char16_t));
        buffer = grown;
    }
    std::memcpy(buffer->units() + before, right.data(), right.size() * sizeof(char16_t));
    buffer->count = static_cast<std::uint32_t>(total);
    return OperandData::string(buffer, buffer->count);
}

void Heap::checkLength(std::int64_t size) const
{
    if (size < 0 || static_cast<std::uint64_t>(size) > limit / sizeof(OperandData) ||
        size > Array::kMaxLength)
        throw InterpreterException(u"Exception: array length is too large", u"Array::constructor",
                                   0, InterpreterException::Severity::Fatal);
}

Array* Heap::makeArray(std::int64_t size)
{
    void* memory = allocate(sizeof(Array), HeapObject::Type::Array);
    const HeapObject head = *static_cast<HeapObject*>(memory);
    auto* array = new (memory) Array;
    static_cast<HeapObject&>(*array) = head;
    ++objects;
    if (size != 0)
        resize(*array, size);
    return array;
}

Array* Heap::makeArray(std::span<const OperandData> elements)
{
    Array* array = makeArray();
    append(*array, elements);
    return array;
}

void Heap::resize(Array& array, std::int64_t size)
{
    checkLength(size);
    const auto wanted = static_cast<std::uint32_t>(size);
    if (array.count == 0 && wanted > array.capacity && array.elements == array.inlined)
        return allocateElements(array, wanted);
    if (wanted > array.capacity)
        reserve(array, wanted, wanted);
    if (wanted > array.count)
        std::fill(array.elements + array.count, array.elements + wanted, OperandData());
    array.count = wanted;
}

/// The first elements of an empty array: fresh memory is "undefined" as it stands.
void Heap::allocateElements(Array& array, std::uint32_t size)
{
    charge(std::size_t{size} * sizeof(OperandData));
    auto* memory = static_cast<OperandData*>(ElementMemory::allocate(size * sizeof(OperandData)));
    if (!memory) {
        bytes -= std::size_t{size} * sizeof(OperandData);
        outOfMemory();
    }
    array.elements = memory;
    array.capacity = array.count = size;
}

void Heap::reserve(Array& array, std::uint64_t size, std::uint64_t wanted)
{
    if (size > Array::kMaxLength)
        outOfMemory();
    const bool inlined = array.elements == array.inlined;
    const std::size_t before = inlined ? 0 : std::size_t{array.capacity} * sizeof(OperandData);
    const std::size_t after = wanted * sizeof(OperandData);
    charge(after); // both blocks stand for a moment
    auto* memory = static_cast<OperandData*>(
        ElementMemory::grow(inlined ? nullptr : array.elements, before, after));
    if (!memory) {
        bytes -= after;
        outOfMemory();
    }
    if (inlined)
        std::copy(array.begin(), array.end(), memory);
    bytes -= before;
    array.elements = memory;
    array.capacity = static_cast<std::uint32_t>(wanted);
}

void Heap::grow(Array& array, std::uint64_t size)
{
    reserve(array, size, std::max<std::uint64_t>(size, std::uint64_t{array.capacity} * 2));
}

void Heap::append(Array& array, std::span<const OperandData> values)
{
    const std::uint64_t size = array.count + std::uint64_t{values.size()};
    const bool own = values.data() == array.begin(); // an array behind itself: the block may move
    if (size > array.capacity)
        grow(array, size);
    const OperandData* from = own ? array.begin() : values.data();
    std::copy(from, from + values.size(), array.end());
    array.count = static_cast<std::uint32_t>(size);
}

void Heap::replace(Array& array, std::uint32_t position, std::uint32_t count,
                   std::span<const OperandData> values)
{
    const std::uint64_t size = array.count - count + std::uint64_t{values.size()};
    if (size > array.capacity)
        grow(array, size);
    OperandData* place = array.begin() + position;
    std::memmove(static_cast<void*>(place + values.size()), place + count,
                 (array.count - position - count) * sizeof(OperandData));
    std::copy(values.begin(), values.end(), place);
    array.count = static_cast<std::uint32_t>(size);
}

MemberTable* Heap::makeTable()
{
    void* memory = allocate(sizeof(MemberTable), HeapObject::Type::Table);
    const HeapObject head = *static_cast<HeapObject*>(memory);
    auto* table = new (memory) MemberTable;
    static_cast<HeapObject&>(*table) = head;
    ++objects;
    return table;
}

OperandData& Heap::ensureMember(MemberTable& table, std::uint32_t name)
{
    const std::size_t before = table.footprint();
    OperandData& member = table.ensure(name);
    if (table.footprint() != before)
        charge(table.footprint() - before);
    return member;
}

OperandData Heap::makeBox(ClassInterface& classInterface, void* instance, ValueKind kind)
{
    void* memory = allocate(sizeof(ObjectBox), HeapObject::Type::Box);
    const HeapObject head = *static_cast<HeapObject*>(memory);
    auto* box = new (memory) ObjectBox;
    static_cast<HeapObject&>(*box) = head;
    box->classInterface = &classInterface;
    box->instance = instance;
    box->flags = kind == ValueKind::Object ? kOwned : 0;
    ++objects;
    return OperandData::object(kind, box);
}

OperandData Heap::makeObject(ClassInterface& classInterface, void* instance)
{
    return makeBox(classInterface, instance, ValueKind::Object);
}

OperandData Heap::makeUserPointer(ClassInterface& classInterface, void* instance)
{
    return makeBox(classInterface, instance, ValueKind::UserPtr);
}

void Heap::accountExternal(std::ptrdiff_t size)
{
    if (size > 0)
        charge(static_cast<std::size_t>(size));
    else
        bytes -= std::min(bytes, static_cast<std::size_t>(-size));
}

void Heap::collect(const std::function<void(Marker&)>& markRoots)
{
    Marker marker;
    markRoots(marker);
    marker.drain();
    sweep();
    objects = marker.reachedObjects;
    // Twice the survivors; and where few objects hold many elements, in step with what a walk
    // costs.
    collectThreshold = std::max({collectThreshold, objects * 2, objects + bytes / 256});
    byteThreshold = std::max(kFirstBytes, std::min(bytes * 2, bytes + (limit - bytes) / 2));
}

/// Gives back what an object holds beside its cell.
void Heap::release(HeapObject& object)
{
    bytes -= objectSize(object);
    switch (object.type) {
    case HeapObject::Type::Array: {
        auto& array = static_cast<Array&>(object);
        if (array.elements != array.inlined) {
            const std::size_t size = std::size_t{array.capacity} * sizeof(OperandData);
            bytes -= size;
            ElementMemory::release(array.elements, size);
        }
        break;
    }
    case HeapObject::Type::Table: {
        auto& table = static_cast<MemberTable&>(object);
        bytes -= table.footprint();
        table.~MemberTable();
        break;
    }
    case HeapObject::Type::Box: {
        auto& box = static_cast<ObjectBox&>(object);
        if (box.flags & kOwned && box.instance) {
            accountExternal(
                -static_cast<std::ptrdiff_t>(box.classInterface->footprint(box.instance)));
            box.classInterface->destroy(box.instance);
        }
        break;
    }
    default:
        break;
    }
}

void Heap::sweep()
{
    for (FreeRun& run : freeRuns)
        run = {};
    std::size_t emptyBytes = 0;
    const std::size_t kept = std::max(bytes, kKeptEmptyBytes);
    std::erase_if(blocks, [&](Block& block) {
        const SweptBlock swept = sweepBlock(block);
        if (swept.live == 0 && (emptyBytes += block.size) > kept)
            return true;
        if (swept.last) {
            FreeRun& run = freeRuns[block.sizeClass];
            swept.last->next = run.next;
            run.next = swept.first;
        }
        return false;
    });
    sweepLarge();
}

/// Frees what was not reached and chains the runs of free cells.
Heap::SweptBlock Heap::sweepBlock(Block& block)
{
    SweptBlock swept;
    const std::size_t step = block.sizeClass * kStep;
    FreeCell* run = nullptr;
    for (std::byte* at = block.memory.get(); at != block.memory.get() + block.size; at += step) {
        auto* object = reinterpret_cast<HeapObject*>(at);
        if (object->marked) {
            object->marked = false;
            ++swept.live;
            run = nullptr;
            continue;
        }
        if (object->type != HeapObject::Type::Free) {
            release(*object);
            object->type = HeapObject::Type::Free;
        }
        if (run) {
            ++run->head.count;
            continue;
        }
        run = reinterpret_cast<FreeCell*>(at);
        run->head.count = 1;
        run->next = nullptr;
        (swept.last ? swept.last->next : swept.first) = run;
        swept.last = run;
    }
    return swept;
}

void Heap::sweepLarge()
{
    std::erase_if(large, [this](HeapObject* object) {
        if (object->marked) {
            object->marked = false;
            return false;
        }
        release(*object);
        std::free(object);
        return true;
    });
}

void Heap::freeAll()
{
    sweep(); // nothing is marked
    blocks.clear();
    freeRuns = {};
    objects = 0;
    bytes = 0;
    collectThreshold = kFirstThreshold;
    byteThreshold = kFirstBytes;
}

} // namespace varn
