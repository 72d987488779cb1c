#pragma once

#include "framework/com/CComObject.h"

// Creators of the classes that have their logic. Declared here for the object map; the layer of the class
// defines each one, with the class's shell, by KVPE_DEFINE_CREATOR(CPropertyEditorX,
// ShellTemplate<CPropertyEditorX>).

#define KVPE_DECLARE_CREATOR_READY(className) \
    HRESULT KvPeCreate_##className(CComModule* module, REFIID id, void** result) noexcept;
#define KVPE_DECLARE_CREATOR_LATER(className)

#define KVPE_CLASS(coclassName, version, classId, className, state, description, further) \
    KVPE_DECLARE_CREATOR_##state(className)
#include "core/ClassList.inc"
#undef KVPE_CLASS

#define KVPE_DEFINE_CREATOR(className, ...)                                                 \
    HRESULT KvPeCreate_##className(CComModule* module, REFIID id, void** result) noexcept { \
        return CComObject<__VA_ARGS__>::Create(module, id, result);                         \
    }
