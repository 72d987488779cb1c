#pragma once

#include <array>

#include "KvPEXCtl_h.h"
#include "framework/base/Hresult.h"
#include "framework/com/Guarded.h"
#include "framework/com/InterfaceMap.h"

/// Adds IKvPeVariantCtrl to the shell of a row over elements of a grouped property. The logic has the methods
/// of the interface.
template <class LogicClass, class Shell>
class KvPeVariantCtrlTempl : public Shell, public IKvPeVariantCtrl {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static const auto s_interfaces = fw::ExtendInterfaces(
            Shell::Interfaces(), {fw::Implements<KvPeVariantCtrlTempl, IKvPeVariantCtrl>()});
        return s_interfaces;
    }

    // IKvPeVariantCtrl
    STDMETHODIMP SetDwCookies(VARIANT cookieArray) override {
        return this->WithLogic([&](auto&) { return this->Logic()->SetDwCookies(cookieArray); });
    }
    STDMETHODIMP SetGroupOffset(ULONG dwOffset) override {
        return this->WithLogic([&](auto&) { return this->Logic()->SetGroupOffset(dwOffset); });
    }
    STDMETHODIMP SetElementCount(ULONG elemCount) override {
        return this->WithLogic([&](auto&) { return this->Logic()->SetElementCount(elemCount); });
    }

protected:
    KvPeVariantCtrlTempl() = default;
    ~KvPeVariantCtrlTempl() override = default;
};
