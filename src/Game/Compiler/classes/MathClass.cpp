#include "Game/Compiler/InterpreterException.h"
#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Util/Random.h"

#include <cmath>

namespace varn {
namespace {

struct Math
{};

// To these digits, as games were balanced with them: E has fifteen.
constexpr double kE = 2.71828182845905;
constexpr double kLn10 = 2.302585092994046;
constexpr double kLn2 = 0.6931471805599453;
constexpr double kLog10E = 0.4342944819032518;
constexpr double kLog2E = 1.4426950408889634;
constexpr double kSqrt2 = 1.4142135623730951;
constexpr double kSqrtHalf = 0.7071067811865476;
constexpr double kPi = 3.141592653589793;

template <const double& value>
double constant()
{
    return value;
}

double toRadians(double degrees)
{
    return degrees * kPi / 180;
}

double toDegrees(double radians)
{
    return radians * 180 / kPi;
}

double inUnitRange(double x, WStringView function)
{
    if (std::abs(x) > 1)
        throw interpreter::InterpreterException(u"The range of x must be [-1, 1].",
                                                WString(function));
    return x;
}

double arcCosine(double x)
{
    return std::acos(inUnitRange(x, u"Math::acos"));
}

double arcSine(double x)
{
    return std::asin(inUnitRange(x, u"Math::asin"));
}

double smaller(double a, double b)
{
    return b < a ? b : a;
}

double greater(double a, double b)
{
    return a < b ? b : a;
}

/// Halves go away from zero.
int roundHalf(double x)
{
    return truncateToInt(x > 0 ? std::floor(x + 0.5) : std::ceil(x - 0.5));
}

int floorOf(double x)
{
    return truncateToInt(std::floor(x));
}

int ceilOf(double x)
{
    return truncateToInt(std::ceil(x));
}

/// 0 to 1, both included.
double random()
{
    return programRandom().randomUnit();
}

/// The one draw of exactly 1 yields `b + 1`; runs that are repeated by their seed rely on it.
int randomInt(int a, int b)
{
    return truncateToInt(random() * (static_cast<double>(b) - a + 1) + a);
}

using Unary = double (*)(double);
using Binary = double (*)(double, double);

} // namespace

void registerMath()
{
    auto made = std::make_unique<SQClassDef<Math>>("Math");
    made->addStaticFunc<&toRadians>("toRadians");
    made->addStaticFunc<&toDegrees>("toDegrees");
    made->addStaticFunc<static_cast<Unary>(&std::cos)>("cos");
    made->addStaticFunc<static_cast<Unary>(&std::tan)>("tan");
    made->addStaticFunc<static_cast<Unary>(&std::fabs)>("abs");
    made->addStaticFunc<&arcCosine>("acos");
    made->addStaticFunc<static_cast<Unary>(&std::atan)>("atan");
    made->addStaticFunc<&arcSine>("asin");
    made->addStaticFunc<static_cast<Unary>(&std::log)>("log");
    made->addStaticFunc<static_cast<Unary>(&std::exp)>("exp");
    made->addStaticFunc<static_cast<Unary>(&std::sqrt)>("sqrt");
    made->addStaticFunc<static_cast<Unary>(&std::sin)>("sin");
    made->addStaticFunc<static_cast<Binary>(&std::atan2)>("atan2");
    made->addStaticFunc<static_cast<Binary>(&std::pow)>("pow");
    made->addStaticFunc<&smaller>("min");
    made->addStaticFunc<&greater>("max");
    made->addStaticFunc<&roundHalf>("round");
    made->addStaticFunc<&floorOf>("floor");
    made->addStaticFunc<&ceilOf>("ceil");
    made->addStaticFunc<&random>("random");
    made->addStaticFunc<&randomInt>("randomInt");
    made->addStaticFunc<&constant<kE>>("E");
    made->addStaticFunc<&constant<kLn10>>("LN10");
    made->addStaticFunc<&constant<kLn2>>("LN2");
    made->addStaticFunc<&constant<kLog10E>>("LOG10E");
    made->addStaticFunc<&constant<kLog2E>>("LOG2E");
    made->addStaticFunc<&constant<kSqrt2>>("SQRT2");
    made->addStaticFunc<&constant<kSqrtHalf>>("SQRT1_2");
    made->addStaticFunc<&constant<kPi>>("PI");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn
