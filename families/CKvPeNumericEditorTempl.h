#pragma once

#include "KvPEXCtl_h.h"
#include "core/CKvPeShell.h"

/// Adds to a shell that the palette tells the row its kind of number; the logic has SetNumericDataType.
template <class ShellClass>
class CKvPeNumericEditorTempl : public ShellClass, public IKvPeNumericEditor {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static const auto s_interfaces = fw::ExtendInterfaces(
            ShellClass::Interfaces(), {fw::Implements<CKvPeNumericEditorTempl, IKvPeNumericEditor>()});
        return s_interfaces;
    }

    // IKvPeNumericEditor
    STDMETHODIMP SetNumericDataType(KvPeNumericType dataType) override {
        return this->WithLogic([&](CKvPeCtrlBase&) { return this->Logic()->SetNumericDataType(dataType); });
    }

protected:
    CKvPeNumericEditorTempl() = default;
    ~CKvPeNumericEditorTempl() override = default;
};
