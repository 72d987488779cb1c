#include "refhost/testing/Faults.h"

#include <map>

#include "refhost/testing/FaultState.h"
#include "refhost/testing/Watch.h"

namespace kvhost {

namespace {

struct Switch {
    std::size_t occurrence = 0;
    std::size_t calls = 0;

    bool CountsToFailure() {
        ++calls;
        return occurrence == 0 || calls == occurrence;
    }
};

struct State {
    std::map<std::wstring, Switch, std::less<>> services;
    bool countsAll = false;
    std::size_t anyOccurrence = 0;
    std::size_t allCalls = 0;
    std::wstring lastFailed;
};

State& GetState() {
    static State state;
    return state;
}

void UpdateWatch() {
    Watch::faults = GetState().countsAll || !GetState().services.empty();
    Watch::Update();
}

bool CountForAny(std::wstring_view name) {
    State& state = GetState();
    if (!state.countsAll || ++state.allCalls != state.anyOccurrence) {
        return false;
    }
    state.lastFailed = name;
    return true;
}

}  // namespace

void Faults::FailService(const wchar_t* name, std::size_t occurrence) {
    GetState().services[name] = Switch{occurrence};
    UpdateWatch();
}

void Faults::FailAnyService(std::size_t occurrence) {
    State& state = GetState();
    state.countsAll = true;
    state.anyOccurrence = occurrence;
    state.allCalls = 0;
    state.lastFailed.clear();
    UpdateWatch();
}

std::size_t Faults::CountedCalls() {
    return GetState().allCalls;
}

std::wstring Faults::LastFailedService() {
    return GetState().lastFailed;
}

void Faults::Reset() {
    GetState() = State{};
    UpdateWatch();
}

bool CountCallForFaults(std::wstring_view name) {
    if (!Watch::faults) {
        return false;
    }
    // Both switches count each call, whichever of them makes it fail.
    const bool anyFails = CountForAny(name);
    auto& services = GetState().services;
    const auto found = services.find(name);
    const bool serviceFails = found != services.end() && found->second.CountsToFailure();
    return anyFails || serviceFails;
}

}  // namespace kvhost
