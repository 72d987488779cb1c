#pragma once

#include "core/ChildIds.h"
#include "families/CKvPeButtonEditBase.h"
#include "families/CKvPeEditTempl.h"

/// The shell of button edits: routes what the buttons and the edit box tell, and gives the first button's
/// pictures to the palette.
template <class LogicClass>
class CKvPeButtonEditTempl : public CKvPeEditTempl<LogicClass>, public IKvPeButtonEditCtrl {
    using Base = CKvPeEditTempl<LogicClass>;

public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static const auto s_interfaces = fw::ExtendInterfaces(
            Base::Interfaces(), {fw::Implements<CKvPeButtonEditTempl, IKvPeButtonEditCtrl>()});
        return s_interfaces;
    }

    // IKvPeButtonEditCtrl
    STDMETHODIMP put_DefaultPicture(IUnknown* picture) override {
        return PutPicture(&CKvPeButtonEditBase::SetDefaultPicture, picture);
    }
    STDMETHODIMP get_DefaultPicture(IUnknown** picture) override {
        return GetPicture(&CKvPeButtonEditBase::GetDefaultPicture, picture);
    }
    STDMETHODIMP put_DisabledPicture(IUnknown* picture) override {
        return PutPicture(&CKvPeButtonEditBase::SetDisabledPicture, picture);
    }
    STDMETHODIMP get_DisabledPicture(IUnknown** picture) override {
        return GetPicture(&CKvPeButtonEditBase::GetDisabledPicture, picture);
    }

    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        static constexpr std::array s_messages{
            fw::OnMessage(WM_COMMAND, &CKvPeButtonEditTempl::OnCommandOfChild),
            fw::OnMessage(WM_DRAWITEM, &CKvPeButtonEditTempl::OnDrawItemOfChild),
        };
        const fw::ComPtr<IUnknown> self(this->GetUnknown());
        LRESULT result = 0;
        return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
                   ? result
                   : Base::WindowProc(message, wParam, lParam);
    }

protected:
    CKvPeButtonEditTempl() = default;
    ~CKvPeButtonEditTempl() override = default;

private:
    LRESULT OnCommandOfChild(UINT, WPARAM wParam, LPARAM lParam, BOOL& handled) {
        const WORD code = HIWORD(wParam);
        const WORD id = LOWORD(wParam);
        const HWND child = reinterpret_cast<HWND>(lParam);
        if (!this->Logic()) {
            handled = FALSE;
            return 0;
        }
        // What an edit box tells while the user types ends no update of the property.
        return id == KVPE_ID_EDIT ? this->Logic()->OnEditKillFocus(code, id, child, handled)
                                  : this->Logic()->OnButtonCommand(code, id, child, handled);
    }
    LRESULT OnDrawItemOfChild(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
        if (!this->Logic()) {
            handled = FALSE;
            return 0;
        }
        return this->Logic()->OnDrawButton(message, wParam, reinterpret_cast<DRAWITEMSTRUCT*>(lParam),
                                           handled);
    }

    HRESULT PutPicture(HRESULT (CKvPeButtonEditBase::*put)(IPicture*), IUnknown* picture) {
        return this->WithLogic([&](CKvPeCtrlBase&) -> HRESULT {
            const auto known = fw::QueryFrom<IPicture>(picture);
            RETURN_HR_IF(E_NOINTERFACE, picture && !known);
            return (this->Logic()->*put)(known.Get());
        });
    }
    HRESULT GetPicture(HRESULT (CKvPeButtonEditBase::*get)(IPicture**), IUnknown** picture) {
        return this->WithLogic([&](CKvPeCtrlBase&) -> HRESULT {
            RETURN_IF_NULL_POINTER(picture);
            *picture = nullptr;
            fw::ComPtr<IPicture> held;
            RETURN_IF_FAILED_EXPECTED((this->Logic()->*get)(held.Put()));
            return held.CopyTo(picture);
        });
    }
};
