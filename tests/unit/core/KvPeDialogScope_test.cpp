#include "core/KvPeDialogScope.h"

#include "tests/unit/core/ControlBench.h"

namespace {

using KvPeDialogScopeTest = kvtest::ControlTest;

TEST_F(KvPeDialogScopeTest, Scope_BracketsTheDialog) {
    const auto identifier = kvtest::FakeIdentifier::Make();
    {
        KvPeDialogScope scope(&shell, identifier.Get(), L"before", 24);
        kvtest::Note(L"dialog");
        scope.SetText(L"after");
    }
    EXPECT_CALLS(journal, "kvedSendModelessOperationStart ZRB_CHGPROP", "PutCurrentValue \"before\"",
                 "OnBeginModal 24", "dialog", "PutCurrentValue \"after\"", "OnEndModal 24",
                 "kvedSendModelessOperationEnded ZRB_CHGPROP");
}

TEST_F(KvPeDialogScopeTest, Scope_WithoutIdentifier_TellsNobody) {
    { KvPeDialogScope scope(&shell, nullptr, L"before", 24); }
    EXPECT_NO_CALLS(journal);
}

TEST_F(KvPeDialogScopeTest, Scope_HoldsTheIdentifier) {
    auto identifier = kvtest::FakeIdentifier::Make();
    {
        const KvPeDialogScope scope(&shell, identifier.Get(), L"text", 8);
        EXPECT_EQ(identifier->References(), 2U);
    }
    EXPECT_EQ(identifier->References(), 1U);
}

TEST_F(KvPeDialogScopeTest, Scope_FailingPalette_StillEnds) {
    const auto identifier = kvtest::FakeIdentifier::Make();
    identifier->result = E_FAIL;
    shell.sinkResult = E_FAIL;
    { KvPeDialogScope scope(&shell, identifier.Get(), L"text", 8); }
    EXPECT_EQ(kvtest::CallsOf(journal).size(), 6U);
    EXPECT_EQ(host->Editor().OpenMarks(), 0);
}

}  // namespace
