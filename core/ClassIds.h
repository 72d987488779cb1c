#pragma once

#include "KvPEXCtl_h.h"
#include "framework/base/WindowsApi.h"

/// The class id of a control class by its logic class, made from the class table.
template <class Logic>
struct KvPeClassIdOf;

// NOLINTBEGIN(bugprone-macro-parentheses): a class name cannot stand in parentheses
#define KVPE_CLASS(coclassName, version, classId, className, state, description, further) \
    class className;                                                                      \
    template <>                                                                           \
    struct KvPeClassIdOf<className> {                                                     \
        static const CLSID& Get() noexcept { return CLSID_##coclassName; }                \
    };
#include "core/ClassList.inc"
#undef KVPE_CLASS
// NOLINTEND(bugprone-macro-parentheses)
