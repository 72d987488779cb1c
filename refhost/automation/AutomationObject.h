#pragma once

#include <array>
#include <span>

#include "framework/com/ComObjectRoot.h"
#include "framework/com/InterfaceMap.h"
#include "host_sdk/IDatabaseObjectIdentity.h"
#include "host_sdk/IGraphicalObjectUpdate.h"
#include "host_sdk/IKvHyperlinkHost.h"
#include "host_sdk/IPropertyEditability.h"
#include "host_sdk/IPropertyExpressionSupport.h"
#include "host_sdk/IPropertyUnspecifiedSupport.h"
#include "refhost/automation/IAutomationIdentity.h"
#include "refhost/automation/IPropertyOfDialog.h"
#include "refhost/automation/LiveObject.h"
#include "refhost/automation/PropertyDispatch.h"

namespace kvhost {

class Object;

/// Automation object of one database object. It opens the object for each call and holds nothing of it but
/// the id, so that undo, erase and the end of the drawing may happen at any time.
class AutomationObject : public fw::ComObjectRoot,
                         public PropertyDispatch,
                         public IDatabaseObjectIdentity,
                         public IPropertyEditability,
                         public IPropertyUnspecifiedSupport,
                         public IPropertyExpressionSupport,
                         public IPerPropertyBrowsing,
                         public IAutomationIdentity,
                         public IPropertyOfDialog,
                         public IKvHyperlinkHost,
                         private LiveObject {
public:
    static std::span<const fw::InterfaceEntry> Interfaces();

    void Attach(KvDbObjectId id, const PropertyTable& table);
    /// The drawing has gone: every later call answers that the object no longer exists.
    void Orphan() { m_id = {}; }

    // IDatabaseObjectIdentity
    STDMETHODIMP GetObjectId(KvDbObjectId* id) override;
    STDMETHODIMP GetClassId(CLSID* classId) override;

    // IPropertyEditability
    STDMETHODIMP Editable(long dispid, BOOL* editable) override;
    STDMETHODIMP PropertyShown(long dispid, BOOL* shown) override;

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

    // IAutomationIdentity
    KvDbObjectId STDMETHODCALLTYPE DatabaseObject() override { return m_id; }

    // IKvHyperlinkHost
    STDMETHODIMP GetHyperlinks(IKvHyperlinkCollection** hyperlinks) override;

    // IPropertyOfDialog
    DISPID STDMETHODCALLTYPE PropertyOfDialog(REFCLSID dialog) override;

protected:
    ~AutomationObject();

    /// What every automation object answers, as an object of `Class`.
    template <class Class>
    static constexpr auto InterfacesOfObjects() {
        return std::array{fw::Implements<Class, IDispatch>(),
                          fw::Implements<Class, IDatabaseObjectIdentity>(),
                          fw::Implements<Class, IPropertyEditability>(),
                          fw::Implements<Class, IPropertyUnspecifiedSupport>(),
                          fw::Implements<Class, IPropertyExpressionSupport>(),
                          fw::Implements<Class, IPerPropertyBrowsing>(),
                          fw::Implements<Class, IAutomationIdentity>(),
                          fw::Implements<Class, IPropertyOfDialog>(),
                          fw::Implements<Class, IKvHyperlinkHost>()};
    }

    [[nodiscard]] KvDbObjectId Id() const { return m_id; }
    [[nodiscard]] std::wstring JournalName() const override;
    /// Null when the class has no such property.
    [[nodiscard]] const PropertyDescription* PropertyAt(DISPID dispid) const;

private:
    // PropertyDispatch
    [[nodiscard]] const PropertyTable& Table() const override { return *m_table; }
    [[nodiscard]] Tolm::ErrorStatus Read(const PropertyDescription& property, fw::Variant& value) override;
    [[nodiscard]] Tolm::ErrorStatus Write(const PropertyDescription& property,
                                          const fw::Variant& value) override;

    [[nodiscard]] const PropertyDescription* PropertyOf(const VARIANT& key) const;

    KvDbObjectId m_id;
    const PropertyTable* m_table = nullptr;
};

/// Automation object of an entity, which is drawn and so can be asked to redraw itself.
class GraphicalAutomationObject : public AutomationObject, public IGraphicalObjectUpdate {
public:
    static std::span<const fw::InterfaceEntry> Interfaces();

    // IGraphicalObjectUpdate. Only hatches have a pattern.
    STDMETHODIMP GetPatternType(long* type) override;
    STDMETHODIMP GetPatternName(BSTR* name) override;
    STDMETHODIMP SetPattern(long type, BSTR name) override;
    STDMETHODIMP Update() override;

protected:
    ~GraphicalAutomationObject() = default;

    /// What every drawn object answers, as an object of `Class`.
    template <class Class>
    static constexpr auto InterfacesOfGraphics() {
        return fw::JoinInterfaces(InterfacesOfObjects<Class>(),
                                  std::array{fw::Implements<Class, IGraphicalObjectUpdate>()});
    }
};

}  // namespace kvhost
