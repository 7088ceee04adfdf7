// A formula that is compiled once, evaluated over and over: ours as a rule of the game asks for it
// (by its text) and held, beside the same in Lua 5.4 through its C interface, a function held in
// the registry and two userdata on the stack. All give the same results, or the run is an error.
#include "Game/Compiler/Calculator.h"
#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Classes.h"

#include <benchmark/benchmark.h>
#include <lua.hpp>

namespace varn::bench {

namespace {

struct Battler
{
    int attack, defence;
    int getAttack() const { return attack; }
    int getDefence() const { return defence; }
};

struct Row
{
    const char* name;
    WStringView ours;
    const char* lua;
    int result;
};

constexpr Row kRows[] = {
    {"constant", u"5", "return function(a, b) return 5 end", 5},
    {"getters", u"a.getAttack() * 4 - b.getDefence() * 2",
     "return function(a, b) return a:getAttack() * 4 - b:getDefence() * 2 end", 42 * 4 - 17 * 2},
    {"loop", u"var sum = 0; var i; for (i = 0; i < 10; i++) sum += i; return sum;",
     "return function(a, b) local sum = 0 for i = 0, 9 do sum = sum + i end return sum end", 45},
};

Battler attacker{42, 3};
Battler defender{5, 17};

const FormulaArg kArguments[] = {{u"attacker", u"Battler", &attacker},
                                 {u"defender", u"Battler", &defender}};

void registerBattler()
{
    registerEngineClasses();
    auto made = std::make_unique<SQClassDef<Battler>>("Battler");
    made->addFunc<&Battler::getAttack>("getAttack");
    made->addFunc<&Battler::getDefence>("getDefence");
    GlobalClassTable::instance().registerClass(std::move(made));
}

template <class Evaluate>
void measure(benchmark::State& state, const Row& row, Evaluate&& evaluate)
{
    if (evaluate() != row.result)
        return state.SkipWithError("wrong result");
    for (auto _ : state)
        benchmark::DoNotOptimize(evaluate());
}

void byText(benchmark::State& state, const Row& row)
{
    measure(state, row,
            [&] { return CalculatorManager::instance().evaluate(row.ours, kArguments); });
}

void held(benchmark::State& state, const Row& row)
{
    Calculator formula(row.ours, std::size(kArguments), {});
    measure(state, row, [&] { return formula.calculate(kArguments); });
}

template <int Battler::*field>
int luaGetter(lua_State* lua)
{
    lua_pushinteger(lua, static_cast<Battler*>(luaL_checkudata(lua, 1, "Battler"))->*field);
    return 1;
}

/// Leaves the function and the two arguments on the stack.
lua_State* openLua(const Row& row)
{
    constexpr luaL_Reg kMethods[] = {{"getAttack", &luaGetter<&Battler::attack>},
                                     {"getDefence", &luaGetter<&Battler::defence>},
                                     {nullptr, nullptr}};
    lua_State* lua = luaL_newstate();
    luaL_newmetatable(lua, "Battler");
    luaL_newlib(lua, kMethods);
    lua_setfield(lua, -2, "__index");
    lua_settop(lua, 0);
    if (luaL_loadstring(lua, row.lua) != LUA_OK || lua_pcall(lua, 0, 1, 0) != LUA_OK)
        return lua;
    for (const Battler& each : {attacker, defender}) {
        *static_cast<Battler*>(lua_newuserdatauv(lua, sizeof(Battler), 0)) = each;
        luaL_setmetatable(lua, "Battler");
    }
    return lua;
}

void inLua(benchmark::State& state, const Row& row)
{
    lua_State* lua = openLua(row);
    measure(state, row, [lua] {
        lua_pushvalue(lua, 1);
        lua_pushvalue(lua, 2);
        lua_pushvalue(lua, 3);
        if (lua_pcall(lua, 2, 1, 0) != LUA_OK)
            return -1;
        const int result = static_cast<int>(lua_tonumber(lua, -1));
        lua_pop(lua, 1);
        return result;
    });
    lua_close(lua);
}

} // namespace

} // namespace varn::bench

int main(int argc, char** argv)
{
    using namespace varn::bench;
    registerBattler();
    for (const Row& row : kRows)
        for (const auto& [side, run] : {std::pair{"byText/", &byText}, std::pair{"held/", &held},
                                        std::pair{"lua5.4/", &inLua}})
            benchmark::RegisterBenchmark(
                (std::string(side) + row.name).c_str(),
                [run = run, &row](benchmark::State& state) { run(state, row); });
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
