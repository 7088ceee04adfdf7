#pragma once

#include "Game/Compiler/ClassInterface.h"
#include "Game/Compiler/Heap.h"

#include <type_traits>
#include <utility>

namespace varn {

class Interpreter;

/// The native type of script texts: a view of the receiver for the time of the call.
struct SCString
{
    WStringView wide;
};
/// Native placeholders of the type names "Number" and "int".
struct Number
{};
struct Integer
{};

/// How methods of a native type find their instance in a cell. The general form is for boxed
/// instances; types that cells hold directly specialise it.
template <class T>
struct InstanceOf
{
    static T& of(const OperandData& value)
    {
        if constexpr (std::is_empty_v<T>) {
            static T stateless;
            return stateless;
        } else {
            return *static_cast<T*>(value.asBox()->instance);
        }
    }
};
template <>
struct InstanceOf<Array>
{
    static Array& of(const OperandData& value) { return *value.asArray(); }
};
template <>
struct InstanceOf<MemberTable>
{
    static MemberTable& of(const OperandData& value) { return *value.asTable(); }
};
template <>
struct InstanceOf<SCString>
{
    static SCString of(const OperandData& value) { return {value.asText()}; }
};

/// One argument on its way from a cell to a parameter. Integers are cut from the number, bool is
/// that cut against 0, texts are the cell's text form.
template <class P>
struct Argument
{
    static_assert(std::is_arithmetic_v<P>,
                  "no conversion from a script value to this parameter type");
    const OperandData& value;
    operator P() const
    {
        if constexpr (std::is_same_v<P, bool>)
            return value.toInt() != 0;
        else if constexpr (std::is_floating_point_v<P>)
            return static_cast<P>(value.is(ValueKind::Number) ? value.asNumber()
                                                              : value.toNumber());
        else
            return static_cast<P>(value.is(ValueKind::Int) ? value.asInt() : value.toInt());
    }
};
template <>
struct Argument<WStringView>
{
    explicit Argument(const OperandData& value)
        : made(value.is(ValueKind::String) ? WString() : value.toString()),
          view(value.is(ValueKind::String) ? value.asText() : WStringView(made))
    {}
    operator WStringView() const { return view; }
    WString made;
    WStringView view;
};
template <>
struct Argument<WString>
{
    explicit Argument(const OperandData& value) : made(value.toString()) {}
    operator const WString&() const { return made; }
    WString made;
};
template <>
struct Argument<std::string>
{
    explicit Argument(const OperandData& value) : made(narrow(value.toString())) {}
    operator const std::string&() const { return made; }
    std::string made;
};
template <>
struct Argument<OperandData>
{
    const OperandData& value;
    operator const OperandData&() const { return value; }
};

/// A native's result as a cell.
template <class R>
OperandData toOperand(Heap& heap, const R& result)
{
    if constexpr (std::is_same_v<R, OperandData>)
        return result;
    else if constexpr (std::is_same_v<R, bool>)
        return OperandData::boolean(result);
    else if constexpr (std::is_floating_point_v<R>)
        return OperandData::number(result);
    else if constexpr (std::is_integral_v<R> || std::is_enum_v<R>)
        return OperandData::integer(static_cast<std::int32_t>(result));
    else if constexpr (std::is_same_v<R, Array*>)
        return OperandData::array(result);
    else if constexpr (std::is_convertible_v<const R&, std::string_view>)
        return heap.makeString(widen(result));
    else
        return heap.makeString(WStringView(result));
}

/// Signature of a native, whatever its form: its class (or void), result and parameters.
template <class F>
struct Signature;
template <class R, class... A>
struct Signature<R (*)(A...)>
{
    using Result = R;
    template <template <class...> class Use>
    using Apply = Use<A...>;
};
template <class R, class... A>
struct Signature<R (*)(A...) noexcept> : Signature<R (*)(A...)>
{};
template <class R, class C, class... A>
struct Signature<R (C::*)(A...)> : Signature<R (*)(A...)>
{};
template <class R, class C, class... A>
struct Signature<R (C::*)(A...) noexcept> : Signature<R (*)(A...)>
{};
template <class R, class C, class... A>
struct Signature<R (C::*)(A...) const> : Signature<R (*)(A...)>
{};
template <class R, class C, class... A>
struct Signature<R (C::*)(A...) const noexcept> : Signature<R (*)(A...)>
{};

/// Calls a native with arguments converted for its parameters `P`, and pushes its result. A void
/// native pushes the integer 1.
template <class... P, class Native, std::size_t... I>
void invokeConverted(NativeCall& call, const Native& native, std::index_sequence<I...>)
{
    using Result = decltype(native(Argument<std::remove_cvref_t<P>>{call.arguments[I]}...));
    if constexpr (std::is_void_v<Result>) {
        native(Argument<std::remove_cvref_t<P>>{call.arguments[I]}...);
        call.push(OperandData::integer(1));
    } else {
        call.push(toOperand<std::remove_cvref_t<Result>>(
            call.heap, native(Argument<std::remove_cvref_t<P>>{call.arguments[I]}...)));
    }
}

/// How a native with the parameters `P` is called.
template <class... P>
struct NativeInvoker
{
    static constexpr int kArity = sizeof...(P);

