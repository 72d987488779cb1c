#include "core/module/ObjectMap.h"

#include <array>

#include "KvPEXCtl_h.h"
#include "core/ClassCreators.h"

namespace {

#define KVPE_CREATOR_READY(className) &KvPeCreate_##className
#define KVPE_CREATOR_LATER(className) nullptr
#define KVPE_CLASS(coclassName, version, classId, className, state, description, further) \
    fw::ObjectMapEntry{&CLSID_##coclassName,                                              \
                       KVPE_CREATOR_##state(className),                                   \
                       L"KvPEXCtl." #coclassName "." #version,                            \
                       nullptr,                                                           \
                       L"" description,                                                   \
                       fw::ControlMiscStatus,                                             \
                       nullptr},

const std::array s_objectMap{
#include "core/ClassList.inc"
};

#undef KVPE_CLASS

static_assert(s_objectMap.size() == 49, "the module has 49 classes");

}  // namespace

std::span<const fw::ObjectMapEntry> KvPeObjectMap() {
    return s_objectMap;
}
