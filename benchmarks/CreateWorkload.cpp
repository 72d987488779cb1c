#include "benchmarks/Drawing.h"
#include "benchmarks/Workloads.h"
#include "core/ClassIds.h"
#include "families/CKvPeEditTempl.h"
#include "families/CPropertyEditorText.h"
#include "framework/base/Handles.h"
#include "framework/com/Registration.h"

namespace kvbench {
namespace {

fw::UniqueModule LoadModule() {
    const std::wstring program = fw::ModulePath(nullptr);
    const std::wstring path = program.substr(0, program.find_last_of(L'\\') + 1) + L"KvPEXCtl.qmx";
    fw::UniqueModule module(::LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    Require(module.Get() != nullptr, "the module loads");
    return module;
}

fw::ComPtr<IClassFactory> FactoryOf(HMODULE module, REFCLSID classId) {
    using Entry = HRESULT WINAPI(REFCLSID, REFIID, void**);
    const auto entry =
        reinterpret_cast<Entry*>(reinterpret_cast<void*>(::GetProcAddress(module, "DllGetClassObject")));
    fw::ComPtr<IClassFactory> factory;
    Require(entry != nullptr && entry(classId, IID_IClassFactory, factory.PutVoid()) == S_OK,
            "the module has the class");
    return factory;
}

// What a control without a window cannot do without: its two blocks of memory and its two brushes.
void MakeAndFreeParts() {
    void* const shell = ::operator new(sizeof(CKvPeEditTempl<CPropertyEditorText>));
    void* const logic = ::operator new(sizeof(CPropertyEditorText));
    const fw::UniqueBrush back(::CreateSolidBrush(::GetSysColor(COLOR_WINDOW)));
    const fw::UniqueBrush readOnlyBack(::CreateSolidBrush(::GetSysColor(COLOR_WINDOW)));
    Require(back.Get() != nullptr && readOnlyBack.Get() != nullptr, "the system makes brushes");
    ::operator delete(logic);
    ::operator delete(shell);
}

}  // namespace

void MeasureCreation(std::vector<Figure>& figures) {
    const fw::UniqueModule module = LoadModule();
    const fw::ComPtr<IClassFactory> factory =
        FactoryOf(module.Get(), KvPeClassIdOf<CPropertyEditorText>::Get());
    const auto createAndRelease = [&] {
        fw::ComPtr<IUnknown> control;
        Require(factory->CreateInstance(nullptr, IID_IUnknown, control.PutVoid()) == S_OK,
                "the class factory makes a control");
    };
    figures.push_back(Measure("create and release", 0, createAndRelease, &MakeAndFreeParts));
}

}  // namespace kvbench