    template <class Native>
    static void run(NativeCall& call, const Native& native)
    {
        invokeConverted<P...>(call, native, std::index_sequence_for<P...>{});
    }
};
/// With the call itself in front: for natives that make values.
template <class... P>
struct NativeInvoker<NativeCall&, P...>
{
    static constexpr int kArity = sizeof...(P);

    template <class Native>
    static void run(NativeCall& call, const Native& native)
    {
        invokeConverted<P...>(
            call,
            [&](auto&&... arguments) -> decltype(auto) {
                return native(call, std::forward<decltype(arguments)>(arguments)...);
            },
            std::index_sequence_for<P...>{});
    }
};

/// Makes a call the one that getTop, getInt and push of its interpreter speak of, while it lives.
class NativeFrame
{
  public:
    explicit NativeFrame(NativeCall& call);
    ~NativeFrame();
    NativeFrame(const NativeFrame&) = delete;
    NativeFrame& operator=(const NativeFrame&) = delete;

  private:
    Interpreter& vm;
    NativeCall* before;
};
template <>
struct NativeInvoker<Interpreter&>
{
    static constexpr int kArity = NativeFunction::kAnyArity;

    template <class Native>
    static void run(NativeCall& call, const Native& native)
    {
        const NativeFrame frame(call);
        if constexpr (std::is_same_v<decltype(native(call.vm)), OperandData>)
            call.push(native(call.vm));
        else
            native(call.vm);
    }
};
/// A free function whose first parameter is the receiver, registered as an instance method.
template <class T, class... P>
struct DropReceiver;
template <class T, class First, class... P>
struct DropReceiver<T, First, P...>
{
    static_assert(std::is_same_v<std::remove_cvref_t<First>, T>,
                  "a free function registered as a method takes its receiver first");
    using Invoker = NativeInvoker<P...>;
};

/// The binding of a C++ class to a script name, by plain registration:
///
///     auto made = std::make_unique<SQClassDef<Rect>>("Rectangle");
///     made->addFunc<&setX>("setX");                  // void setX(Rect&, int), or &Rect::setX
///     made->addStaticFunc<&unionOf>("unionOf");      // any function
///     GlobalClassTable::instance().registerClass(std::move(made));
///
/// Parameters: integers, bool, double, WStringView, const WString&, const std::string& (code page),
/// const OperandData&; before them, `NativeCall&` for a native that makes values. Results: those
/// (texts become strings), OperandData, Array*, void (the script gets 1). A native `int
/// f(Interpreter&)` reads its arguments itself (variable argument lists), pushes at most one result
/// and answers how many; `OperandData f(Interpreter&)` returns it instead. "constructor" runs on
/// `new`. Natives report faults by throwing interpreter::InterpreterException: it is shown, and the
/// script goes on.
///
/// A type whose instances hold script values has `void trace(Marker&) const`, one that takes much
/// memory `std::size_t footprint() const`; both are found by themselves. What the footprint grows
/// by is to be told to `Heap::accountExternal`.
template <class T>
class SQClassDef : public ClassInterface
{
  public:
    using ClassInterface::ClassInterface;

