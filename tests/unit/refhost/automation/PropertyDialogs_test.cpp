#include "refhost/automation/PropertyDialogs.h"

#include "framework/com/SafeArray.h"
#include "host_sdk/IPropertyDialogByIds.h"
#include "host_sdk/IPropertyDialogByObjects.h"
#include "host_sdk/KvEdServices.h"
#include "refhost/automation/ApplicationObject.h"
#include "refhost/automation/PropertyDialogIds.h"
#include "refhost/db/Circle.h"
#include "refhost/db/Database.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/testing/Answers.h"
#include "refhost/testing/Faults.h"
#include "refhost/ui/ResourceIds.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/MessagePump.h"
#include "tests/unit/refhost/automation/AutomationFixture.h"

namespace {

using kvhost::Answers;

class PropertyDialogsTest : public kvtest::AutomationFixture {
protected:
    // Class id of the dialog of an object's property.
    CLSID PageOf(DISPID dispid) {
        const auto browsing = ObjectOf(Add<kvhost::Circle>()).As<IPerPropertyBrowsing>();
        CLSID page{};
        EXPECT_EQ(browsing->MapPropertyToPage(dispid, &page), S_OK);
        return page;
    }
    static fw::ComPtr<IUnknown> Create(const CLSID& classId) {
        fw::ComPtr<IUnknown> dialog;
        EXPECT_EQ(::CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, dialog.PutVoid()),
                  S_OK);
        return dialog;
    }
    static fw::Variant ArrayOf(ULONG count) {
        SAFEARRAY* const array = ::SafeArrayCreateVector(VT_UNKNOWN, 0, count);
        return fw::Variant::FromArray(VT_UNKNOWN, array);
    }
};

TEST_F(PropertyDialogsTest, MapPropertyToPage_OnlyDialogBackedProperties) {
    EXPECT_EQ(PageOf(104), kvhost::CLSID_TextDialogByObjects);
    EXPECT_EQ(PageOf(105), kvhost::CLSID_TextDialogByIds);
    const auto browsing = ObjectOf(Add<kvhost::Circle>()).As<IPerPropertyBrowsing>();
    CLSID page{};
    EXPECT_EQ(browsing->MapPropertyToPage(202, &page), PERPROP_E_NOPAGEAVAILABLE);
    EXPECT_EQ(browsing->MapPropertyToPage(-23, &page), PERPROP_E_NOPAGEAVAILABLE);
    EXPECT_EQ(page, CLSID_NULL);
}

TEST_F(PropertyDialogsTest, ByObjects_PreparedText_IsTheResult) {
    const auto dialog = Create(PageOf(104));
    EXPECT_FALSE(dialog.As<IPropertyDialogByIds>());
    Answers::QueueText(L"edited");
    fw::Bstr text(L"before");
    BSTR raw = text.Detach();
    kvhost::Journal journal;
    EXPECT_EQ(dialog.As<IPropertyDialogByObjects>()->ShowDialog(&raw, ArrayOf(3).Get()), S_OK);
    text.Attach(raw);
    EXPECT_EQ(text.View(), L"edited");
    EXPECT_CALLS(journal, "IPropertyDialogByObjects.ShowDialog before 3");
}

TEST_F(PropertyDialogsTest, ByIds_EditedText_IsGivenToEachObjectAsOneStepOfUndo) {
    const KvDbObjectId first = Add<kvhost::Circle>();
    const KvDbObjectId second = Add<kvhost::Circle>();
    KvArray<KvDbObjectId> ids;
    ids.append(first);
    ids.append(second);
    const auto dialog = Create(PageOf(105)).As<IPropertyDialogByIds>();
    Answers::QueueText(L"https://example.org");
    fw::Bstr text(L"before");
    BSTR raw = text.Detach();
    kvhost::Journal journal;
    EXPECT_EQ(dialog->ShowDialog(&raw, &ids), S_OK);
    text.Attach(raw);
    EXPECT_EQ(kvtest::CallsOnly(journal, {"Invoke"}).size(), 2u);
    for (const KvDbObjectId id : {first, second}) {
        const kvhost::ScopedOpen<kvhost::Circle> circle(id);
        EXPECT_EQ(circle->Hyperlink(), L"https://example.org");
    }
    auto& undo = static_cast<kvhost::Database*>(first.database())->Undo();
    EXPECT_EQ(undo.OpenGroups(), 0);
    EXPECT_EQ(undo.UndoByUser(1), Tolm::eOk);
    for (const KvDbObjectId id : {first, second}) {
        const kvhost::ScopedOpen<kvhost::Circle> circle(id);
        EXPECT_EQ(circle->Hyperlink(), L"");
    }
}

TEST_F(PropertyDialogsTest, ConfirmedWithoutChange_WritesNothing) {
    KvArray<KvDbObjectId> ids;
    ids.append(Add<kvhost::Circle>());
    const auto dialog = Create(PageOf(105)).As<IPropertyDialogByIds>();
    Answers::QueueText(L"before");
    fw::Bstr text(L"before");
    BSTR raw = text.Detach();
    kvhost::Journal journal;
    EXPECT_EQ(dialog->ShowDialog(&raw, &ids), S_OK);
    text.Attach(raw);
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"Invoke"}).empty());
}

