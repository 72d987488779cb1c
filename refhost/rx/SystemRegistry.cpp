#include "refhost/rx/SystemRegistry.h"

#include <string_view>

#include "host_sdk/KvRxClass.h"
#include "refhost/rx/DynamicLinker.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

SystemRegistry& SystemRegistry::Instance() {
    static SystemRegistry registry;
    return registry;
}

KvRxClass* SystemRegistry::isA() const {
    static KvRxClass s_class(L"SystemRegistry", KvRxObject::desc());
    return &s_class;
}

KvRxObject* SystemRegistry::at(const wchar_t* name) const {
    ServiceCall call(L"at", name);
    const bool isLinker = name != nullptr && std::wstring_view(name) == L"DynamicLinker";
    return !call.Fails() && isLinker ? &DynamicLinker::Instance() : nullptr;
}

}  // namespace kvhost

KvRxDictionary* kvrxSysRegistry() {
    // Deliberate: no fault switch makes it fail, since a running host always has its registry.
    const kvhost::ServiceCall call(L"kvrxSysRegistry");
    return &kvhost::SystemRegistry::Instance();
}
