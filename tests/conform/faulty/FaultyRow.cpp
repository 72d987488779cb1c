#include "tests/conform/faulty/FaultyRow.h"

#include <vector>

#include "tests/conform/faulty/AmbientDetour.h"
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

STDMETHODIMP FaultyRow::QuickActivate(QACONTAINER* container, QACONTROL* control) {
    const HRESULT result = CKvPeEditTempl::QuickActivate(container, control);
    if (SUCCEEDED(result) && HasFault(L"quick-status")) {
        control->dwMiscStatus = 0;
    }
    if (SUCCEEDED(result) && HasFault(L"quick-policy")) {
        control->dwPointerActivationPolicy = 1;
    }
    return result;
}

STDMETHODIMP FaultyRow::SetClientSite(IOleClientSite* site) {
    if (site && HasFault(L"keeps-site")) {
        site->AddRef();
    }
    const HRESULT result = CKvPeEditTempl::SetClientSite(site);
    m_spAmbientDispatch = AmbientDetour::Around(m_spAmbientDispatch);
    return result;
}

STDMETHODIMP FaultyRow::DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                               LPCRECT position) {
    if (HasFault(L"site-order") && m_spClientSite) {
        fw::Ignore(m_spClientSite->ShowObject());
    }
    if (HasFault(L"deaf-to-hide") && verb == OLEIVERB_HIDE) {
        return S_OK;
    }
    return CKvPeEditTempl::DoVerb(verb, message, site, index, parent, position);
}

STDMETHODIMP FaultyRow::OnAmbientPropertyChange(DISPID id) {
    return HasFault(L"fails-without-ambients") && !m_spAmbientDispatch
               ? E_FAIL
               : CKvPeEditTempl::OnAmbientPropertyChange(HasFault(L"asks-for-all") ? DISPID_UNKNOWN : id);
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

STDMETHODIMP FaultyRow::FindConnectionPoint(REFIID id, IConnectionPoint** result) {
    const bool isFirst = id == __uuidof(IKvPiPropertyEditEventsSink) && HasFault(L"first-sink");
    return CKvPeEditTempl::FindConnectionPoint(isFirst ? __uuidof(IKvPiPropertyEditEventsSink2) : id, result);
}

STDMETHODIMP FaultyRow::Close(DWORD saveOption) {
    const HRESULT closed = CKvPeEditTempl::Close(saveOption);
    if (HasFault(L"keeps-module")) {
        GetModule()->Lock();
    }
    return closed;
}

HRESULT FaultyRow::FireKeyDownEvent(UINT_PTR key, LONG_PTR keyData) {
    if (HasFault(L"tells-twice")) {
        fw::Ignore(CKvPeEditTempl::FireKeyDownEvent(key, keyData));
    }
    return CKvPeEditTempl::FireKeyDownEvent(key, keyData);
}
