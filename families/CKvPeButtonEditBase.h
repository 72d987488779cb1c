#pragma once

#include "families/CKvPeEditBase.h"
#include "families/CustomButton.h"
#include "framework/base/CTypedPtrArray.h"
#include "host_sdk/KvGePoint3d.h"

#include "KvPEXCtl_h.h"

struct KvCalculatorResult;

/// A text row with small buttons at one end. The row owns the buttons' records from AddButton to Cleanup;
/// their windows come and go as the row is opened read-only or writable.
class KVPEX_API CKvPeButtonEditBase : public CKvPeEditBase {
public:
    CKvPeButtonEditBase(CIPropEditUIEvents* events, CKvPeBasePrivate* shell);
    ~CKvPeButtonEditBase() override;

    // CKvPeCtrlBase
    HRESULT Cleanup() override;
    HRESULT BeginEdit(const RECT& bounds) override;
    /// The value comes as the text that the row shows.
    HRESULT GetPropertyValue(VARIANT* value, ValueType& type) override;
    HRESULT Handle_SetObjectRects(const RECT* bounds, const RECT* clip) override;
    HRESULT Handle_DoVerbShow() override;
    HRESULT Handle_UIDeactivate() override;

    // The order of these is fixed, as in the base.

    virtual LRESULT OnButtonCommand(WORD code, WORD id, HWND window, BOOL& handled);
    virtual LRESULT OnEditKillFocus(WORD code, WORD id, HWND window, BOOL& handled);
    virtual LRESULT OnDrawButton(UINT message, UINT_PTR id, DRAWITEMSTRUCT* item, BOOL& handled);
    // The pictures of the first button, null without one.
    [[nodiscard]] virtual HRESULT GetDefaultPicture(IPicture** picture);
    [[nodiscard]] virtual HRESULT SetDefaultPicture(IPicture* picture);
    [[nodiscard]] virtual HRESULT GetDisabledPicture(IPicture** picture);
    [[nodiscard]] virtual HRESULT SetDisabledPicture(IPicture* picture);
    /// A button without a meaning of its own was clicked.
    [[nodiscard]] virtual HRESULT OnCustomButton(WORD id);
    /// The text that the row shows for a value of its property. E_FAIL without an object.
    [[nodiscard]] virtual HRESULT FormatValueText(CString& text, const VARIANT& value);
    /// The text that the calculator starts with. Returns 1.
    virtual int GetCalculatorInput(CString& text);
    virtual HRESULT SetCalculatorPoint(const KvGePoint3d& point);
    /// Puts what the calculator gave into the edit box. Returns 1, or 0 for a null record.
    virtual int SetCalculatorResult(const KvCalculatorResult* result);
    virtual HRESULT LaunchCalculator();
    virtual HRESULT OnPickButton();

    // The slots end here.

    /// E_FAIL, keeping the type, for types that are not given to rows.
    [[nodiscard]] HRESULT SetNumericDataType(KvPeNumericType type);
    /// VARIANT_TRUE, and no other value, adds the calculator's button unless the property takes expressions.
    [[nodiscard]] HRESULT SetCalculatorMode(VARIANT_BOOL mode);

protected:
    enum ButtonSide : int { ButtonSide_None = 0, ButtonSide_Left = 1, ButtonSide_Right = 2 };

    /// Bitmap ids may be 0. The window is made when the row is opened.
    void AddButton(UINT bitmapId, UINT disabledBitmapId, WORD id, bool showWhenReadOnly);
    static void SetButtonBitmaps(CustomButton& record, UINT bitmapId, UINT disabledBitmapId);
    /// Makes the pick button show mode 1, 2 or 3, and adds it if there is none. Nothing for other modes.
    void SetPickMode(int mode);
    /// The same for a state of the property's expressions.
    void UpdateExpressionButton(int expressionState) { SetPickMode(expressionState); }
    void SetButtonTip(const CString& text, WORD id);
    /// A text of the satellite as the tip of the first small button.
    void SetButtonTipId(UINT textId);
    void EnableButtons(bool enable);
    /// Reads the value and makes the row's text of it.
    [[nodiscard]] HRESULT ReadRowText();
    /// The row's text into the edit box.
    void ShowText();
    /// Opens the property's dialog with the row's text, and goes on with the edit.
    void RunDialogAndGoOn();

    /// Alt with an arrow up or down; `flags` are the upper half of the key message's data.
    [[nodiscard]] static bool IsDialogKey(UINT key, UINT flags);
    [[nodiscard]] CustomButton* FindButton(WORD id) const;
    /// The edit box takes no typing, by itself or with the row.
    [[nodiscard]] bool IsBoxReadOnly() const;

    int m_nButtonSide = ButtonSide_None;
    CTypedPtrArray<CPtrArray, CustomButton*> m_buttons;  // owned
    KvPeNumericType m_numericType = PE_TOLM_OTHER;
    bool m_bShowButtons = true;

private:
    void DropButtons();
    [[nodiscard]] HRESULT BringButtonsInLine(int side, bool readOnly);
    [[nodiscard]] HRESULT CreateButton(CustomButton& record, int side);
    void DropButtonWindow(CustomButton& record);
    void ShowButtons(bool readOnly);
    void ShowExpressionTip();
    [[nodiscard]] CString ExpressionTipText() const;
    CRect LayOutButtons(const CRect& row);
    void PlaceEdit(const CRect& place);
    [[nodiscard]] CustomButton* FirstLiveButton() const;
    [[nodiscard]] CustomButton* FindVisibleButton(WORD id) const;
    [[nodiscard]] bool ReadDisplayString(CString& text, bool& hasObject) const;
};
