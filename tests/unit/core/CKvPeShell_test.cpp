#include "core/CKvPeShell.h"

#include <gtest/gtest.h>

#include "framework/com/CComObject.h"
#include "framework/com/Variant.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/RecordingSink.h"

namespace {

using kvtest::RecordingSink;

// A shell whose logic was never made.
class BareShell : public CKvPeShell {
public:
    const CLSID& ClassId() const noexcept override { return CLSID_KvPePropertyEditorText; }
};

class Shell : public ::testing::Test {
protected:
    Shell() {
        CComObject<BareShell>* object = nullptr;
        EXPECT_EQ(CComObject<BareShell>::CreateInstance(nullptr, &object), S_OK);
        shell = object;
        identity.Attach(object->GetUnknown());
    }

    fw::ComPtr<RecordingSink> Connect(const wchar_t* name) {
        const fw::ComPtr<RecordingSink> sink = RecordingSink::Make(name);
        fw::ComPtr<IConnectionPoint> point;
        EXPECT_EQ(shell->FindConnectionPoint(__uuidof(IKvPiPropertyEditEventsSink2), point.Put()), S_OK);
        DWORD cookie = 0;
        EXPECT_EQ(point->Advise(sink.Get(), &cookie), S_OK);
        return sink;
    }

    kvhost::Journal journal;
    CKvPeShell* shell = nullptr;
    fw::ComPtr<IUnknown> identity;
};

TEST_F(Shell, EachEvent_ReachesTheSinkUnderItsName) {
    const auto sink = Connect(L"");
    EXPECT_EQ(shell->FireKeyDownEvent(13, 1), S_OK);
    EXPECT_EQ(shell->FireRButtonDownEvent(2, 3), S_OK);
    EXPECT_EQ(shell->FireMButtonDownEvent(16, 4), S_OK);
    EXPECT_EQ(shell->FireBeginPropertyUpdateEvent(), S_OK);
    EXPECT_EQ(shell->FireEndPropertyUpdateEvent(), S_OK);
    EXPECT_EQ(shell->FireClickEvent(), S_OK);
    EXPECT_EQ(shell->FireBeginModalEvent(5), S_OK);
    EXPECT_EQ(shell->FireEndModalEvent(6), S_OK);
    EXPECT_CALLS(journal, "OnKeyDown 13 1", "OnRButtonDown 2 3", "OnMButtonDown 16 4",
                 "OnBeginPropertyUpdate", "OnEndPropertyUpdate", "OnClick", "OnBeginModal 5", "OnEndModal 6");
}

TEST_F(Shell, KeyUp_ReachesTheSinkAsASecondKeyDown) {
    const auto sink = Connect(L"");
    EXPECT_EQ(shell->FireKeyUpEvent(13, 2), S_OK);
    EXPECT_CALLS(journal, "OnKeyDown 13 2");
}

TEST_F(Shell, SeveralSinks_TheLastOnesResultIsGiven) {
    const auto first = Connect(L"first");
    const auto second = Connect(L"second");
    first->onEvent = [](const std::wstring&) { return E_ACCESSDENIED; };
    second->onEvent = [](const std::wstring&) { return S_FALSE; };
    EXPECT_EQ(shell->FireClickEvent(), S_FALSE);
    EXPECT_CALLS(journal, "first.OnClick", "second.OnClick");
    second->answersSecondInterface = false;
    EXPECT_EQ(shell->FireClickEvent(), E_ACCESSDENIED);
}

TEST_F(Shell, NoLogic_EachOperationIsUnexpected) {
    fw::Variant value;
    VARIANT_BOOL keepFocus = VARIANT_FALSE;
    OLE_COLOR color = 0;
    fw::ComPtr<IUnknown> object;
    EXPECT_EQ(shell->InitEditControl(value.Address(), value.Address(), value.Address(), VARIANT_FALSE),
              E_UNEXPECTED);
    EXPECT_EQ(shell->Refresh(0), E_UNEXPECTED);
    EXPECT_EQ(shell->get_KeepFocus(&keepFocus), E_UNEXPECTED);
    EXPECT_EQ(shell->put_BackColor(1), E_UNEXPECTED);
    EXPECT_EQ(shell->get_BackColor(&color), E_UNEXPECTED);
    EXPECT_EQ(shell->put_ForeColor(1), E_UNEXPECTED);
    EXPECT_EQ(shell->get_ForeColor(&color), E_UNEXPECTED);
    EXPECT_EQ(shell->put_ReadOnlyBackColor(1), E_UNEXPECTED);
    EXPECT_EQ(shell->get_ReadOnlyBackColor(&color), E_UNEXPECTED);
    EXPECT_EQ(shell->put_ReadOnlyForeColor(1), E_UNEXPECTED);
    EXPECT_EQ(shell->get_ReadOnlyForeColor(&color), E_UNEXPECTED);
    EXPECT_EQ(shell->put_Font(nullptr), E_UNEXPECTED);
    EXPECT_EQ(shell->get_Font(object.Put()), E_UNEXPECTED);
    EXPECT_EQ(shell->get_PropertyIdentifier(object.Put()), E_UNEXPECTED);
    EXPECT_EQ(shell->put_PropertyIdentifier(nullptr), E_UNEXPECTED);
    EXPECT_EQ(shell->SetValue(value.Address(), 0), E_UNEXPECTED);
    EXPECT_EQ(shell->LaunchDialog(nullptr, 8), E_UNEXPECTED);
    EXPECT_EQ(shell->LaunchDialog(nullptr, 24), E_UNEXPECTED);
}

TEST_F(Shell, NoLogic_MessagesAndDrawingEndInPeace) {
    for (const UINT message : {512u, 513u, 515u, 516u, 519u, 256u, 25u, 675u, 32769u, 20u}) {
        EXPECT_EQ(shell->WindowProc(message, 0, 0), 0) << message;
    }
    EXPECT_EQ(shell->WindowProc(135, 0, 0), 4);
    EXPECT_EQ(static_cast<HRESULT>(shell->WindowProc(1824, 0, 0)), E_FAIL);
}

}  // namespace
