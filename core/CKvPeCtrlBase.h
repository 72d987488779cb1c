#pragma once

#include <memory>
#include <vector>

#include "core/CPropTextTooltip.h"
#include "core/EndedSelection.h"
#include "core/Export.h"
#include "core/ValueType.h"
#include "framework/base/CString.h"
#include "framework/base/Handles.h"
#include "framework/base/Hresult.h"
#include "framework/com/ComPtr.h"
#include "framework/com/DrawInfo.h"
#include "framework/window/Geometry.h"
#include "host_sdk/ErrorStatus.h"
#include "host_sdk/IDynamicProperty.h"
#include "host_sdk/IKvPiPropertyIdentifier.h"
#include "host_sdk/KvArray.h"
#include "host_sdk/KvDbFullSubentPath.h"
#include "host_sdk/KvDbObjectId.h"

class CIPropEditUIEvents;
class CKvPeBasePrivate;
class CKvPeFamilyRole;
class KvDbUndoController;
struct IPropertyUnspecifiedSupport;
struct DynamicForms;
struct SelectionEntry;

namespace fw {
class Variant;
}

/// Base of every property editor: the logic of one palette row over the selected objects. Owned by its shell,
/// which it reaches through the two interfaces given at construction.
/// The order of the virtual operations is fixed: derived families extend it at its end and override by slot.
class KVPEX_API CKvPeCtrlBase {
public:
    CKvPeCtrlBase(CIPropEditUIEvents* events, CKvPeBasePrivate* shell);
    CKvPeCtrlBase(const CKvPeCtrlBase&) = delete;
    CKvPeCtrlBase& operator=(const CKvPeCtrlBase&) = delete;
    virtual ~CKvPeCtrlBase();

    // Selection
    [[nodiscard]] virtual HRESULT Cleanup();
    [[nodiscard]] virtual HRESULT GetCurrentSelectionObjectIdArray(KvArray<KvDbObjectId>& ids);

    // Edit state
    [[nodiscard]] virtual HRESULT BeginEdit(const RECT& bounds);
    [[nodiscard]] virtual HRESULT EndEdit();
    [[nodiscard]] virtual HRESULT SetState(int& state);
    [[nodiscard]] virtual HRESULT GetState(int& state);

    // Value
    [[nodiscard]] virtual HRESULT GetPropertyValue(VARIANT* value, ValueType& type);
    [[nodiscard]] virtual HRESULT SetPropertyValue(VARIANT* value, ValueType type);
    [[nodiscard]] virtual HRESULT PreSetPropertyValue(IDispatch* object, long dispid);
    [[nodiscard]] virtual HRESULT PostSetPropertyValue(IDispatch* object);
    [[nodiscard]] virtual HRESULT CheckPropertyForUnspecifiedValue(IUnknown* dynamicProperty,
                                                                   IUnknown* object, VARIANT* value,
                                                                   bool* isUnspecified);
    [[nodiscard]] virtual HRESULT CheckPropertyForUnspecifiedValue(long dispid, IDispatch* object,
                                                                   VARIANT* value, bool* isUnspecified);
    [[nodiscard]] virtual HRESULT SetPropertyValueAsUnspecified(long dispid, IDispatch* object,
                                                                int unspecified);
    [[nodiscard]] virtual HRESULT SetPropertyValueAsUnspecified(IUnknown* dynamicProperty, IUnknown* object,
                                                                int unspecified);
    /// `result` is 0 for equal values and -1 otherwise; E_FAIL, leaving it alone, for values of two types.
    [[nodiscard]] virtual HRESULT ComparePropertyValue(VARIANT* first, VARIANT* second, int& result);
    [[nodiscard]] virtual HRESULT GetDynamicPropertyValue(IDispatch* object, IDynamicProperty* property,
                                                          VARIANT* value);
    [[nodiscard]] virtual HRESULT SetDynamicPropertyValue(IDispatch* object, IDynamicProperty* property,
                                                          VARIANT* value);

    // Expressions
    [[nodiscard]] virtual HRESULT CheckPropertyForExpression(IUnknown* dynamicProperty, IUnknown* object,
                                                             VARIANT* expression, bool* supported);
    [[nodiscard]] virtual HRESULT CheckPropertyForExpression(long dispid, IDispatch* object,
                                                             VARIANT* expression, bool* supported);
    [[nodiscard]] virtual HRESULT SetPropertyExpressionAsString(long dispid, IDispatch* object,
                                                                wchar_t* expression);
    [[nodiscard]] virtual HRESULT SetPropertyExpressionAsString(IUnknown* dynamicProperty, IUnknown* object,
                                                                wchar_t* expression);

