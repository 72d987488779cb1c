#include "benchmarks/ControlModule.h"

#include <string_view>

#include "benchmarks/Drawing.h"
#include "core/ClassIds.h"
#include "framework/com/Registration.h"

namespace kvbench {
namespace {

struct ControlClass {
    const char* name;
    const CLSID* id;
    std::string_view state;
};

constexpr ControlClass c_classes[] = {
#define KVPE_CLASS(coclass, version, classId, implementation, state, description, interfaces) \
    {#coclass, &CLSID_##coclass, #state},
#include "core/ClassList.inc"
#undef KVPE_CLASS
};

}  // namespace

ControlModule::ControlModule() {
    const std::wstring program = fw::ModulePath(nullptr);
    const std::wstring path = program.substr(0, program.find_last_of(L'\\') + 1) + L"KvPEXCtl.qmx";
    m_module.Reset(::LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    Require(m_module.Get() != nullptr, "the module loads");
}

fw::ComPtr<IClassFactory> ControlModule::FactoryOf(REFCLSID classId) const {
    using Entry = HRESULT WINAPI(REFCLSID, REFIID, void**);
    const auto entry = reinterpret_cast<Entry*>(
        reinterpret_cast<void*>(::GetProcAddress(m_module.Get(), "DllGetClassObject")));
    fw::ComPtr<IClassFactory> factory;
    Require(entry != nullptr && entry(classId, IID_IClassFactory, factory.PutVoid()) == S_OK,
            "the module has the class");
    return factory;
}

std::vector<ReadyClass> ControlModule::ReadyClasses() const {
    std::vector<ReadyClass> classes;
    for (const ControlClass& controlClass : c_classes) {
        if (controlClass.state == "READY") {
            classes.push_back({controlClass.name, FactoryOf(*controlClass.id)});
        }
    }
    return classes;
}

}  // namespace kvbench
