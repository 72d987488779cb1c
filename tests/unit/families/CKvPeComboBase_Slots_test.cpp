#include <gtest/gtest.h>

#include <array>
#include <string>

#include "families/CKvPeComboBase.h"

// Modules made elsewhere reach the operations of list rows by their positions behind those of every row.

namespace {

std::string s_called;

// Every operation of the family tells its name.
class NamingList final : public CKvPeComboBase {
public:
    NamingList() : CKvPeComboBase(nullptr, nullptr) {}

    HRESULT OnButtonCommand(WORD, WORD, HWND, BOOL&) override { return Called("OnButtonCommand"); }
    HRESULT GetDefaultPicture(IPicture**) override { return Called("GetDefaultPicture"); }
    HRESULT SetDefaultPicture(IPicture*) override { return Called("SetDefaultPicture"); }
    HRESULT GetDisabledPicture(IPicture**) override { return Called("GetDisabledPicture"); }
    HRESULT SetDisabledPicture(IPicture*) override { return Called("SetDisabledPicture"); }
    HRESULT OnSelectionCancel(UINT, WPARAM, LPARAM, BOOL&) override { return Called("OnSelectionCancel"); }
    HRESULT OnSelectionEndOk(UINT, WPARAM, LPARAM, BOOL&) override { return Called("OnSelectionEndOk"); }
    HRESULT OnDrawItem(UINT, WPARAM, DRAWITEMSTRUCT*, BOOL&) override { return Called("OnDrawItem"); }
    HRESULT OnMeasureItem(UINT, WPARAM, MEASUREITEMSTRUCT*, BOOL&) override {
        return Called("OnMeasureItem");
    }
    HRESULT OnDeleteItem(UINT, WPARAM, DELETEITEMSTRUCT*, BOOL&) override { return Called("OnDeleteItem"); }
    HRESULT OnLaunchButton() override { return Called("OnLaunchButton"); }
    HRESULT CreateComboWindow(const RECT&) override { return Called("CreateComboWindow"); }
    HRESULT FillList() override { return Called("FillList"); }
    HRESULT SetSelectedItem(int) override { return Called("SetSelectedItem"); }
    CString GetItemText(int) override {
        s_called = "GetItemText";
        return {};
    }
    int GetCurrentItem() override { return static_cast<int>(Called("GetCurrentItem")); }
    HRESULT GetPreviewRestorables(KvRestorableSet&) override { return Called("GetPreviewRestorables"); }
    HRESULT ReleasePreviewRestorables(KvRestorableSet&) override {
        return Called("ReleasePreviewRestorables");
    }
    HRESULT EndLivePreview() override { return Called("EndLivePreview"); }
    bool IsPreviewEnabled() override { return Called("IsPreviewEnabled") != S_OK; }
    bool IsItemPreviewable(int) override { return Called("IsItemPreviewable") != S_OK; }

private:
    static HRESULT Called(const char* name) {
        s_called = name;
        return S_OK;
    }
};

constexpr std::array c_slots{"OnButtonCommand",
                             "GetDefaultPicture",
                             "SetDefaultPicture",
                             "GetDisabledPicture",
                             "SetDisabledPicture",
                             "OnSelectionCancel",
                             "OnSelectionEndOk",
                             "OnDrawItem",
                             "OnMeasureItem",
                             "OnDeleteItem",
                             "OnLaunchButton",
                             "CreateComboWindow",
                             "FillList",
                             "SetSelectedItem",
                             "GetItemText",
                             "GetCurrentItem",
                             "GetPreviewRestorables",
                             "ReleasePreviewRestorables",
                             "EndLivePreview",
                             "IsPreviewEnabled",
                             "IsItemPreviewable"};
// The 72 operations of every row and the two entries of the destructor.
constexpr std::size_t c_firstSlot = 74;

using Slot = long (*)(void* object, void*, void*, void*, void*);
using TextSlot = CString (*)(void* object, int index);

TEST(CKvPeComboBaseSlots, EachSlot_CalledByPosition_ReachesItsOperation) {
    NamingList row;
    CKvPeCtrlBase* const asRow = &row;
    const Slot* const table = *reinterpret_cast<const Slot* const*>(asRow);
    for (std::size_t index = 0; index < c_slots.size(); ++index) {
        s_called.clear();
        const Slot slot = table[c_firstSlot + index];
        if (std::string(c_slots[index]) == "GetItemText") {
            static_cast<void>(reinterpret_cast<TextSlot>(reinterpret_cast<void (*)()>(slot))(asRow, 0));
        } else {
            slot(asRow, nullptr, nullptr, nullptr, nullptr);
        }
        EXPECT_EQ(s_called, c_slots[index]) << "slot " << c_firstSlot + index;
    }
}

}  // namespace
