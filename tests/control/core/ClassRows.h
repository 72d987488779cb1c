#pragma once

#include <string_view>
#include <vector>

#include "KvPEXCtl_h.h"

namespace kvtest {

/// One row of the class table, as a client sees the class.
struct ClassRow {
    const CLSID* id;
    const wchar_t* name;
    const wchar_t* progId;
    const wchar_t* description;
    std::string_view state;
    std::string_view further;  ///< names of the interfaces beyond the common ones, as "(IFirst, ISecond)"
};

#define KVPE_CLASS(coclassName, version, classId, className, state, description, further) \
    {&CLSID_##coclassName, L"" #coclassName, L"KvPEXCtl." #coclassName "." #version,      \
     L"" description,      #state,           #further},

inline const std::vector<ClassRow> s_classRows{
#include "core/ClassList.inc"
};

#undef KVPE_CLASS

}  // namespace kvtest