    // Input
    [[nodiscard]] virtual HRESULT MouseClick(UINT keys, CPoint point);
    [[nodiscard]] virtual HRESULT DoubleClick(const RECT& bounds);
    [[nodiscard]] virtual HRESULT PropertySysKeyDown(UINT key, UINT repeat, UINT flags, bool& handled);
    /// `text` is the row's text in and the dialog's result out. Callers act on it and on GetChangeNotified.
    [[nodiscard]] virtual HRESULT LaunchZRBPropertyDialog(CString& text);

    // Appearance
    [[nodiscard]] virtual HRESULT GetTextTipWidth(int& width);
    [[nodiscard]] virtual HRESULT GetFrameHandle(HWND& frame);
    [[nodiscard]] virtual HRESULT SetReadOnlyFlag(int readOnly);
    [[nodiscard]] virtual HRESULT PropReadOnly(int& readOnly);
    [[nodiscard]] virtual HRESULT EditBoxReadOnly(bool& readOnly);

    // IKvPiPropertyEditControl
    [[nodiscard]] virtual HRESULT Handle_InitEditControl(VARIANT* objects, VARIANT* dynamicProperties,
                                                         VARIANT* dispids, short readOnly);
    [[nodiscard]] virtual HRESULT Handle_get_KeepFocus(short* keepFocus);
    [[nodiscard]] virtual HRESULT Handle_Refresh();
    [[nodiscard]] virtual HRESULT Handle_put_ForeColor(OLE_COLOR color);
    [[nodiscard]] virtual HRESULT Handle_get_ForeColor(OLE_COLOR* color);
    [[nodiscard]] virtual HRESULT Handle_put_BackColor(OLE_COLOR color);
    [[nodiscard]] virtual HRESULT Handle_get_BackColor(OLE_COLOR* color);
    [[nodiscard]] virtual HRESULT Handle_put_ReadOnlyForeColor(OLE_COLOR color);
    [[nodiscard]] virtual HRESULT Handle_get_ReadOnlyForeColor(OLE_COLOR* color);
    [[nodiscard]] virtual HRESULT Handle_put_ReadOnlyBackColor(OLE_COLOR color);
    [[nodiscard]] virtual HRESULT Handle_get_ReadOnlyBackColor(OLE_COLOR* color);
    [[nodiscard]] virtual HRESULT Handle_put_Font(IUnknown* font);
    [[nodiscard]] virtual HRESULT Handle_get_Font(IUnknown** font);

    // Events to the palette
    [[nodiscard]] virtual HRESULT Fire_OnKeyDown(UINT_PTR key, LONG_PTR keyData);
    [[nodiscard]] virtual HRESULT Fire_OnKeyUp(UINT_PTR key, LONG_PTR keyData);
    [[nodiscard]] virtual HRESULT Fire_OnRButtonDown(UINT_PTR keys, LONG_PTR point);
    [[nodiscard]] virtual HRESULT Fire_OnMButtonDown(UINT_PTR keys, LONG_PTR point);

    // Embedded control
    [[nodiscard]] virtual HRESULT Handle_OnDraw(ATL_DRAWINFO& info);
    [[nodiscard]] virtual HRESULT Handle_SetObjectRects(const RECT* bounds, const RECT* clip);
    [[nodiscard]] virtual HRESULT Handle_DoVerbHide();
    [[nodiscard]] virtual HRESULT Handle_DoVerbShow();
    [[nodiscard]] virtual HRESULT Handle_DoVerbUIActivate(const RECT* bounds);
    [[nodiscard]] virtual HRESULT Handle_UIDeactivate();

