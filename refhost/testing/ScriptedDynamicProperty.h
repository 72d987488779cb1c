#pragma once

#include <map>
#include <memory>

#include "framework/com/ComPtr.h"
#include "host_sdk/IDynamicProperty.h"
#include "host_sdk/IDynamicPropertyByObject.h"
#include "host_sdk/IDynamicPropertyDialog.h"
#include "host_sdk/IDynamicPropertyEnum.h"
#include "host_sdk/IPropertyExpressionSupport.h"
#include "host_sdk/IPropertyUnspecifiedSupport.h"
#include "refhost/testing/CallScript.h"
#include "refhost/testing/ScriptedObject.h"
#include "refhost/testing/ScriptedValue.h"

namespace kvhost {

/// A dynamic property for tests, in both forms, one or neither, journalled as `Operation name subject ...`:
/// "GetCurrentValueData P A". The subject is the scripted object's name, an id's handle, or "null".
class KVHOST_API ScriptedDynamicProperty final : public IDynamicPropertyByObject,
                                                 public IDynamicProperty,
                                                 public IDynamicPropertyDialog,
                                                 public IPropertyUnspecifiedSupport,
                                                 public IPropertyExpressionSupport,
                                                 public IPerPropertyBrowsing,
                                                 public IDynamicPropertyEnum,
                                                 public IPropertyElementAccess,
                                                 public IPropertyElementAccess2 {
public:
    /// `interfaces` are ScriptedInterface bits.
    [[nodiscard]] static fw::ComPtr<ScriptedDynamicProperty> Make(std::wstring name, unsigned interfaces);
    ScriptedDynamicProperty(const ScriptedDynamicProperty&) = delete;
    ScriptedDynamicProperty& operator=(const ScriptedDynamicProperty&) = delete;

    /// Properties alive now.
    [[nodiscard]] static long LiveCount();
    [[nodiscard]] ULONG References() const { return m_references; }
    /// The property's identity, as the selection's arrays hold it.
    [[nodiscard]] IUnknown* Identity() { return static_cast<IDynamicPropertyByObject*>(this); }

    /// The script for one subject, made at first use. Subjects without one share `shared`.
    ScriptedValue& For(const std::wstring& subject);

    CallScript script;
    unsigned interfaces = 0;
    ScriptedValue shared;
    std::vector<std::wstring> names;
    std::vector<std::pair<std::wstring, fw::Variant>> values;  ///< of IDynamicPropertyEnum
    KvPropertyDialogProcedure dialogProcedure = nullptr;
    std::optional<std::wstring> dialogMacro;
    /// Set as the thread's error text by a failing put; absent: no error text.
    std::optional<std::wstring> errorText;

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void** result) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    // IDynamicPropertyByObject and IDynamicProperty
    STDMETHODIMP IsPropertyReadOnly(BOOL* readOnly) override;
    STDMETHODIMP GetCurrentValueType(VARTYPE* type) override;
    STDMETHODIMP GetCurrentValueData(IUnknown* object, VARIANT* value) override;
    STDMETHODIMP SetCurrentValueData(IUnknown* object, VARIANT value) override;
    STDMETHODIMP GetCurrentValueData(KvDbObjectId object, VARIANT* value) override;
    STDMETHODIMP SetCurrentValueData(KvDbObjectId object, VARIANT value) override;
    STDMETHODIMP GetPropertyNameCount(long* count) override;
    STDMETHODIMP GetPropertyName(long index, BSTR* name) override;

    // IDynamicPropertyDialog
    STDMETHODIMP GetDialogProcedure(KvPropertyDialogProcedure* procedure) override;
    STDMETHODIMP GetDialogMacro(BSTR* macro) override;

    // IPropertyUnspecifiedSupport
    STDMETHODIMP IsUnspecified(VARIANT key, VARIANT_BOOL* unspecified) override;
    STDMETHODIMP SetUnspecified(VARIANT key, VARIANT_BOOL unspecified) override;
    STDMETHODIMP IsUnspecifiedAllowed(VARIANT key, VARIANT_BOOL* allowed) override;
    STDMETHODIMP GetUnspecifiedText(VARIANT key, BSTR* text) override;

    // IPropertyExpressionSupport
    STDMETHODIMP IsExpressionSupported(VARIANT key, VARIANT_BOOL* supported) override;
    STDMETHODIMP GetExpression(VARIANT key, BSTR* expression) override;
    STDMETHODIMP SetExpression(VARIANT key, wchar_t* expression) override;

    // IPerPropertyBrowsing
    STDMETHODIMP GetDisplayString(DISPID dispid, BSTR* text) override;
    STDMETHODIMP MapPropertyToPage(DISPID dispid, CLSID* page) override;
    STDMETHODIMP GetPredefinedStrings(DISPID dispid, CALPOLESTR* strings, CADWORD* cookies) override;
    STDMETHODIMP GetPredefinedValue(DISPID dispid, DWORD cookie, VARIANT* value) override;

    // IDynamicPropertyEnum
    STDMETHODIMP GetValueCount(long* count) override;
    STDMETHODIMP GetValueName(long index, BSTR* name) override;
    STDMETHODIMP GetValueData(long index, VARIANT* data) override;

    // IPropertyElementAccess
    STDMETHODIMP GetElementValue(long dispid, unsigned key, VARIANT* value) override;
    STDMETHODIMP SetElementValue(long dispid, unsigned key, VARIANT value) override;
    STDMETHODIMP GetGroupSize(long dispid, unsigned* size) override;
    STDMETHODIMP GetGroupCount(long dispid, long* count) override;

    // IPropertyElementAccess2
    STDMETHODIMP GetElementValue(long dispid, IDispatch* object, unsigned key, VARIANT* value) override;
    STDMETHODIMP SetElementValue(long dispid, IDispatch* object, unsigned key, VARIANT value) override;
    STDMETHODIMP GetGroupSize(long dispid, IDispatch* object, unsigned* size) override;
    STDMETHODIMP GetGroupCount(long dispid, IDispatch* object, long* count) override;

private:
    ScriptedDynamicProperty(std::wstring name, unsigned offered);
    ~ScriptedDynamicProperty();

    [[nodiscard]] ScriptedValue& Of(const std::wstring& subject);
    [[nodiscard]] void* Find(REFIID id);
    HRESULT Get(const std::wstring& subject, VARIANT* value);
    HRESULT Put(const std::wstring& subject, const VARIANT& value);

    std::map<std::wstring, std::unique_ptr<ScriptedValue>> m_values;
    ULONG m_references = 0;
};

}  // namespace kvhost
