#pragma once

#include "families/CComboOwnerDraw.h"
#include "families/CKvPeComboBase.h"

/// A list row over a container of the drawing, a table or a dictionary. While it is idle it shows the chosen
/// entry itself, swatch and all.
class KVPEX_API CKvPeContainerBase : public CKvPeComboBase {
public:
    CKvPeContainerBase(CIPropEditUIEvents* events, CKvPeBasePrivate* shell);
    ~CKvPeContainerBase() override;

    // CKvPeCtrlBase
    HRESULT Cleanup() override;
    HRESULT Handle_OnDraw(ATL_DRAWINFO& info) override;

protected:
    /// Takes over a drop-down that has its window.
    void KeepContainerList(std::unique_ptr<CComboOwnerDraw> list);
    [[nodiscard]] bool HasContainerList() const { return HasList() && m_pComboList != nullptr; }

    CComboOwnerDraw* m_pComboList = nullptr;  // m_pList by its own class
};
