#include "tests/unit/core/FakeDialog.h"

#include <gtest/gtest.h>

#include <new>

#include "framework/base/Hresult.h"
#include "refhost/editor/Host.h"
#include "tests/support/JournalNote.h"

namespace kvtest {

FakeDialog::FakeDialog() {
    EXPECT_EQ(::CoRegisterClassObject(c_classId, static_cast<IClassFactory*>(this), CLSCTX_INPROC_SERVER,
                                      REGCLS_MULTIPLEUSE, &m_registration),
              S_OK);
}

FakeDialog::~FakeDialog() {
    ::CoRevokeClassObject(m_registration);
    EXPECT_EQ(m_references, 1U);
}

STDMETHODIMP FakeDialog::QueryInterface(REFIID id, void** object) {
    *object = nullptr;
    if (id == IID_IUnknown || id == IID_IClassFactory) {
        *object = static_cast<IClassFactory*>(this);
    } else if (offersByObjects && id == __uuidof(IPropertyDialogByObjects)) {
        *object = static_cast<IPropertyDialogByObjects*>(this);
    } else if (offersByIds && id == __uuidof(IPropertyDialogByIds)) {
        *object = static_cast<IPropertyDialogByIds*>(this);
    }
    RETURN_HR_IF(E_NOINTERFACE, *object == nullptr);
    AddRef();
    return S_OK;
}

STDMETHODIMP FakeDialog::CreateInstance(IUnknown*, REFIID id, void** object) {
    return QueryInterface(id, object);
}

STDMETHODIMP FakeDialog::ShowDialog(BSTR* text, VARIANT objects) {
    LONG upper = -1;
    EXPECT_EQ(objects.vt, VT_ARRAY | VT_UNKNOWN);
    EXPECT_EQ(::SafeArrayGetUBound(objects.parray, 1, &upper), S_OK);
    Note(L"ShowDialog", L"objects", *text, upper + 1);
    if (onObjects) {
        onObjects(objects);
    }
    return Answer(text);
}

STDMETHODIMP FakeDialog::ShowDialog(BSTR* text, KvArray<KvDbObjectId>* ids) {
    Note(L"ShowDialog", L"ids", *text, ids->length());
    return Answer(text);
}

// As dialogs do: the text that was given is freed, another one is put in.
HRESULT FakeDialog::Answer(BSTR* text) {
    ::SysFreeString(*text);
    *text = ::SysAllocString(answer.c_str());
    if (throws) {
        throw std::bad_alloc();
    }
    return result;
}

FakeApplication::FakeApplication() {
    kvhost::Host::Current()->SetApplicationObject(this);
}

FakeApplication::~FakeApplication() {
    kvhost::Host::Current()->SetApplicationObject(nullptr);
    EXPECT_EQ(m_references, 1U);
}

STDMETHODIMP FakeApplication::QueryInterface(REFIID id, void** object) {
    *object = nullptr;
    RETURN_HR_IF(E_NOINTERFACE, id != IID_IUnknown && (!runsMacros || id != __uuidof(IHostApplication)));
    *object = static_cast<IHostApplication*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP FakeApplication::RunMacro(BSTR macro) {
    Note(L"RunMacro", macro);
    return S_OK;
}

}  // namespace kvtest