    /// An instance method: a member function, or a free function that takes `T&` first.
    template <auto F>
    void addFunc(std::string_view method, bool hidden = false)
    {
        addMethod({std::string(method), Bound<F>::Invoker::kArity, false, hidden, &Bound<F>::thunk,
                   nullptr});
    }
    template <auto F>
    void addStaticFunc(std::string_view method, bool hidden = false)
    {
        using Invoker = typename Signature<decltype(F)>::template Apply<NativeInvoker>;
        addMethod({std::string(method), Invoker::kArity, true, hidden,
                   [](NativeCall& call) { Invoker::run(call, F); }, nullptr});
    }
    /// How an instance reads as text; otherwise the class's name.
    using TextOf = WString (*)(const T&);
    void setText(TextOf text) { textOf = text; }

    WString toString(const void* instance) const override
    {
        return textOf && instance ? textOf(*static_cast<const T*>(instance))
                                  : ClassInterface::toString(instance);
    }
    void* create(NativeCall& call) override
    {
        if constexpr (std::is_default_constructible_v<T> && !kHeldByCell) {
            auto made = std::make_unique<T>();
            if (hasMethod("constructor")) {
                ObjectBox box;
                box.classInterface = this;
                box.instance = made.get();
                call.receiver = OperandData::object(ValueKind::UserPtr, &box);
                invoke(call, "constructor");
            }
            return made.release();
        } else {
            return nullptr;
        }
    }
    void destroy(void* instance) override { std::default_delete<T>()(static_cast<T*>(instance)); }
    bool isInstance(const OperandData& value) const override
    {
        if constexpr (std::is_same_v<T, Array>)
            return value.is(ValueKind::Array);
        else if constexpr (std::is_same_v<T, MemberTable>)
            return value.is(ValueKind::Table);
        else if constexpr (std::is_same_v<T, SCString>)
            return value.is(ValueKind::String);
        else if constexpr (std::is_empty_v<T>)
            return true; // nothing to find in the receiver
        else
            return value.isBoxed() && value.asBox()->instance &&
                   dynamic_cast<const SQClassDef<T>*>(value.asBox()->classInterface);
    }
    std::size_t footprint(const void* instance) const override
    {
        if constexpr (requires(const T& held) { held.footprint(); })
            return static_cast<const T*>(instance)->footprint();
        else
            return 0;
    }
    void trace(const void* instance, Marker& marker) const override
    {
        if constexpr (requires(const T& held) { held.trace(marker); })
            static_cast<const T*>(instance)->trace(marker);
    }

  private:
    static constexpr bool kHeldByCell =
        std::is_same_v<T, Array> || std::is_same_v<T, MemberTable> || std::is_same_v<T, SCString>;

    template <auto F>
    struct Bound
    {
        static constexpr bool kMember = std::is_member_function_pointer_v<decltype(F)>;
        template <class... P>
        using MemberInvoker = NativeInvoker<P...>;
        template <class... P>
        using FreeInvoker = typename DropReceiver<T, P...>::Invoker;
        template <bool member, class Dummy = void>
        struct Choose
        {
            using Type = typename Signature<decltype(F)>::template Apply<MemberInvoker>;
        };
        template <class Dummy>
        struct Choose<false, Dummy>
        {
            using Type = typename Signature<decltype(F)>::template Apply<FreeInvoker>;
        };
        using Invoker = typename Choose<kMember>::Type;

        static void thunk(NativeCall& call)
        {
            decltype(auto) self = InstanceOf<T>::of(call.receiver);
            Invoker::run(call, [&self](auto&&... arguments) -> decltype(auto) {
                if constexpr (kMember)
                    return (self.*F)(std::forward<decltype(arguments)>(arguments)...);
                else
                    return F(self, std::forward<decltype(arguments)>(arguments)...);
            });
        }
    };

    TextOf textOf = nullptr;
};

} // namespace varn
