#pragma once

#include <map>
#include <memory>

#include "framework/com/ComPtr.h"
#include "host_sdk/IDatabaseObjectIdentity.h"
#include "host_sdk/IGraphicalObjectUpdate.h"
#include "host_sdk/IPropertyEditability.h"
#include "host_sdk/IPropertyElementAccess.h"
#include "host_sdk/IPropertyElementAccess2.h"
#include "host_sdk/IPropertyExpressionSupport.h"
#include "host_sdk/IPropertyUnspecifiedSupport.h"
#include "host_sdk/ITransientObjectIdentity.h"
#include "refhost/automation/IPropertyOfDialog.h"
#include "refhost/testing/CallScript.h"
#include "refhost/testing/ScriptedValue.h"

namespace kvhost {

/// Interfaces that a scripted object answers beside IDispatch.
enum ScriptedInterface : unsigned {
    OffersUnspecified = 1,
    OffersExpression = 2,
    OffersEditability = 4,
    OffersIdentity = 8,
    OffersTransientIdentity = 16,
    OffersUpdate = 32,
    OffersBrowsing = 64,
    OffersDialog = 128,             ///< IDynamicPropertyDialog, of dynamic properties
    OffersByObject = 256,           ///< IDynamicPropertyByObject, of dynamic properties
    OffersById = 512,               ///< IDynamicProperty, of dynamic properties
    OffersElements = 1024,          ///< IPropertyElementAccess
    OffersElementsOfObject = 2048,  ///< IPropertyElementAccess2, which is told the object
    OffersValues = 4096,            ///< IDynamicPropertyEnum, of dynamic properties
};

/// An automation object for tests, whose every answer is set by the test and whose every call is journalled
/// as `Operation name arguments`: "Invoke A get 5", "Invoke A put 5 "text"", "IsUnspecified A 5",
/// "GetObjectId A".
class KVHOST_API ScriptedObject final : public IDispatch,
                                        public IPropertyUnspecifiedSupport,
                                        public IPropertyExpressionSupport,
                                        public IPropertyEditability,
                                        public IDatabaseObjectIdentity,
                                        public ITransientObjectIdentity,
                                        public IGraphicalObjectUpdate,
                                        public IPerPropertyBrowsing,
                                        public IPropertyElementAccess,
                                        public IPropertyElementAccess2,
                                        public IPropertyOfDialog {
public:
    [[nodiscard]] static fw::ComPtr<ScriptedObject> Make(std::wstring name, unsigned interfaces = 0);
    ScriptedObject(const ScriptedObject&) = delete;
    ScriptedObject& operator=(const ScriptedObject&) = delete;

    /// Objects alive now.
    [[nodiscard]] static long LiveCount();
    /// Name of the scripted object at that identity, "null" for null, "?" for any other.
    [[nodiscard]] static std::wstring NameOf(IUnknown* object);
    [[nodiscard]] ULONG References() const { return m_references; }

    /// The script of one property, made at first use. Gets and puts of one that was never asked for here
    /// give DISP_E_MEMBERNOTFOUND.
    ScriptedValue& At(DISPID dispid);

    CallScript script;
    unsigned interfaces = 0;  ///< ScriptedInterface bits
    KvDbObjectId objectId;
    HRESULT objectIdResult = S_OK;
    KvDbFullSubentPath subentPath;
    HRESULT subentPathResult = S_OK;
    CLSID classId{};
    HRESULT classIdResult = S_OK;
    HRESULT updateResult = S_OK;
    fw::ComPtr<ITypeInfo> typeInfo;  ///< null: the object has none
    std::map<std::wstring, DISPID> names;

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void** result) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* texts, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID dispid, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

    // IPropertyUnspecifiedSupport
    STDMETHODIMP IsUnspecified(VARIANT key, VARIANT_BOOL* unspecified) override;
    STDMETHODIMP SetUnspecified(VARIANT key, VARIANT_BOOL unspecified) override;
    STDMETHODIMP IsUnspecifiedAllowed(VARIANT key, VARIANT_BOOL* allowed) override;
    STDMETHODIMP GetUnspecifiedText(VARIANT key, BSTR* text) override;

    // IPropertyExpressionSupport
    STDMETHODIMP IsExpressionSupported(VARIANT key, VARIANT_BOOL* supported) override;
    STDMETHODIMP GetExpression(VARIANT key, BSTR* expression) override;
    STDMETHODIMP SetExpression(VARIANT key, wchar_t* expression) override;

    // IPropertyEditability
    STDMETHODIMP Editable(long dispid, BOOL* editable) override;
    STDMETHODIMP PropertyShown(long dispid, BOOL* shown) override;

    // IDatabaseObjectIdentity and ITransientObjectIdentity
    STDMETHODIMP GetObjectId(KvDbObjectId* id) override;
    STDMETHODIMP GetClassId(CLSID* result) override;
    STDMETHODIMP GetFullSubentPath(KvDbFullSubentPath* path) override;

    // IGraphicalObjectUpdate
    STDMETHODIMP GetPatternType(long* type) override;
    STDMETHODIMP GetPatternName(BSTR* name) override;
    STDMETHODIMP SetPattern(long type, BSTR name) override;
    STDMETHODIMP Update() override;

    // IPerPropertyBrowsing
    STDMETHODIMP GetDisplayString(DISPID dispid, BSTR* text) override;
    STDMETHODIMP MapPropertyToPage(DISPID dispid, CLSID* page) override;
    STDMETHODIMP GetPredefinedStrings(DISPID dispid, CALPOLESTR* strings, CADWORD* cookies) override;
    STDMETHODIMP GetPredefinedValue(DISPID dispid, DWORD cookie, VARIANT* value) override;

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

    // IPropertyOfDialog, offered with IPerPropertyBrowsing
    DISPID STDMETHODCALLTYPE PropertyOfDialog(REFCLSID dialog) override;

private:
    ScriptedObject(std::wstring name, unsigned offered);
    ~ScriptedObject();

    [[nodiscard]] ScriptedValue& Known(DISPID dispid);
    [[nodiscard]] void* Find(REFIID id);
    HRESULT Get(DISPID dispid, VARIANT* result, EXCEPINFO* exception);
    HRESULT Put(DISPID dispid, const VARIANT& value, EXCEPINFO* exception);

    std::map<DISPID, std::unique_ptr<ScriptedValue>> m_values;
    ScriptedValue m_unknown;  // answers for properties without a script
    ULONG m_references = 0;
};

}  // namespace kvhost
