#include "benchmarks/ControlModule.h"
#include "benchmarks/Drawing.h"
#include "benchmarks/Workloads.h"
#include "core/ClassIds.h"
#include "families/CKvPeEditTempl.h"
#include "families/CPropertyEditorText.h"
#include "framework/base/Handles.h"

namespace kvbench {
namespace {

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
    const ControlModule module;
    const fw::ComPtr<IClassFactory> factory = module.FactoryOf(KvPeClassIdOf<CPropertyEditorText>::Get());
    const auto createAndRelease = [&] {
        fw::ComPtr<IUnknown> control;
        Require(factory->CreateInstance(nullptr, IID_IUnknown, control.PutVoid()) == S_OK,
                "the class factory makes a control");
    };
    figures.push_back(Measure("create and release", 0, createAndRelease, &MakeAndFreeParts));
}

}  // namespace kvbench
