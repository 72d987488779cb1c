#pragma once

#include <functional>
#include <string>

#include "framework/com/ComPtr.h"
#include "host_sdk/IHostApplication.h"
#include "host_sdk/IPropertyDialogByIds.h"
#include "host_sdk/IPropertyDialogByObjects.h"

namespace kvtest {

/// A property dialog that creates itself as its own class object: notes "ShowDialog objects|ids text count"
/// and answers what it is told to.
class FakeDialog final : public IClassFactory, public IPropertyDialogByObjects, public IPropertyDialogByIds {
public:
    static constexpr CLSID c_classId = {
        0x3B9B0C1D, 0x51F3, 0x4C0D, {0x8D, 0x7E, 0x0A, 0x61, 0x7D, 0x55, 0x21, 0x9C}};

    FakeDialog();
    FakeDialog(const FakeDialog&) = delete;
    FakeDialog& operator=(const FakeDialog&) = delete;
    ~FakeDialog();

    bool offersByObjects = true;
    bool offersByIds = true;
    HRESULT result = S_OK;
    std::wstring answer = L"answer";
    bool throws = false;  ///< when its answer stands, as dialogs do that run out of memory
    std::function<void(const VARIANT& objects)> onObjects;

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override { return --m_references; }
    // IClassFactory
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override;
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
    // IPropertyDialogByObjects
    STDMETHODIMP ShowDialog(BSTR* text, VARIANT objects) override;
    // IPropertyDialogByIds
    STDMETHODIMP ShowDialog(BSTR* text, KvArray<KvDbObjectId>* ids) override;

private:
    HRESULT Answer(BSTR* text);

    ULONG m_references = 1;  // the test's own
    DWORD m_registration = 0;
};

/// The host's automation object: notes "RunMacro text".
class FakeApplication final : public IHostApplication {
public:
    FakeApplication();
    FakeApplication(const FakeApplication&) = delete;
    FakeApplication& operator=(const FakeApplication&) = delete;
    ~FakeApplication();

    bool runsMacros = true;
    [[nodiscard]] ULONG References() const { return m_references; }

    STDMETHODIMP QueryInterface(REFIID id, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override { return --m_references; }
    STDMETHODIMP RunMacro(BSTR macro) override;

private:
    ULONG m_references = 1;  // the test's own
};

}  // namespace kvtest
