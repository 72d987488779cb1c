#pragma once

#include "KvPEXCtl_h.h"
#include "core/CKvPeShell.h"

/// Adds to a shell that the palette gives the row a calculator; the logic has SetCalculatorMode.
template <class ShellClass>
class CKvPeCalculatorTempl : public ShellClass, public IKvPeCalculatorCtrl {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static const auto s_interfaces = fw::ExtendInterfaces(
            ShellClass::Interfaces(), {fw::Implements<CKvPeCalculatorTempl, IKvPeCalculatorCtrl>()});
        return s_interfaces;
    }

    // IKvPeCalculatorCtrl
    STDMETHODIMP SetCalculatorMode(VARIANT_BOOL mode) override {
        return this->WithLogic([&](CKvPeCtrlBase&) { return this->Logic()->SetCalculatorMode(mode); });
    }

protected:
    CKvPeCalculatorTempl() = default;
    ~CKvPeCalculatorTempl() override = default;
};
