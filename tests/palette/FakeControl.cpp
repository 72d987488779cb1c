#include "tests/palette/FakeControl.h"

#include "framework/base/Hresult.h"
#include "framework/com/SafeArray.h"

namespace kvtest {

namespace {

void Note(std::wstring call) {
    FakeControl::s_calls.push_back(std::move(call));
}

class Factory : public fw::ComObjectRoot, public IClassFactory {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static constexpr std::array s_interfaces{fw::Implements<Factory, IClassFactory>()};
        return s_interfaces;
    }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID id, void** result) override {
        return CComObject<FakeControl>::Create(nullptr, id, result);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

protected:
    ~Factory() = default;
};

}  // namespace

FakeControl::Behaviour FakeControl::s_behaviour;
std::vector<std::wstring> FakeControl::s_calls;
FakeControl* FakeControl::s_living = nullptr;

FakeControl::FakeControl() {
    s_living = this;
}

FakeControl::~FakeControl() {
    s_living = nullptr;
}

const CLSID& FakeControl::Id() {
    static constexpr CLSID s_id{0x8D5F2E60, 0x1B7A, 0x4C33, {0x9F, 0x58, 0x20, 0x6E, 0x0B, 0x41, 0xD7, 0x92}};
    return s_id;
}

std::span<const fw::InterfaceEntry> FakeControl::Interfaces() {
    static constexpr std::array s_own{
        fw::Implements<FakeControl, IKvPiPropertyEditControl2>(),
        fw::Implements<FakeControl, IKvPiPropertyEditControl, IKvPiPropertyEditControl2>(),
        fw::Implements<FakeControl, IPersistStreamInit>(),
    };
    // Quick activation is the last of the common interfaces; without it the container goes step by step.
    static constexpr auto s_all = fw::JoinInterfaces(s_own, fw::ControlInterfaces<FakeControl>);
    const std::span<const fw::InterfaceEntry> all(s_all);
    return s_behaviour.offersQuickActivation ? all : all.first(all.size() - 1);
}

STDMETHODIMP FakeControl::SetClientSite(IOleClientSite* site) {
    Note(site ? L"SetClientSite" : L"SetClientSite null");
    return CComControl::SetClientSite(site);
}

STDMETHODIMP FakeControl::QuickActivate(QACONTAINER* container, QACONTROL* control) {
    Note(L"QuickActivate");
    return CComControl::QuickActivate(container, control);
}

STDMETHODIMP FakeControl::DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                                 LPCRECT position) {
    Note(L"DoVerb " + std::to_wstring(verb));
    return CComControl::DoVerb(verb, message, site, index, parent, position);
}

STDMETHODIMP FakeControl::SetObjectRects(LPCRECT position, LPCRECT clip) {
    Note(L"SetObjectRects " + std::to_wstring(position->left) + L" " + std::to_wstring(position->top));
    return CComControl::SetObjectRects(position, clip);
}

STDMETHODIMP FakeControl::Close(DWORD saveOption) {
    Note(L"Close " + std::to_wstring(saveOption));
    return CComControl::Close(saveOption);
}

STDMETHODIMP FakeControl::GetMiscStatus(DWORD, DWORD* status) {
    *status = fw::ControlMiscStatus;
    return S_OK;
}

STDMETHODIMP FakeControl::GetClassID(CLSID* classId) {
    *classId = Id();
    return S_OK;
}

STDMETHODIMP FakeControl::InitNew() {
    Note(L"InitNew");
    return S_OK;
}

STDMETHODIMP FakeControl::InitEditControl(VARIANT* objects, VARIANT* dynamicProperties, VARIANT* dispids,
                                          VARIANT_BOOL readOnly) {
    fw::SafeArrayView view;
    const bool arrays = objects->vt == (VT_ARRAY | VT_DISPATCH) &&
                        dynamicProperties->vt == (VT_ARRAY | VT_UNKNOWN) && dispids->vt == (VT_ARRAY | VT_I4);
    fw::Ignore(fw::SafeArrayView::FromVariant(objects, view));  // the count is 0 then
    Note(L"InitEditControl " + std::to_wstring(view.Count()) + (arrays ? L" arrays" : L" no arrays") +
         (readOnly != VARIANT_FALSE ? L" read-only" : L"") + (m_spClientSite ? L"" : L" without site") +
         (m_events.HasConnections() ? L"" : L" without sink"));
    return s_behaviour.initResult;
}

STDMETHODIMP FakeControl::Refresh(ULONG) {
    Note(L"Refresh");
    return S_OK;
}

STDMETHODIMP FakeControl::get_KeepFocus(VARIANT_BOOL* keep) {
    *keep = VARIANT_TRUE;
    return S_OK;
}

STDMETHODIMP FakeControl::put_PropertyIdentifier(IUnknown* identifier) {
    Note(L"put_PropertyIdentifier");
    m_identifier = identifier;
    return S_OK;
}

void FakeControl::FinalRelease() {
    m_identifier.Reset();
    CComControl::FinalRelease();
}

HRESULT FakeControl::OnDrawAdvanced(ATL_DRAWINFO& info) {
    ::ExtTextOutW(info.hdcDraw, 2, 2, 0, nullptr, L"drawn text", 10, nullptr);
    return S_OK;
}

FakeControlClass::FakeControlClass() {
    FakeControl::s_behaviour = {};
    FakeControl::s_calls.clear();
    CComObject<Factory>* factory = nullptr;
    if (SUCCEEDED(CComObject<Factory>::CreateInstance(nullptr, &factory))) {
        fw::Ignore(::CoRegisterClassObject(FakeControl::Id(), factory, CLSCTX_INPROC_SERVER,
                                           REGCLS_MULTIPLEUSE,
                                           &m_cookie));  // the first creation tells
        factory->Release();
    }
}

FakeControlClass::~FakeControlClass() {
    ::CoRevokeClassObject(m_cookie);
}

}  // namespace kvtest