    // Messages of the shell's window. `handled` comes in TRUE.
    virtual LRESULT Handle_OnCtlColor(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    virtual LRESULT Handle_OnKeyDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    virtual LRESULT Handle_OnLButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    virtual LRESULT Handle_OnRButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    virtual LRESULT Handle_OnMButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    virtual LRESULT Handle_OnLButtonDblClk(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    virtual LRESULT Handle_OnCreate(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    virtual LRESULT Handle_OnMouseMove(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    virtual LRESULT Handle_OnMouseLeave(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    virtual LRESULT Handle_ShowTextTip(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    virtual LRESULT Handle_OnDrawTooltip(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    virtual LRESULT Handle_OnEraseBackground(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    [[nodiscard]] virtual HRESULT GetComboTextTipWidth(int index, int& width);

    // State that families and the palette exchange
    [[nodiscard]] virtual HRESULT SetDoNextVariantItem(int value);
    [[nodiscard]] virtual HRESULT GetDoNextVariantItem(int& value);
    [[nodiscard]] virtual HRESULT SetChangeNotified(int value);
    [[nodiscard]] virtual HRESULT GetChangeNotified(int& value);

    // IKvPiPropertyEditControl2
    [[nodiscard]] virtual HRESULT Handle_PutPropertyIdentifier(IKvPiPropertyIdentifier* identifier);
    [[nodiscard]] virtual HRESULT Handle_GetPropertyIdentifier(IKvPiPropertyIdentifier** identifier);

    // The slots end here.

    [[nodiscard]] CString GetUnspecifiedString() const;
    /// Width of `text` in the control's font. `width` stays unset for an empty text; E_FAIL without a font or
    /// a window.
    [[nodiscard]] HRESULT GetStringWidth(const CString& text, int* width);

    /// Marks parts of the edited object in the drawing until unhighlightSubEntities, which the family calls.
    void highlightSubEntities(const KvArray<KvDbFullSubentPath>& paths);
    void unhighlightSubEntities();

    /// The control's window; null while there is none.
    [[nodiscard]] HWND ControlWindow() const;
    [[nodiscard]] CIPropEditUIEvents* Events() const { return m_events; }
    /// The handle of the control's font; null while there is none. The font object owns it.
    [[nodiscard]] HFONT FontHandle() const;

protected:
    void UpdateExpressionSupportState(bool firstHadNoExpression, bool supported,
                                      const CString& otherExpression);
    /// Takes the group just closed back and keeps the pick-first selection, less the objects that went with
    /// it.
    Tolm::ErrorStatus undoSSRetain(KvDbUndoController* controller, int count);
    /// Points the tip to the control's window and its parent.
    void SetTextTipOwner();
    /// `role` is the derived object itself and lives as long; null for a control without a family.
    void SetFamilyRole(CKvPeFamilyRole* role) { m_familyRole = role; }
    /// Selection entries that may be walked: none before Handle_InitEditControl and after Cleanup.
    [[nodiscard]] int EntryCount() const { return m_objects ? m_objectCount : 0; }

    // Selection. Every entry of the two object arrays holds a reference or is null.
    int m_objectCount = 0;
    std::unique_ptr<IDispatch*[]> m_objects;
    std::unique_ptr<IUnknown*[]> m_dynamicProperties;
    std::unique_ptr<long[]> m_dispids;

    // Value
    BOOL m_readOnly = FALSE;
    BOOL m_initialReadOnly = FALSE;
    bool m_allowUnspecified = false;
    CString m_unspecifiedText;
    CString m_expression;
    int m_expressionState = 0;

    // Write
    int m_failedObjectCount = 0;
    BOOL m_changeNotified = FALSE;
    fw::ComPtr<IKvPiPropertyIdentifier> m_propertyIdentifier;

    // Shell and appearance
    CPropTextTooltip m_textTip;
    KvArray<KvDbFullSubentPath> m_highlightedPaths{0, 8};
    int m_state = 0;
    CWnd* m_childWindow = nullptr;  // owned by the family
    BOOL m_doNextVariantItem = FALSE;
    bool m_editBoxReadOnly = false;
    OLE_COLOR m_foreColor = 0;
    OLE_COLOR m_backColor = 0;
    OLE_COLOR m_readOnlyForeColor = 0;
    OLE_COLOR m_readOnlyBackColor = 0;
    fw::UniqueBrush m_backBrush;
    fw::UniqueBrush m_readOnlyBackBrush;
    fw::ComPtr<IFont> m_font;
    CIPropEditUIEvents* m_events = nullptr;  // the shell
    CKvPeBasePrivate* m_private = nullptr;   // the shell
    BOOL m_keepEditOnHide = FALSE;

private:
    class SelectionUse;
    class ValueReader;
    class ValueWriter;
    class DialogRun;

    void Initialize();
    void AllocateSelection(int count);
    [[nodiscard]] HRESULT StoreEntry(LONG index, const VARIANT& objects, const VARIANT& dynamicProperties,
                                     const VARIANT& dispids);
    [[nodiscard]] SelectionEntry EntryAt(int index) const;
    [[nodiscard]] HRESULT ReadUnspecifiedState(IPropertyUnspecifiedSupport& support, const VARIANT& key,
                                               VARIANT* value, bool* isUnspecified);
    [[nodiscard]] HRESULT GetPropertyExpressionHelper(long dispid, IDispatch* object, CString& expression,
                                                      bool& supported);
    [[nodiscard]] HRESULT GetPropertyExpressionHelper(IUnknown* dynamicProperty, IUnknown* object,
                                                      CString& expression, bool& supported);
    void PresetControlValue(VARIANT* value);
    /// The controller that has begun the write's group; null when none has.
    [[nodiscard]] KvDbUndoController* PrePropertyChangeSetup();
    void PostPropertyChangeRestore(long result, bool sawLockedObject, KvDbUndoController* groupOwner);
    [[nodiscard]] HRESULT TellPaletteNewValue(const VARIANT& value);

    CKvPeFamilyRole* m_familyRole = nullptr;  // the derived object
    int m_selectionUses = 0;
    std::vector<EndedSelection> m_endedSelections;  // while they are used
};
