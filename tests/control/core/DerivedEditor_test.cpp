// What modules with editors of their own do: derive from the exported base class, linked to the module's
// import library.

#include "core/CKvPeCtrlBase.h"

#include <gtest/gtest.h>

#include <memory>

#include "families/CKvPeEnumBase.h"
#include "preview/KvRestorable.h"
#include "preview/KvRestorableSet.h"
#include "refhost/editor/HostSession.h"
#include "refhost/testing/ScriptedObject.h"
#include "tests/support/SelectionArrays.h"

namespace {

// Shows numbers that differ by less than a tenth as the same.
class TolerantEditor final : public CKvPeCtrlBase {
public:
    TolerantEditor() : CKvPeCtrlBase(nullptr, nullptr) {}

    HRESULT ComparePropertyValue(VARIANT* first, VARIANT* second, int& result) override {
        if (first->vt != VT_R8 || second->vt != VT_R8) {
            return CKvPeCtrlBase::ComparePropertyValue(first, second, result);
        }
        const double difference = first->dblVal - second->dblVal;
        result = difference < 0.1 && difference > -0.1 ? 0 : -1;
        return S_OK;
    }

    using CKvPeCtrlBase::m_expressionState;
    using CKvPeCtrlBase::undoSSRetain;
    using CKvPeCtrlBase::UpdateExpressionSupportState;
};

// A list row with a variable of its own that a preview write disturbs.
class UnitList final : public CKvPeEnumBase {
public:
    UnitList() : CKvPeEnumBase(nullptr, nullptr) {}

    HRESULT GetPreviewRestorables(KvRestorableSet& restorables) override {
        const HRESULT result = CKvPeEnumBase::GetPreviewRestorables(restorables);
        restorables.Add(std::make_unique<KvRestorable<int>>(shownUnit));
        return result;
    }

    int shownUnit = 1;
    using CKvPeEnumBase::m_allowUnspecified;
};

TEST(DerivedEditor, OverrideInAnotherModule_IsCalledByTheRead) {
    const kvhost::HostSession host;
    const auto first = kvhost::ScriptedObject::Make(L"A");
    const auto second = kvhost::ScriptedObject::Make(L"B");
    first->At(5).Set(1.0);
    second->At(5).Set(1.05);
    TolerantEditor editor;
    const kvtest::SelectionArrays arrays({first.Get(), second.Get()});
    ASSERT_EQ(arrays.Init<CKvPeCtrlBase>(editor), S_OK);
    fw::Variant value;
    ValueType type = ValueType_Varies;
    EXPECT_EQ(editor.GetPropertyValue(value.Put(), type), S_OK);
    EXPECT_EQ(type, ValueType_Specific);
    second->At(5).Set(2.0);
    EXPECT_EQ(editor.GetPropertyValue(value.Put(), type), S_OK);
    EXPECT_EQ(type, ValueType_Varies);
}

TEST(DerivedEditor, ProtectedMembers_AreExported) {
    TolerantEditor editor;
    editor.UpdateExpressionSupportState(true, true, L"");
    EXPECT_EQ(editor.m_expressionState, 1);
    EXPECT_EQ(editor.undoSSRetain(nullptr, 1), Tolm::eInvalidInput);
}

TEST(DerivedEditor, PreviewOfAList_PutsBackWhatTheOtherModuleAdds) {
    UnitList list;
    KvRestorableSet restorables;
    ASSERT_EQ(list.GetPreviewRestorables(restorables), S_OK);
    const bool allowed = list.m_allowUnspecified;
    list.shownUnit = 2;
    list.m_allowUnspecified = !allowed;
    EXPECT_EQ(list.ReleasePreviewRestorables(restorables), S_OK);
    EXPECT_EQ(list.shownUnit, 1);
    EXPECT_EQ(list.m_allowUnspecified, allowed);
}

}  // namespace
