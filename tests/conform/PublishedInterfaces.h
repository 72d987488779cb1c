#pragma once

#include <span>

#include "tests/conform/Report.h"

namespace kvconform {

/// An interface as clients have it compiled in.
struct PublishedInterface {
    const wchar_t* name;
    const wchar_t* id;
    const wchar_t* base;
    int firstSlot;  ///< of its own operations, behind those of the base
    bool hasDispatchIds;
    /// Its own operations in the order of their slots: "put Name id (parameters)", as LineOf writes them.
    Lines operations;
};

[[nodiscard]] std::span<const PublishedInterface> PublishedInterfaces();

}  // namespace kvconform