TEST_F(PropertyDialogsTest, ObjectsThatRefuse_AreTold) {
    KvArray<KvDbObjectId> ids;
    ids.append(Add<kvhost::Circle>());
    ids.append(Add<kvhost::Circle>());
    const auto dialog = Create(PageOf(105)).As<IPropertyDialogByIds>();
    for (const std::size_t failing : {1U, 0U}) {
        Answers::QueueText(L"after");
        static_cast<void>(Answers::TakeShown());
        kvhost::Faults::FailService(L"Invoke", failing);
        fw::Bstr text(L"before");
        BSTR raw = text.Detach();
        EXPECT_EQ(dialog->ShowDialog(&raw, &ids), failing == 1 ? S_OK : E_FAIL);
        text.Attach(raw);
        kvhost::Faults::Reset();
        const std::vector<std::wstring> shown = Answers::TakeShown();
        ASSERT_EQ(shown.size(), 2u);
        EXPECT_EQ(shown[1], failing == 1 ? L"1 of 2 objects could not be changed."
                                         : L"2 of 2 objects could not be changed.");
        EXPECT_EQ(text.View(), failing == 1 ? L"after" : L"before");
    }
}

TEST_F(PropertyDialogsTest, ByIds_Cancelled_KeepsTheText) {
    const auto dialog = Create(PageOf(105));
    EXPECT_FALSE(dialog.As<IPropertyDialogByObjects>());
    Answers::QueueButton(IDCANCEL);
    fw::Bstr text(L"before");
    BSTR raw = text.Detach();
    KvArray<KvDbObjectId> ids;
    ids.append({});
    EXPECT_EQ(dialog.As<IPropertyDialogByIds>()->ShowDialog(&raw, &ids), S_FALSE);
    text.Attach(raw);
    EXPECT_EQ(text.View(), L"before");
}

TEST_F(PropertyDialogsTest, NobodyThereAndNothingPrepared_DoesNotBlock) {
    const auto dialog = Create(PageOf(105)).As<IPropertyDialogByIds>();
    BSTR raw = nullptr;
    KvArray<KvDbObjectId> ids;
    EXPECT_EQ(dialog->ShowDialog(&raw, &ids), S_OK);
    fw::Bstr text;
    text.Attach(raw);
    EXPECT_TRUE(text.IsEmpty());
}

TEST_F(PropertyDialogsTest, WrongArguments_Refused) {
    BSTR raw = nullptr;
    KvArray<KvDbObjectId> ids;
    EXPECT_EQ(Create(PageOf(105)).As<IPropertyDialogByIds>()->ShowDialog(&raw, nullptr), E_POINTER);
    EXPECT_EQ(Create(PageOf(105)).As<IPropertyDialogByIds>()->ShowDialog(nullptr, &ids), E_POINTER);
    EXPECT_EQ(Create(PageOf(104)).As<IPropertyDialogByObjects>()->ShowDialog(&raw, fw::Variant().Get()),
              E_INVALIDARG);
}

// A person types and confirms: driven by a timer from within the dialog's own loop.
void CALLBACK TypeAndConfirm(HWND, UINT, UINT_PTR timer, DWORD) {
    HWND const dialog = ::FindWindowW(L"#32770", L"Edit Text");
    if (dialog != nullptr) {
        ::KillTimer(nullptr, timer);
        ::SetDlgItemTextW(dialog, KVHOST_PROPERTY_TEXT, L"typed");
        ::SendDlgItemMessageW(dialog, IDOK, BM_CLICK, 0, 0);
    }
}

TEST_F(PropertyDialogsTest, PersonAtTheScreen_EditsInTheWindow) {
    Answers::SetInteractive(true);
    const auto dialog = Create(PageOf(105)).As<IPropertyDialogByIds>();
    ::SetTimer(nullptr, 0, 10, TypeAndConfirm);
    fw::Bstr text(L"before");
    BSTR raw = text.Detach();
    KvArray<KvDbObjectId> ids;
    EXPECT_EQ(dialog->ShowDialog(&raw, &ids), S_OK);
    text.Attach(raw);
    EXPECT_EQ(text.View(), L"typed");
}

TEST(PropertyDialogsOfNoHost, ClassesAreNotRegistered) {
    { const kvhost::HostSession session; }
    fw::ComPtr<IUnknown> dialog;
    EXPECT_EQ(::CoCreateInstance(kvhost::CLSID_TextDialogByIds, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                 dialog.PutVoid()),
              REGDB_E_CLASSNOTREG);
}

TEST(ApplicationObject, RunMacro_IsJournalledAndKept) {
    const kvhost::HostSession session;
    fw::ComPtr<IUnknown> application;
    application.Attach(kvedGetApplicationObject());
    ASSERT_TRUE(application);
    const auto host = application.As<IHostApplication>();
    ASSERT_TRUE(host);
    fw::Ignore(kvhost::TakeRunMacros());
    kvhost::Journal journal;
    EXPECT_EQ(host->RunMacro(fw::Bstr(L"ShowSurvey").Get()), S_OK);
    EXPECT_EQ(host->RunMacro(nullptr), E_INVALIDARG);
    EXPECT_CALLS(journal, "RunMacro ShowSurvey", "RunMacro");
    EXPECT_EQ(kvhost::TakeRunMacros(), std::vector<std::wstring>{L"ShowSurvey"});
}

}  // namespace
