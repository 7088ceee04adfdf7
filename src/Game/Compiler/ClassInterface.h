#pragma once

#include "Game/Compiler/OperandData.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace varn {

class Heap;
class Interpreter;
class Marker;

/// One call of a native from a script: what went in and the one value that comes out.
struct NativeCall
{
    Interpreter& vm;
    Heap& heap;
    OperandData receiver;         ///< of an instance method
    const OperandData* arguments; ///< `count` of them
    int count = 0;
    OperandData result = {}; ///< meaningful when `pushed`
    bool pushed = false;

    void push(const OperandData& value)
    {
        result = value;
        pushed = true;
    }
};

/// One overload of a method: a thunk that converts the arguments for the native's signature.
struct NativeFunction
{
    static constexpr int kAnyArity = -1;

    std::string name;
    int arity = kAnyArity; ///< arguments it takes; kAnyArity: the native reads them itself
    bool isStatic = false;
    bool hidden = false;                  ///< not listed by getMethodNames
    void (*thunk)(NativeCall&) = nullptr; ///< called with `arity` arguments
    NativeFunction* next = nullptr;       ///< the other overload

    bool accepts(int count) const { return arity == kAnyArity || arity == count; }
};

/// A native class as compiler and machine see it: does a method exist, is it static, call it. One
/// object per script name stands in the GlobalClassTable; `SQClassDef<T>` is the form for a C++
/// class.
class ClassInterface
{
  public:
    /// Order of two instances, for classes that set one.
    class Comparator
    {
      public:
        virtual ~Comparator() = default;
        virtual bool equal(const void* a, const void* b) const = 0;
    };
    enum class Methods
    {
        All,
        Static,
        Instance
    };

    explicit ClassInterface(std::string name) : name(std::move(name)) {}
    virtual ~ClassInterface();
    ClassInterface(const ClassInterface&) = delete;
    ClassInterface& operator=(const ClassInterface&) = delete;

    virtual WString getClassName() const;
    /// Text of an instance; the class's name unless it has a better one.
    virtual WString toString(const void* instance) const;
    /// Equal pointers are equal, null is equal to null only; else the comparator decides, and
    /// without one different instances differ.
    virtual bool compare(const void* a, const void* b) const;
    /// Sorted names, without "constructor" and hidden ones.
    virtual std::vector<std::string> getMethodNames(Methods which) const;
    virtual bool isStatic(std::string_view method) const;
    virtual bool hasMethod(std::string_view method) const;
    /// Calls a method on the receiver in `call`. False: no such method, no overload for the count,
    /// or the receiver is no instance of this class.
    virtual bool call(NativeCall& call, std::string_view method);
    /// A new instance; "constructor" has run on it if the class has one for these arguments.
    virtual void* create(NativeCall& call) = 0;
    virtual void destroy(void* instance) = 0;
    /// The walk along the overload chain, first registered before latest registered.
    virtual bool invoke(NativeCall& call, std::string_view method);

    /// True when methods may run on this value: it holds an instance of the native type.
    virtual bool isInstance(const OperandData& value) const = 0;
    /// Reports values an instance holds, so that they stay alive.
    virtual void trace(const void* instance, Marker& marker) const;
    /// Bytes of an instance that were told to `Heap::accountExternal`; given back when it dies.
    virtual std::size_t footprint(const void* instance) const;

    /// First overload of a method, or null.
    const NativeFunction* findMethod(std::string_view method) const;
    const std::string& scriptName() const { return name; }

    const Comparator* comparator = nullptr; ///< borrowed

  protected:
    /// A name known already gets a second overload behind its first; a third displaces the second.
    /// Statics do not chain: the newest replaces.
    void addMethod(NativeFunction method);

  private:
    std::string name;
    std::map<std::string, NativeFunction*, std::less<>> methods;
    std::vector<std::unique_ptr<NativeFunction>> owned;
};

/// Every native class by script name, in the order of registration. Filled on the main thread
/// before any script starts, read-only afterwards.
class GlobalClassTable
{
  public:
    static GlobalClassTable& instance();

    /// A class of a known name takes that place.
    void registerClass(std::unique_ptr<ClassInterface> made);
    /// Null when there is none.
    ClassInterface* find(std::string_view name) const;
    const std::vector<std::unique_ptr<ClassInterface>>& classes() const { return entries; }

  private:
    std::vector<std::unique_ptr<ClassInterface>> entries;
    std::vector<std::unique_ptr<ClassInterface>>
        replaced; // live scripts may still hold their instances
    std::map<std::string, std::size_t, std::less<>> byName;
};

/// A native function that scripts call by its bare name. It reads its arguments from the
/// interpreter and leaves its result there with `setReturn`.
using GlobalFunction = void (*)(Interpreter&);

/// The table "global" of native functions; the last registration of a name wins. Same life as the
/// GlobalClassTable.
void registerGlobalFunction(std::string_view name, GlobalFunction function);
/// Null when there is none.
GlobalFunction findGlobalFunction(std::string_view name);
/// Sorted.
std::vector<std::string> globalFunctionNames();

} // namespace varn
