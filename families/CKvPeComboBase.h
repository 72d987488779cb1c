#pragma once

#include <memory>

#include "core/CKvPeCtrlBase.h"
#include "core/CKvPeFamilyRole.h"
#include "core/Export.h"
#include "families/CPropertyEditorButton.h"
#include "host_sdk/CLzUiComboBox.h"
#include "preview/CKvPePreviewAbleCtrlBase.h"

class CPeBaseComboBox;
class KvRestorableSet;

/// A row that shows its value as one entry of a list. While the row is edited a drop-down window lies over
/// it; a choice there is written at once, a cancelled one leaves the value alone. A property with a dialog of
/// its own gets a launcher button at the row's end.
class KVPEX_API CKvPeComboBase : public CKvPeCtrlBase,
                                 public CKvPePreviewAbleCtrlBase,
                                 protected CKvPeFamilyRole {
public:
    CKvPeComboBase(CIPropEditUIEvents* events, CKvPeBasePrivate* shell);
    ~CKvPeComboBase() override;

    // CKvPeCtrlBase
    HRESULT Cleanup() override;
    HRESULT BeginEdit(const RECT& bounds) override;
    /// Writes the list's choice if it is a new one. S_OK also when the write was refused and the former value
    /// could be read again: the refusal was told.
    HRESULT EndEdit() override;
    HRESULT GetTextTipWidth(int& width) override;
    HRESULT Handle_InitEditControl(VARIANT* objects, VARIANT* dynamicProperties, VARIANT* dispids,
                                   short readOnly) override;
    /// True, as VARIANT_TRUE, while the list is open.
    HRESULT Handle_get_KeepFocus(short* keepFocus) override;
    /// E_FAIL when no entry stands for the value; the row then shows what it showed before.
    HRESULT Handle_Refresh() override;
    HRESULT Handle_put_Font(IUnknown* font) override;
    HRESULT Handle_OnDraw(ATL_DRAWINFO& info) override;
    HRESULT Handle_SetObjectRects(const RECT* bounds, const RECT* clip) override;
    HRESULT Handle_DoVerbHide() override;
    HRESULT Handle_DoVerbShow() override;
    HRESULT Handle_UIDeactivate() override;
    LRESULT Handle_OnCtlColor(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) override;
    HRESULT GetComboTextTipWidth(int index, int& width) override;

    // The launcher button
    [[nodiscard]] virtual HRESULT OnButtonCommand(WORD code, WORD id, HWND window, BOOL& handled);
    /// Null for none; the caller releases it. The same for the disabled picture.
    [[nodiscard]] virtual HRESULT GetDefaultPicture(IPicture** picture);
    [[nodiscard]] virtual HRESULT SetDefaultPicture(IPicture* picture);
    [[nodiscard]] virtual HRESULT GetDisabledPicture(IPicture** picture);
    [[nodiscard]] virtual HRESULT SetDisabledPicture(IPicture* picture);

    // The end of a drop-down
    [[nodiscard]] virtual HRESULT OnSelectionCancel(UINT message, WPARAM wParam, LPARAM lParam,
                                                    BOOL& handled);
    [[nodiscard]] virtual HRESULT OnSelectionEndOk(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    // Duties of the parent of owner-drawn children. `handled` comes in TRUE.
    [[nodiscard]] virtual HRESULT OnDrawItem(UINT message, WPARAM id, DRAWITEMSTRUCT* item, BOOL& handled);
    [[nodiscard]] virtual HRESULT OnMeasureItem(UINT message, WPARAM id, MEASUREITEMSTRUCT* item,
                                                BOOL& handled);
    [[nodiscard]] virtual HRESULT OnDeleteItem(UINT message, WPARAM id, DELETEITEMSTRUCT* item,
                                               BOOL& handled);

    /// Opens the dialog of the property and goes back to the list.
    [[nodiscard]] virtual HRESULT OnLaunchButton();

    // The list. Derived rows fill it, read their property as an entry and write an entry to it.

    /// Makes the drop-down window and hands it to KeepList; nothing when there is one. `bounds` are in the
    /// row's client coordinates.
    [[nodiscard]] virtual HRESULT CreateComboWindow(const RECT& bounds);
    /// Empties the window and adds all entries.
    [[nodiscard]] virtual HRESULT FillList();
    /// Writes the entry's value by SetPropertyValue.
    [[nodiscard]] virtual HRESULT SetSelectedItem(int index);
    /// Empty when there is no list or no such entry.
    [[nodiscard]] virtual CString GetItemText(int index);
    /// The entry that stands for the property's value, -1 when none does.
    [[nodiscard]] virtual int GetCurrentItem();

    // Live preview
    /// Adds what a preview write may disturb.
    [[nodiscard]] virtual HRESULT GetPreviewRestorables(KvRestorableSet& restorables);
    [[nodiscard]] virtual HRESULT ReleasePreviewRestorables(KvRestorableSet& restorables);
    /// Takes back what a preview shows.
    [[nodiscard]] virtual HRESULT EndLivePreview();
    [[nodiscard]] virtual bool IsPreviewEnabled();
    /// False for entries that cannot be shown before they are chosen.
    [[nodiscard]] virtual bool IsItemPreviewable(int index);

    // CKvPePreviewAbleCtrlBase
    long Handle_OnListHover(UINT message, WPARAM controlId, LPARAM item, BOOL& handled) override;

    /// The text that the row shows.
    [[nodiscard]] const CString& GetRowText() const { return m_strText; }

protected:
    // CKvPeFamilyRole
    void PresetText(const CString& text) override;
    void PresetNumber(int number) override;
    bool GetChosenEntryText(CString& text) override;

    // The slots end here.

    enum ButtonSide : int { ButtonSide_Left = 1, ButtonSide_Right = 2 };

    [[nodiscard]] bool HasList() const { return m_pList && m_pList->IsWindow(); }
    /// Takes over a drop-down that has its window. `mixin` is the window's own part and leads back to this
    /// row.
    void KeepList(std::unique_ptr<CLzUiComboBox> list, CPeBaseComboBox* mixin);

    int m_nCurItem = -1;
    BOOL m_bDrawHighlighted = FALSE;
    CString m_strText;
    std::unique_ptr<CLzUiComboBox> m_pList;
    BOOL m_bCancelled = FALSE;
    fw::ComPtr<IPicture> m_pDefaultPicture;
    fw::ComPtr<IPicture> m_pDisabledPicture;
    int m_nButtonSide = ButtonSide_Right;
    std::unique_ptr<CPropertyEditorButton> m_pButton;
    BOOL m_bHasDialog = FALSE;
    bool m_bNeedsActiveDatabase = false;
    int m_nPreviewItem = -1;
    bool m_isCommitting = false;

private:
    [[nodiscard]] bool IsReadOnlyRow();
    [[nodiscard]] bool IsInEdit() const;
    [[nodiscard]] bool HasButton() const { return m_pButton && m_pButton->IsWindow(); }
    void DropChildren();
    /// Takes back what this row shows on the drawing, where it goes without the end of its edit.
    void EndOwnPreview();
    /// Ends the edit of a row that is left.
    void LeaveEdit();
    /// Lets go of children whose windows went with the container's, and with them of the edit that ran there.
    void ForgetEndedWindows();

    // Steps of BeginEdit
    [[nodiscard]] HRESULT PrepareLauncher(int rowHeight);
    [[nodiscard]] bool HasPropertyDialog() const;
    [[nodiscard]] HRESULT PrepareList(const CRect& row);
    void OpenList(const RECT& bounds);

    // Steps of EndEdit
    void TakeChoiceBack(int choice);
    [[nodiscard]] HRESULT Commit(int choice);
    void TakeWrittenItem(int choice, HRESULT written);

    void FocusList();
    void RepaintList();
    void ShowChildren(int command);

    bool m_showsPreview = false;
    int m_hoveredItem = -1;  // under the mouse in the open list
};
