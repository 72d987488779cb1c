#include "tests/support/FakeIdentifier.h"

#include "framework/base/Hresult.h"
#include "tests/support/JournalNote.h"

namespace kvtest {
namespace {

long s_live = 0;

}  // namespace

FakeIdentifier::FakeIdentifier() {
    ++s_live;
}

FakeIdentifier::~FakeIdentifier() {
    --s_live;
}

long FakeIdentifier::LiveCount() {
    return s_live;
}

STDMETHODIMP FakeIdentifier::QueryInterface(REFIID id, void** object) {
    RETURN_IF_NULL_POINTER(object);
    *object = nullptr;
    RETURN_HR_IF(E_NOINTERFACE, id != IID_IUnknown && id != __uuidof(IKvPiPropertyIdentifier));
    *object = this;
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) FakeIdentifier::Release() {
    const ULONG left = --m_references;
    if (left == 0) {
        delete this;
    }
    return left;
}

STDMETHODIMP FakeIdentifier::PutCurrentValue(VARIANT value) {
    Note(L"PutCurrentValue", value);
    if (throws) {
        throw 1;
    }
    if (onValue) {
        onValue();
    }
    return result;
}

STDMETHODIMP FakeIdentifier::PutCurrentValueText(BSTR text) {
    Note(L"PutCurrentValueText", std::wstring(text, ::SysStringLen(text)));
    return result;
}

}  // namespace kvtest
