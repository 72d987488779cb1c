#pragma once

#include <memory>

#include "core/CKvPeCtrlBase.h"
#include "core/CKvPeFamilyRole.h"
#include "core/Export.h"
#include "families/CEditEx.h"

/// A row that shows its value as text and is edited in an edit box of its own.
class KVPEX_API CKvPeEditBase : public CKvPeCtrlBase, protected CKvPeFamilyRole {
public:
    CKvPeEditBase(CIPropEditUIEvents* events, CKvPeBasePrivate* shell);
    ~CKvPeEditBase() override;

    // CKvPeCtrlBase
    HRESULT Cleanup() override;
    HRESULT BeginEdit(const RECT& bounds) override;
    /// Writes the box's text if it has changed. S_OK also when the write was refused: that was told, and the
    /// former text is back. E_FAIL when no edit runs.
    HRESULT EndEdit() override;
    HRESULT MouseClick(UINT keys, CPoint point) override;
    HRESULT DoubleClick(const RECT& bounds) override;
    HRESULT GetTextTipWidth(int& width) override;
    HRESULT Handle_InitEditControl(VARIANT* objects, VARIANT* dynamicProperties, VARIANT* dispids,
                                   short readOnly) override;
    HRESULT Handle_get_KeepFocus(short* keepFocus) override;
    HRESULT Handle_Refresh() override;
    HRESULT Handle_put_Font(IUnknown* font) override;
    HRESULT Handle_OnDraw(ATL_DRAWINFO& info) override;
    HRESULT Handle_SetObjectRects(const RECT* bounds, const RECT* clip) override;
    HRESULT Handle_DoVerbHide() override;
    HRESULT Handle_DoVerbShow() override;
    HRESULT Handle_UIDeactivate() override;
    LRESULT Handle_OnLButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) override;
    LRESULT Handle_OnRButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) override;
    LRESULT Handle_OnLButtonDblClk(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) override;

    /// The text that the row shows.
    const CString& GetRowText() const { return m_text; }
    /// Edits the row as a user does: opens it, types the text and commits.
    void ChooseText(const RECT& bounds, const CString& text);

protected:
    // CKvPeFamilyRole
    void PresetText(const CString& text) override;
    void PresetNumber(int number) override;
    bool GetChosenEntryText(CString& text) override;

    [[nodiscard]] bool HasEditWindow() const { return m_edit && m_edit->IsWindow(); }
    /// Takes over a box that has its window as the row's edit box.
    void KeepEdit(std::unique_ptr<CEditEx> edit);
    /// Puts the text into the box where the painted row shows it, and the hint after it.
    void PlaceEditText();
    /// Ends the box without a commit: what was typed is lost.
    void DropEdit();
    [[nodiscard]] bool IsReadOnlyRow();
    [[nodiscard]] bool IsInEdit() const;
    /// The window's client rectangle; empty while there is none.
    [[nodiscard]] CRect RowClientRect() const;

    CString m_text;
    std::unique_ptr<CEditEx> m_edit;

private:
    [[nodiscard]] HRESULT ReadText(CString& text, ValueType& type);
    [[nodiscard]] HRESULT CreateEdit(const RECT& bounds);
    void OpenEdit(const RECT& bounds);
    void Commit(const CString& formerText);
    [[nodiscard]] ValueType TypeOfEnteredText() const;
    void HideEdit();
};
