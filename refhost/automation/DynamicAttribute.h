#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>

#include "framework/com/ComObjectRoot.h"
#include "framework/com/ComPtr.h"
#include "framework/com/InterfaceMap.h"
#include "host_sdk/IDynamicProperty.h"
#include "host_sdk/IDynamicPropertyByObject.h"
#include "host_sdk/IDynamicPropertyDialog.h"
#include "host_sdk/IPropertyExpressionSupport.h"
#include "host_sdk/IPropertyUnspecifiedSupport.h"
#include "refhost/automation/LiveObject.h"

namespace kvhost {

/// How one dynamic property behaves. Attributes of a name that is not in the table are plain.
struct DynamicAttributeKind {
    const wchar_t* name;
    bool byIdOnly = false;  ///< offers IDynamicProperty alone
    bool unspecified = false;
    bool expression = false;
    bool readOnly = false;
    KvPropertyDialogProcedure dialogProcedure = nullptr;
    const wchar_t* dialogMacro = nullptr;

    [[nodiscard]] bool HasDialog() const { return dialogProcedure != nullptr || dialogMacro != nullptr; }
};

/// The kind of the attributes of that name.
[[nodiscard]] const DynamicAttributeKind& KindOfAttribute(std::wstring_view name);
/// The names that have a kind of their own, for the documentation.
[[nodiscard]] std::span<const DynamicAttributeKind> SpecialAttributeKinds();

/// A custom attribute as dynamic property: one object per name, shared by all objects that have the
/// attribute.
class DynamicAttribute : public fw::ComObjectRoot,
                         public IDynamicPropertyByObject,
                         public IDynamicProperty,
                         public IDynamicPropertyDialog,
                         public IPropertyUnspecifiedSupport,
                         public IPropertyExpressionSupport,
                         private LiveObject {
public:
    /// The property of that name, made at first use and kept while somebody holds it.
    [[nodiscard]] static HRESULT Get(const std::wstring& name, fw::ComPtr<IUnknown>& property);

    // IDynamicPropertyByObject and IDynamicProperty
    STDMETHODIMP IsPropertyReadOnly(BOOL* readOnly) override;
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

protected:
    DynamicAttribute() = default;
    ~DynamicAttribute();

private:
    void Attach(const std::wstring& name);
    [[nodiscard]] HRESULT Read(KvDbObjectId id, VARIANT* value);
    [[nodiscard]] HRESULT Write(KvDbObjectId id, const VARIANT& value);
    /// Name under which the drawing keeps the state of this property.
    [[nodiscard]] std::wstring StateName() const { return L"attribute:" + m_name; }

    std::wstring m_name;
    const DynamicAttributeKind* m_kind = nullptr;
};

}  // namespace kvhost
