#include "tests/conform/faulty/FaultyRow.h"

#include <vector>

#include "tests/conform/faulty/Fault.h"

namespace {

fw::InterfaceEntry ForeignEntry(const IID& id) {
    return {&id, [](void*) noexcept -> void* { return ForeignWindow(); }};
}

constexpr fw::InterfaceEntry s_strayEntry{
    &IID_IOleWindow, [](void* row) noexcept -> void* { return &static_cast<FaultyRow*>(row)->Stray(); }};

std::vector<fw::InterfaceEntry> MakeInterfaces() {
    std::vector<fw::InterfaceEntry> entries;
    for (const fw::InterfaceEntry& entry : CKvPeShell::Interfaces()) {
        const bool isDropped = HasFault(L"drops-interface") && *entry.id == IID_IQuickActivate;
        const bool isWindow = *entry.id == IID_IOleWindow;
        const bool isForeign = isWindow && HasFault(L"foreign-identity");
        const bool isStray = isWindow && StrayWindow::IsAskedFor();
        if (!isDropped) {
            entries.push_back(isForeign ? ForeignEntry(IID_IOleWindow) : isStray ? s_strayEntry : entry);
        }
    }
    if (HasFault(L"extra-interface")) {
        entries.push_back(ForeignEntry(__uuidof(IKvPeColorCtrl)));
    }
    return entries;
}

}  // namespace

std::span<const fw::InterfaceEntry> FaultyRow::Interfaces() {
    static const std::vector<fw::InterfaceEntry> s_interfaces = MakeInterfaces();
    return s_interfaces;
}

STDMETHODIMP FaultyRow::GetControlInfo(CONTROLINFO* info) {
    const HRESULT result = CKvPeEditTempl::GetControlInfo(info);
    if (SUCCEEDED(result) && HasFault(L"accelerators")) {
        info->cAccel = 1;
    }
    return result;
}

STDMETHODIMP FaultyRow::GetUserClassID(CLSID* classId) {
    const HRESULT result = CKvPeEditTempl::GetUserClassID(classId);
    if (SUCCEEDED(result) && HasFault(L"other-class")) {
        *classId = CLSID_KvPePropertyEditorBool;
    }
    return result;
}
