#include "preview/KvRestorable.h"

#include <gtest/gtest.h>

#include "framework/base/CString.h"

namespace {

TEST(KvRestorable, VariableChanged_RestorePutsTheOldValueBack) {
    bool variable = true;
    KvRestorable<bool> restorable(variable);
    EXPECT_TRUE(restorable.IsUnchanged());
    variable = false;
    EXPECT_FALSE(restorable.IsUnchanged());
    restorable.Restore();
    EXPECT_TRUE(variable);
    EXPECT_TRUE(restorable.IsUnchanged());
}

TEST(KvRestorable, VariableUnchanged_RestoreIsHarmless) {
    int variable = 5;
    KvRestorable<int> restorable(variable);
    restorable.Restore();
    EXPECT_EQ(variable, 5);
}

TEST(KvRestorable, SecondRestore_DoesNothing) {
    int variable = 5;
    KvRestorable<int> restorable(variable);
    restorable.Restore();
    variable = 6;
    restorable.Restore();
    EXPECT_EQ(variable, 6);
}

TEST(KvRestorable, Discarded_RestoreWritesNothing) {
    CString variable(L"old");
    KvRestorable<CString> restorable(variable);
    variable = L"new";
    restorable.Discard();
    restorable.Restore();
    EXPECT_EQ(variable, CString(L"new"));
}

TEST(KvRestorable, RefersTo_KnowsItsVariableByAddress) {
    int variable = 5;
    int equal = 5;
    int* pointer = &variable;
    KvRestorable<int> restorable(variable);
    KvRestorable<int*> ofPointer(pointer);
    EXPECT_TRUE(restorable.RefersTo(&variable));
    EXPECT_FALSE(restorable.RefersTo(&equal));
    EXPECT_TRUE(ofPointer.RefersTo(&pointer));
    EXPECT_FALSE(ofPointer.RefersTo(&variable));
    restorable.Discard();
    ofPointer.Discard();
}

}  // namespace
