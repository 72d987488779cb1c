#include "refhost/automation/PropertyDialogs.h"

#include <array>
#include <span>
#include <vector>

#include "framework/base/Hresult.h"
#include "framework/com/Bstr.h"
#include "framework/com/CComObject.h"
#include "framework/com/SafeArray.h"
#include "host_sdk/IPropertyDialogByIds.h"
#include "host_sdk/IPropertyDialogByObjects.h"
#include "refhost/automation/DialogEdit.h"
#include "refhost/automation/LiveObject.h"
#include "refhost/automation/PropertyDialogIds.h"
#include "refhost/automation/PropertyRows.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

using Objects = std::vector<fw::ComPtr<IDispatch>>;

// Entries that are no automation objects are left out.
Objects ObjectsOf(const fw::SafeArrayView& array) {
    Objects objects;
    for (LONG index = 0; index < array.Count(); ++index) {
        fw::ComPtr<IUnknown> element;
        if (SUCCEEDED(array.GetUnknown(index, element))) {
            if (auto object = element.As<IDispatch>()) {
                objects.push_back(std::move(object));
            }
        }
    }
    return objects;
}

Objects ObjectsOf(const KvArray<KvDbObjectId>& ids) {
    Objects objects;
    for (int index = 0; index < ids.length(); ++index) {
        fw::ComPtr<IDispatch> object;
        if (SUCCEEDED(GetAutomationObject(ids[index], object.Put()))) {
            objects.push_back(std::move(object));
        }
    }
    return objects;
}

// What the dialogs share: each is of one class, by which the objects know the property that it edits.
class DialogOfClass {
public:
    void SetClass(REFCLSID classId) { m_classId = classId; }

protected:
    CLSID m_classId{};
};

class DialogByObjects : public fw::ComObjectRoot,
                        public IPropertyDialogByObjects,
                        public DialogOfClass,
                        private LiveObject {
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
        return call.ReturnsCode(fw::Guarded([&] {
            return EditInDialog(m_classId, ObjectsOf(view), static_cast<std::size_t>(view.Count()), text);
        }));
    }

protected:
    ~DialogByObjects() = default;
};

class DialogByIds : public fw::ComObjectRoot,
                    public IPropertyDialogByIds,
                    public DialogOfClass,
                    private LiveObject {
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
        return call.ReturnsCode(fw::Guarded([&] {
            return EditInDialog(m_classId, ObjectsOf(*ids), static_cast<std::size_t>(ids->length()), text);
        }));
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
        RETURN_IF_NULL_POINTER(result);
        *result = nullptr;
        RETURN_HR_IF(CLASS_E_NOAGGREGATION, outer != nullptr);
        CComObject<Class>* dialog = nullptr;
        RETURN_IF_FAILED(CComObject<Class>::CreateInstance(nullptr, &dialog));
        dialog->SetClass(m_classId);
        const HRESULT asked = dialog->QueryInterface(id, result);
        dialog->Release();
        return asked;
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

    void SetClass(REFCLSID classId) { m_classId = classId; }

protected:
    ~DialogFactory() = default;

private:
    CLSID m_classId{};
};

template <class Class>
DWORD Register(const CLSID& classId) {
    DWORD cookie = 0;
    CComObject<DialogFactory<Class>>* made = nullptr;
    if (FAILED(CComObject<DialogFactory<Class>>::CreateInstance(nullptr, &made))) {
        return cookie;
    }
    fw::ComPtr<IClassFactory> factory;
    factory.Attach(made);
    made->SetClass(classId);
    // Without the registration the host runs as one whose dialogs are not installed.
    fw::Ignore(
        ::CoRegisterClassObject(classId, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie));
    return cookie;
}

}  // namespace

PropertyDialogs::PropertyDialogs()
    : m_byObjects(Register<DialogByObjects>(CLSID_TextDialogByObjects)),
      m_byIds(Register<DialogByIds>(CLSID_TextDialogByIds)),
      m_prompts(Register<DialogByObjects>(CLSID_PromptDialog)) {
}

PropertyDialogs::~PropertyDialogs() {
    ::CoRevokeClassObject(m_prompts);
    ::CoRevokeClassObject(m_byIds);
    ::CoRevokeClassObject(m_byObjects);
}

}  // namespace kvhost
