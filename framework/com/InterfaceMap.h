#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <vector>

#include "framework/base/WindowsApi.h"

namespace fw {

/// One interface that a class answers: its id and the way from the class to it.
struct InterfaceEntry {
    const IID* id;
    void* (*cast)(void* object) noexcept;
};

/// Names an interface of Class. Via is the base to go through where Class reaches the interface by several
/// ways.
template <class Class, class Interface, class Via = Interface>
constexpr InterfaceEntry Implements() noexcept {
    return {&__uuidof(Interface), [](void* object) noexcept -> void* {
                return static_cast<Interface*>(static_cast<Via*>(static_cast<Class*>(object)));
            }};
}

/// Puts the interfaces of a class before those of its base or of a mixin.
template <std::size_t First, std::size_t Second>
constexpr std::array<InterfaceEntry, First + Second> JoinInterfaces(
    const std::array<InterfaceEntry, First>& first, const std::array<InterfaceEntry, Second>& second) {
    std::array<InterfaceEntry, First + Second> joined{};
    for (std::size_t i = 0; i < First; ++i) {
        joined[i] = first[i];
    }
    for (std::size_t i = 0; i < Second; ++i) {
        joined[First + i] = second[i];
    }
    return joined;
}

/// The same where the interfaces of the base are known only as it runs. The base's come first.
inline std::vector<InterfaceEntry> ExtendInterfaces(std::span<const InterfaceEntry> base,
                                                    std::initializer_list<InterfaceEntry> further) {
    std::vector<InterfaceEntry> joined(base.begin(), base.end());
    joined.insert(joined.end(), further);
    return joined;
}

/// Finds the interface of an object, without a reference; null when the class does not have it.
/// The first entry stands for IUnknown, whatever interface the question comes through.
inline void* FindInterface(std::span<const InterfaceEntry> entries, REFIID id, void* object) noexcept {
    if (::IsEqualIID(id, IID_IUnknown)) {
        return entries.front().cast(object);
    }
    for (const InterfaceEntry& entry : entries) {
        if (::IsEqualIID(id, *entry.id)) {
            return entry.cast(object);
        }
    }
    return nullptr;
}

}  // namespace fw
