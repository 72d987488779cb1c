#include "refhost/automation/PropertyDialogs.h"

#include <array>
#include <span>

#include "framework/base/Hresult.h"
#include "framework/com/Bstr.h"
#include "framework/com/CComObject.h"
#include "framework/com/SafeArray.h"
#include "host_sdk/IPropertyDialogByIds.h"
#include "host_sdk/IPropertyDialogByObjects.h"
#include "refhost/automation/LiveObject.h"
#include "refhost/automation/PropertyDialogIds.h"
#include "refhost/testing/ServiceCall.h"
#include "refhost/ui/PropertyTextDialog.h"

namespace kvhost {

namespace {

// S_FALSE when the user cancelled; the text is as it was then.
HRESULT EditText(BSTR* text, std::size_t objectCount) {
    std::wstring edited(fw::Bstr::ViewOf(*text));
    RETURN_HR_IF(S_FALSE, !EditPropertyText(edited, objectCount));
    fw::Bstr result;
    RETURN_IF_FAILED(fw::MakeBstr(edited, result.Put()));
    ::SysFreeString(*text);
    *text = result.Detach();
    return S_OK;
}

class DialogByObjects : public fw::ComObjectRoot, public IPropertyDialogByObjects, private LiveObject {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static constexpr std::array interfaces{fw::Implements<DialogByObjects, IPropertyDialogByObjects>()};
        return interfaces;
    }

    // IPropertyDialogByObjects
    STDMETHODIMP ShowDialog(BSTR* text, VARIANT objects) override {
        RETURN_IF_NULL_POINTER(text);
        fw::SafeArrayView view;
        RETURN_HR_IF(E_INVALIDARG, FAILED(fw::SafeArrayView::FromVariant(&objects, view)));
        ServiceCall call(L"IPropertyDialogByObjects.ShowDialog", std::wstring(fw::Bstr::ViewOf(*text)),
                         view.Count());
        RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
        return call.ReturnsCode(
            fw::Guarded([&] { return EditText(text, static_cast<std::size_t>(view.Count())); }));
    }

protected:
    ~DialogByObjects() = default;
};

class DialogByIds : public fw::ComObjectRoot, public IPropertyDialogByIds, private LiveObject {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static constexpr std::array interfaces{fw::Implements<DialogByIds, IPropertyDialogByIds>()};
        return interfaces;
    }

    // IPropertyDialogByIds
    STDMETHODIMP ShowDialog(BSTR* text, KvArray<KvDbObjectId>* ids) override {
        RETURN_IF_NULL_POINTER(text);
        RETURN_IF_NULL_POINTER(ids);
        ServiceCall call(L"IPropertyDialogByIds.ShowDialog", std::wstring(fw::Bstr::ViewOf(*text)),
                         ids->length());
        RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
        return call.ReturnsCode(
            fw::Guarded([&] { return EditText(text, static_cast<std::size_t>(ids->length())); }));
    }

protected:
    ~DialogByIds() = default;
};

template <class Class>
class DialogFactory : public fw::ComObjectRoot, public IClassFactory {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static constexpr std::array interfaces{fw::Implements<DialogFactory, IClassFactory>()};
        return interfaces;
    }

    // IClassFactory
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** result) override {
        RETURN_HR_IF(CLASS_E_NOAGGREGATION, outer != nullptr);
        return CComObject<Class>::Create(nullptr, id, result);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

protected:
    ~DialogFactory() = default;
};

template <class Class>
DWORD Register(const CLSID& classId) {
    DWORD cookie = 0;
    fw::ComPtr<IClassFactory> factory;
    const HRESULT made =
        CComObject<DialogFactory<Class>>::Create(nullptr, IID_IClassFactory, factory.PutVoid());
    // Without the registration the host runs as one whose dialogs are not installed.
    if (SUCCEEDED(made)) {
        fw::Ignore(::CoRegisterClassObject(classId, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                           &cookie));
    }
    return cookie;
}

}  // namespace

PropertyDialogs::PropertyDialogs()
    : m_byObjects(Register<DialogByObjects>(CLSID_TextDialogByObjects)),
      m_byIds(Register<DialogByIds>(CLSID_TextDialogByIds)) {
}

PropertyDialogs::~PropertyDialogs() {
    ::CoRevokeClassObject(m_byIds);
    ::CoRevokeClassObject(m_byObjects);
}

}  // namespace kvhost
