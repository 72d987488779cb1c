#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

#include "core/CIPropEditUIEvents.h"
#include "core/CKvPeBasePrivate.h"
#include "core/CKvPeCtrlBase.h"

namespace {

std::string s_called;

// Every operation tells its name.
class NamingControl final : public CKvPeCtrlBase {
public:
    NamingControl() : CKvPeCtrlBase(nullptr, nullptr) {}

    HRESULT Cleanup() override { return Called("Cleanup"); }
    HRESULT GetCurrentSelectionObjectIdArray(KvArray<KvDbObjectId>&) override {
        return Called("GetCurrentSelectionObjectIdArray");
    }
    HRESULT BeginEdit(const RECT&) override { return Called("BeginEdit"); }
    HRESULT EndEdit() override { return Called("EndEdit"); }
    HRESULT SetState(int&) override { return Called("SetState"); }
    HRESULT GetState(int&) override { return Called("GetState"); }
    HRESULT GetPropertyValue(VARIANT*, ValueType&) override { return Called("GetPropertyValue"); }
    HRESULT SetPropertyValue(VARIANT*, ValueType) override { return Called("SetPropertyValue"); }
    HRESULT PreSetPropertyValue(IDispatch*, long) override { return Called("PreSetPropertyValue"); }
    HRESULT PostSetPropertyValue(IDispatch*) override { return Called("PostSetPropertyValue"); }
    HRESULT CheckPropertyForUnspecifiedValue(IUnknown*, IUnknown*, VARIANT*, bool*) override {
        return Called("CheckPropertyForUnspecifiedValue IUnknown");
    }
    HRESULT CheckPropertyForUnspecifiedValue(long, IDispatch*, VARIANT*, bool*) override {
        return Called("CheckPropertyForUnspecifiedValue dispid");
    }
    HRESULT SetPropertyValueAsUnspecified(long, IDispatch*, int) override {
        return Called("SetPropertyValueAsUnspecified dispid");
    }
    HRESULT SetPropertyValueAsUnspecified(IUnknown*, IUnknown*, int) override {
        return Called("SetPropertyValueAsUnspecified IUnknown");
    }
    HRESULT ComparePropertyValue(VARIANT*, VARIANT*, int&) override { return Called("ComparePropertyValue"); }
    HRESULT GetDynamicPropertyValue(IDispatch*, IDynamicProperty*, VARIANT*) override {
        return Called("GetDynamicPropertyValue");
    }
    HRESULT SetDynamicPropertyValue(IDispatch*, IDynamicProperty*, VARIANT*) override {
        return Called("SetDynamicPropertyValue");
    }
    HRESULT CheckPropertyForExpression(IUnknown*, IUnknown*, VARIANT*, bool*) override {
        return Called("CheckPropertyForExpression IUnknown");
    }
    HRESULT CheckPropertyForExpression(long, IDispatch*, VARIANT*, bool*) override {
        return Called("CheckPropertyForExpression dispid");
    }
    HRESULT SetPropertyExpressionAsString(long, IDispatch*, wchar_t*) override {
        return Called("SetPropertyExpressionAsString dispid");
    }
    HRESULT SetPropertyExpressionAsString(IUnknown*, IUnknown*, wchar_t*) override {
        return Called("SetPropertyExpressionAsString IUnknown");
    }
    HRESULT MouseClick(UINT, CPoint) override { return Called("MouseClick"); }
    HRESULT DoubleClick(const RECT&) override { return Called("DoubleClick"); }
    HRESULT PropertySysKeyDown(UINT, UINT, UINT, bool&) override { return Called("PropertySysKeyDown"); }
    HRESULT LaunchZRBPropertyDialog(CString&) override { return Called("LaunchZRBPropertyDialog"); }
    HRESULT GetTextTipWidth(int&) override { return Called("GetTextTipWidth"); }
    HRESULT GetFrameHandle(HWND&) override { return Called("GetFrameHandle"); }
    HRESULT SetReadOnlyFlag(int) override { return Called("SetReadOnlyFlag"); }
    HRESULT PropReadOnly(int&) override { return Called("PropReadOnly"); }
    HRESULT EditBoxReadOnly(bool&) override { return Called("EditBoxReadOnly"); }
    HRESULT Handle_InitEditControl(VARIANT*, VARIANT*, VARIANT*, short) override {
        return Called("Handle_InitEditControl");
    }
    HRESULT Handle_get_KeepFocus(short*) override { return Called("Handle_get_KeepFocus"); }
    HRESULT Handle_Refresh() override { return Called("Handle_Refresh"); }
    HRESULT Handle_put_ForeColor(OLE_COLOR) override { return Called("Handle_put_ForeColor"); }
    HRESULT Handle_get_ForeColor(OLE_COLOR*) override { return Called("Handle_get_ForeColor"); }
    HRESULT Handle_put_BackColor(OLE_COLOR) override { return Called("Handle_put_BackColor"); }
    HRESULT Handle_get_BackColor(OLE_COLOR*) override { return Called("Handle_get_BackColor"); }
    HRESULT Handle_put_ReadOnlyForeColor(OLE_COLOR) override {
        return Called("Handle_put_ReadOnlyForeColor");
    }
    HRESULT Handle_get_ReadOnlyForeColor(OLE_COLOR*) override {
        return Called("Handle_get_ReadOnlyForeColor");
    }
    HRESULT Handle_put_ReadOnlyBackColor(OLE_COLOR) override {
        return Called("Handle_put_ReadOnlyBackColor");
    }
    HRESULT Handle_get_ReadOnlyBackColor(OLE_COLOR*) override {
        return Called("Handle_get_ReadOnlyBackColor");
    }
    HRESULT Handle_put_Font(IUnknown*) override { return Called("Handle_put_Font"); }
    HRESULT Handle_get_Font(IUnknown**) override { return Called("Handle_get_Font"); }
    HRESULT Fire_OnKeyDown(UINT_PTR, LONG_PTR) override { return Called("Fire_OnKeyDown"); }
    HRESULT Fire_OnKeyUp(UINT_PTR, LONG_PTR) override { return Called("Fire_OnKeyUp"); }
    HRESULT Fire_OnRButtonDown(UINT_PTR, LONG_PTR) override { return Called("Fire_OnRButtonDown"); }
    HRESULT Fire_OnMButtonDown(UINT_PTR, LONG_PTR) override { return Called("Fire_OnMButtonDown"); }
    HRESULT Handle_OnDraw(ATL_DRAWINFO&) override { return Called("Handle_OnDraw"); }
    HRESULT Handle_SetObjectRects(const RECT*, const RECT*) override {
        return Called("Handle_SetObjectRects");
    }
    HRESULT Handle_DoVerbHide() override { return Called("Handle_DoVerbHide"); }
    HRESULT Handle_DoVerbShow() override { return Called("Handle_DoVerbShow"); }
    HRESULT Handle_DoVerbUIActivate(const RECT*) override { return Called("Handle_DoVerbUIActivate"); }
    HRESULT Handle_UIDeactivate() override { return Called("Handle_UIDeactivate"); }
    LRESULT Handle_OnCtlColor(UINT, WPARAM, LPARAM, BOOL&) override { return Called("Handle_OnCtlColor"); }
    LRESULT Handle_OnKeyDown(UINT, WPARAM, LPARAM, BOOL&) override { return Called("Handle_OnKeyDown"); }
    LRESULT Handle_OnLButtonDown(UINT, WPARAM, LPARAM, BOOL&) override {
        return Called("Handle_OnLButtonDown");
    }
    LRESULT Handle_OnRButtonDown(UINT, WPARAM, LPARAM, BOOL&) override {
        return Called("Handle_OnRButtonDown");
    }
    LRESULT Handle_OnMButtonDown(UINT, WPARAM, LPARAM, BOOL&) override {
        return Called("Handle_OnMButtonDown");
    }
    LRESULT Handle_OnLButtonDblClk(UINT, WPARAM, LPARAM, BOOL&) override {
        return Called("Handle_OnLButtonDblClk");
    }
    LRESULT Handle_OnCreate(UINT, WPARAM, LPARAM, BOOL&) override { return Called("Handle_OnCreate"); }
    LRESULT Handle_OnMouseMove(UINT, WPARAM, LPARAM, BOOL&) override { return Called("Handle_OnMouseMove"); }
    LRESULT Handle_OnMouseLeave(UINT, WPARAM, LPARAM, BOOL&) override {
        return Called("Handle_OnMouseLeave");
    }
    LRESULT Handle_ShowTextTip(UINT, WPARAM, LPARAM, BOOL&) override { return Called("Handle_ShowTextTip"); }
    LRESULT Handle_OnDrawTooltip(UINT, WPARAM, LPARAM, BOOL&) override {
        return Called("Handle_OnDrawTooltip");
    }
    LRESULT Handle_OnEraseBackground(UINT, WPARAM, LPARAM, BOOL&) override {
        return Called("Handle_OnEraseBackground");
    }
    HRESULT GetComboTextTipWidth(int, int&) override { return Called("GetComboTextTipWidth"); }
    HRESULT SetDoNextVariantItem(int) override { return Called("SetDoNextVariantItem"); }
    HRESULT GetDoNextVariantItem(int&) override { return Called("GetDoNextVariantItem"); }
    HRESULT SetChangeNotified(int) override { return Called("SetChangeNotified"); }
    HRESULT GetChangeNotified(int&) override { return Called("GetChangeNotified"); }
    HRESULT Handle_PutPropertyIdentifier(IKvPiPropertyIdentifier*) override {
        return Called("Handle_PutPropertyIdentifier");
    }
    HRESULT Handle_GetPropertyIdentifier(IKvPiPropertyIdentifier**) override {
        return Called("Handle_GetPropertyIdentifier");
    }

private:
    static HRESULT Called(const char* name) {
        s_called = name;
        return S_OK;
    }
};

// The operations by slot; slot 1 is the destructor.
constexpr std::array c_slots{
    "Cleanup",
    "GetCurrentSelectionObjectIdArray",
    "BeginEdit",
    "EndEdit",
    "SetState",
    "GetState",
    "GetPropertyValue",
    "SetPropertyValue",
    "PreSetPropertyValue",
    "PostSetPropertyValue",
    "CheckPropertyForUnspecifiedValue IUnknown",
    "CheckPropertyForUnspecifiedValue dispid",
    "SetPropertyValueAsUnspecified dispid",
    "SetPropertyValueAsUnspecified IUnknown",
    "ComparePropertyValue",
    "GetDynamicPropertyValue",
    "SetDynamicPropertyValue",
    "CheckPropertyForExpression IUnknown",
    "CheckPropertyForExpression dispid",
    "SetPropertyExpressionAsString dispid",
    "SetPropertyExpressionAsString IUnknown",
    "MouseClick",
    "DoubleClick",
    "PropertySysKeyDown",
    "LaunchZRBPropertyDialog",
    "GetTextTipWidth",
    "GetFrameHandle",
    "SetReadOnlyFlag",
    "PropReadOnly",
    "EditBoxReadOnly",
    "Handle_InitEditControl",
    "Handle_get_KeepFocus",
    "Handle_Refresh",
    "Handle_put_ForeColor",
    "Handle_get_ForeColor",
    "Handle_put_BackColor",
    "Handle_get_BackColor",
    "Handle_put_ReadOnlyForeColor",
    "Handle_get_ReadOnlyForeColor",
    "Handle_put_ReadOnlyBackColor",
    "Handle_get_ReadOnlyBackColor",
    "Handle_put_Font",
    "Handle_get_Font",
    "Fire_OnKeyDown",
    "Fire_OnKeyUp",
    "Fire_OnRButtonDown",
    "Fire_OnMButtonDown",
    "Handle_OnDraw",
    "Handle_SetObjectRects",
    "Handle_DoVerbHide",
    "Handle_DoVerbShow",
    "Handle_DoVerbUIActivate",
    "Handle_UIDeactivate",
    "Handle_OnCtlColor",
    "Handle_OnKeyDown",
    "Handle_OnLButtonDown",
    "Handle_OnRButtonDown",
    "Handle_OnMButtonDown",
    "Handle_OnLButtonDblClk",
    "Handle_OnCreate",
    "Handle_OnMouseMove",
    "Handle_OnMouseLeave",
    "Handle_ShowTextTip",
    "Handle_OnDrawTooltip",
    "Handle_OnEraseBackground",
    "GetComboTextTipWidth",
    "SetDoNextVariantItem",
    "GetDoNextVariantItem",
    "SetChangeNotified",
    "GetChangeNotified",
    "Handle_PutPropertyIdentifier",
    "Handle_GetPropertyIdentifier",
};

// A slot as the compiler calls it: no operation takes more than five arguments, all of them integers or
// pointers.
using Slot = long (*)(void* object, void*, void*, void*, void*);

const Slot* TableOf(const void* object) {
    const Slot* table = nullptr;
    std::memcpy(&table, object, sizeof table);
    return table;
}

// The compiler's destructor takes two entries, so that slot n lies at index n.
TEST(CKvPeCtrlBaseSlots, EachSlot_CalledByPosition_ReachesItsOperation) {
    static_assert(c_slots.size() == 72, "73 slots with the destructor");
    NamingControl control;
    const Slot* const table = TableOf(&control);
    for (std::size_t index = 0; index < c_slots.size(); ++index) {
        s_called.clear();
        table[index + 2](&control, nullptr, nullptr, nullptr, nullptr);
        EXPECT_EQ(s_called, c_slots[index]) << "slot " << index + 2;
    }
}

class NamingEvents final : public CIPropEditUIEvents {
public:
    HRESULT FireKeyDownEvent(UINT_PTR, LONG_PTR) override { return Called("FireKeyDownEvent"); }
    HRESULT FireKeyUpEvent(UINT_PTR, LONG_PTR) override { return Called("FireKeyUpEvent"); }
    HRESULT FireRButtonDownEvent(UINT_PTR, LONG_PTR) override { return Called("FireRButtonDownEvent"); }
    HRESULT FireMButtonDownEvent(UINT_PTR, LONG_PTR) override { return Called("FireMButtonDownEvent"); }
    HRESULT FireBeginPropertyUpdateEvent() override { return Called("FireBeginPropertyUpdateEvent"); }
    HRESULT FireEndPropertyUpdateEvent() override { return Called("FireEndPropertyUpdateEvent"); }
    HRESULT FireClickEvent() override { return Called("FireClickEvent"); }
    HRESULT FireBeginModalEvent(UINT) override { return Called("FireBeginModalEvent"); }
    HRESULT FireEndModalEvent(UINT) override { return Called("FireEndModalEvent"); }

private:
    static HRESULT Called(const char* name) {
        s_called = name;
        return S_OK;
    }
};

TEST(CIPropEditUIEventsSlots, EachSlot_CalledByPosition_ReachesItsOperation) {
    constexpr std::array slots{"FireKeyDownEvent",
                               "FireKeyUpEvent",
                               "FireRButtonDownEvent",
                               "FireMButtonDownEvent",
                               "FireBeginPropertyUpdateEvent",
                               "FireEndPropertyUpdateEvent",
                               "FireClickEvent",
                               "FireBeginModalEvent",
                               "FireEndModalEvent"};
    NamingEvents events;
    const Slot* const table = TableOf(&events);
    for (std::size_t index = 0; index < slots.size(); ++index) {
        table[index](&events, nullptr, nullptr, nullptr, nullptr);
        EXPECT_EQ(s_called, slots[index]) << "slot " << index + 1;
    }
}

class NamingShell final : public CKvPeBasePrivate {
public:
    HWND* GetControlWindowPtr() override {
        s_called = "GetControlWindowPtr";
        return nullptr;
    }
    IOleInPlaceSite* GetInPlaceSite() override {
        s_called = "GetInPlaceSite";
        return nullptr;
    }
};

TEST(CKvPeBasePrivateSlots, EachSlot_CalledByPosition_ReachesItsOperation) {
    constexpr std::array slots{"GetControlWindowPtr", "GetInPlaceSite"};
    NamingShell shell;
    const Slot* const table = TableOf(&shell);
    for (std::size_t index = 0; index < slots.size(); ++index) {
        table[index](&shell, nullptr, nullptr, nullptr, nullptr);
        EXPECT_EQ(s_called, slots[index]) << "slot " << index + 1;
    }
}

}  // namespace
