#pragma once

#include <memory>
#include <type_traits>

#include "core/CKvPeShell.h"
#include "core/ClassIds.h"

class CKvPeButtonEditBase;
class CKvPePreviewAbleCtrlBase;

/// True where Upper, a class of a layer above, is complete and a base of Logic. A logic class derived from
/// Upper has included it, so the answer is the same everywhere.
template <class Upper, class Logic, class = void>
struct KvPeDerivesFrom : std::false_type {};

template <class Upper, class Logic>
struct KvPeDerivesFrom<Upper, Logic, std::void_t<decltype(sizeof(Upper))>> : std::is_base_of<Upper, Logic> {};

/// The embedded control over a logic class. Everything that does not depend on the class lies in CKvPeShell.
template <class LogicClass>
class CKvPeBaseTempl : public CKvPeShell {
public:
    const CLSID& ClassId() const noexcept override { return KvPeClassIdOf<LogicClass>::Get(); }

protected:
    CKvPeBaseTempl() = default;
    ~CKvPeBaseTempl() override = default;

    HRESULT FinalConstruct() {
        m_logic = std::make_unique<LogicClass>(static_cast<CIPropEditUIEvents*>(this),
                                               static_cast<CKvPeBasePrivate*>(this));
        return S_OK;
    }

    LogicClass* Logic() const { return static_cast<LogicClass*>(m_logic.get()); }

    // CKvPeShell
    bool BeginUpdateIsPreview(HRESULT& result) override {
        if constexpr (KvPeDerivesFrom<CKvPePreviewAbleCtrlBase, LogicClass>::value) {
            int handled = 0;
            result = Logic()->Handle_OnBeginPropertyUpdate(handled);
            return handled != 0;
        } else {
            return CKvPeShell::BeginUpdateIsPreview(result);
        }
    }

    bool EndUpdateIsPreview(HRESULT& result) override {
        if constexpr (KvPeDerivesFrom<CKvPePreviewAbleCtrlBase, LogicClass>::value) {
            int handled = 0;
            result = Logic()->Handle_OnEndPropertyUpdate(handled);
            return handled != 0;
        } else {
            return CKvPeShell::EndUpdateIsPreview(result);
        }
    }

    LRESULT OnListHover(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) override {
        if constexpr (KvPeDerivesFrom<CKvPePreviewAbleCtrlBase, LogicClass>::value) {
            return m_logic ? Logic()->Handle_OnListHover(message, wParam, lParam, handled) : E_FAIL;
        } else {
            return CKvPeShell::OnListHover(message, wParam, lParam, handled);
        }
    }

    HRESULT PressCustomButton() override {
        if constexpr (KvPeDerivesFrom<CKvPeButtonEditBase, LogicClass>::value) {
            return Logic()->OnCustomButton(0);
        } else {
            return CKvPeShell::PressCustomButton();
        }
    }
};
