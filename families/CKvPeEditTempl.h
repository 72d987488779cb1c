#pragma once

#include "core/CKvPeBaseTempl.h"

/// The shell of rows with an edit box: the box takes the row's colours.
template <class LogicClass>
class CKvPeEditTempl : public CKvPeBaseTempl<LogicClass> {
public:
    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        static constexpr std::array s_messages{
            fw::OnMessage(WM_CTLCOLOREDIT, &CKvPeEditTempl::OnEditColor),
            fw::OnMessage(WM_CTLCOLORSTATIC, &CKvPeEditTempl::OnEditColor),
        };
        const fw::ComPtr<IUnknown> self(this->GetUnknown());
        LRESULT result = 0;
        return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
                   ? result
                   : CKvPeBaseTempl<LogicClass>::WindowProc(message, wParam, lParam);
    }

protected:
    CKvPeEditTempl() = default;
    ~CKvPeEditTempl() override = default;

private:
    LRESULT OnEditColor(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
        return this->ToLogic(&CKvPeCtrlBase::Handle_OnCtlColor, message, wParam, lParam, handled);
    }
};
