#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>

#include "framework/com/ComObjectRoot.h"
#include "framework/com/ComPtr.h"
#include "framework/com/InterfaceMap.h"
#include "framework/com/Variant.h"
#include "host_sdk/ErrorStatus.h"
#include "host_sdk/IDynamicProperty.h"
#include "host_sdk/IDynamicPropertyByObject.h"
#include "host_sdk/IDynamicPropertyDialog.h"
#include "host_sdk/IDynamicPropertyEnum.h"
#include "host_sdk/IPropertyExpressionSupport.h"
#include "host_sdk/IPropertyUnspecifiedSupport.h"
#include "refhost/automation/ControlNames.h"
#include "refhost/automation/LiveObject.h"

namespace kvhost {

/// One value of a dynamic property whose values are closed: the text that users see and the one that the
/// drawing keeps.
struct DynamicAttributeValue {
    const wchar_t* name;
    const wchar_t* stored;
};

/// How one dynamic property behaves. Attributes of a name that is not in the table are plain.
struct DynamicAttributeKind {
    const wchar_t* name;
    bool byIdOnly = false;  ///< offers IDynamicProperty alone
    bool unspecified = false;
    bool expression = false;
    bool readOnly = false;
    KvPropertyDialogProcedure dialogProcedure = nullptr;
    const wchar_t* dialogMacro = nullptr;
    const wchar_t* control = controls::Text;
    /// VT_BSTR, VT_I4 or VT_BOOL.
    VARTYPE type = VT_BSTR;
    /// Empty when the values are free. A truth has two: that for true, then that for false.
    std::span<const DynamicAttributeValue> values = {};

    [[nodiscard]] bool HasChoice() const { return !values.empty() && type != VT_BOOL; }
    [[nodiscard]] bool HasTwoNames() const { return !values.empty() && type == VT_BOOL; }
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
                         public IDynamicPropertyEnum,
                         public IPropertyUnspecifiedSupport,
                         public IPropertyExpressionSupport,
                         private LiveObject {
public:
    /// The property of that name, made at first use and kept while somebody holds it.
    [[nodiscard]] static HRESULT Get(const std::wstring& name, fw::ComPtr<IUnknown>& property);

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

    // IDynamicPropertyEnum
    STDMETHODIMP GetValueCount(long* count) override;
    STDMETHODIMP GetValueName(long index, BSTR* name) override;
    STDMETHODIMP GetValueData(long index, VARIANT* data) override;

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
    /// The value behind a stored text, in the property's type where the text can be one.
    [[nodiscard]] fw::Variant ValueOf(std::wstring_view stored) const;
    /// The text to store for a value; eInvalidInput for one that the property does not take.
    [[nodiscard]] Tolm::ErrorStatus StoredText(const fw::Variant& value, std::wstring& text) const;
    [[nodiscard]] bool HasValueAt(long index) const;
    /// Name under which the drawing keeps the state of this property.
    [[nodiscard]] std::wstring StateName() const { return L"attribute:" + m_name; }

    std::wstring m_name;
    const DynamicAttributeKind* m_kind = nullptr;
};

}  // namespace kvhost
