#include <algorithm>

#include "refhost/automation/PropertyDialogIds.h"
#include "refhost/db/Layer.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/db/Text.h"
#include "refhost/testing/Answers.h"
#include "tests/control/support/RowContainer.h"
#include "tests/control/support/UserInput.h"

namespace {

using kvtest::CallLines;
using kvtest::CallsOnly;

// List rows over closed sets of values, worked as a user works them. The row lies in no palette of the host,
// so that no entry is previewed.
class EnumRow : public kvtest::RowContainer {
protected:
    /// Active in place, over objects that browse three sizes.
    void CreateRow(const CLSID& classId, const std::vector<long>& sizes) {
        Create(classId);
        std::vector<IDispatch*> selection;
        for (const long size : sizes) {
            const wchar_t name[] = {static_cast<wchar_t>(L'A' + selection.size()), 0};
            kvhost::ScriptedObject& object = MakeObject(name, L"", kvhost::OffersBrowsing);
            object.At(c_property).Set(size);
            object.At(c_property).predefinedStrings = {L"small", L"middle", L"big", L"huge"};
            object.At(c_property).predefinedValues = {fw::Variant::FromLong(10), fw::Variant::FromLong(20),
                                                      fw::Variant::FromLong(30), fw::Variant::FromLong(40)};
            selection.push_back(&object);
        }
        ASSERT_EQ(InitEdit(selection), S_OK);
        ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        GiveFont();
        UIActivate();
    }
    HWND Combo() const { return Box(1002); }
    HWND List() const {
        COMBOBOXINFO info{};
        info.cbSize = sizeof(info);
        ::GetComboBoxInfo(Combo(), &info);
        return info.hwndList;
    }
    bool IsOpen() const { return ::SendMessageW(Combo(), CB_GETDROPPEDSTATE, 0, 0) != 0; }
    LRESULT Chosen() const { return ::SendMessageW(Combo(), CB_GETCURSEL, 0, 0); }
    void OpenList() {
        kvtest::PressKey(VK_F4);
        ASSERT_TRUE(IsOpen());
        Clear();
    }
    POINT PlaceOf(int entry) const {
        RECT bounds{};
        ::SendMessageW(List(), LB_GETITEMRECT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(&bounds));
        return {bounds.left + 5, (bounds.top + bounds.bottom) / 2};
    }
    void HoverOver(int entry) { kvtest::MovePointerTo(List(), PlaceOf(entry)); }
    void Press(int entry) { kvtest::ClickAt(List(), PlaceOf(entry)); }
    KvDbObjectId MakeTextOnALockedLayer() {
        kvhost::Database& drawing = document->GetDatabase();
        auto text = std::make_unique<kvhost::Text>();
        KvDbObjectId layer;
        EXPECT_EQ(drawing.AddLayer(L"locked", layer), Tolm::eOk);
        EXPECT_EQ(text->SetLayerId(layer), Tolm::eOk);
        KvDbObjectId id;
        EXPECT_EQ(drawing.AppendEntity(std::move(text), id), Tolm::eOk);
        EXPECT_EQ((kvhost::ScopedOpen<kvhost::Layer>(layer, KvDb::kForWrite)->SetLocked(true)), Tolm::eOk);
        return id;
    }
    long SizeOf(std::size_t index) { return objects[index]->At(c_property).Get().lVal; }
    CallLines Writes() {
        return CallsOnly(journal, {"kvedSendModelessOperation", "undoGroup", "OnBegin", "OnEnd",
                                   "Invoke A put", "Invoke B put"});
    }
    const CallLines c_writeOfBig{"kvedSendModelessOperationStart ZRB_CHGPROP",
                                 "undoGroup 8 Property change",
                                 "OnBeginPropertyUpdate",
                                 "Invoke A put 5 i4:30",
                                 "Invoke B put 5 i4:30",
                                 "undoGroup 16 null",
                                 "kvedSendModelessOperationEnded ZRB_CHGPROP",
                                 "OnEndPropertyUpdate"};
};

TEST_F(EnumRow, OpenedHoveredOverThreeEntriesAndPressed_WritesTheLastOnce) {
    CreateRow(CLSID_KvPePropertyEditorEnum, {10, 10});
    OpenList();
    for (const int entry : {1, 3, 2}) {
        HoverOver(entry);
    }
    EXPECT_EQ(CallsOnly(journal, {"Invoke"}), CallLines{});
    Press(2);
    EXPECT_FALSE(IsOpen());
    const CallLines writes = Writes();
    ASSERT_EQ(writes.size(), c_writeOfBig.size());
    for (std::size_t line = 0; line < writes.size(); ++line) {
        EXPECT_TRUE(writes[line].starts_with(c_writeOfBig[line])) << writes[line];
    }
    EXPECT_EQ(SizeOf(0), 30);
    EXPECT_EQ(SizeOf(1), 30);
    EXPECT_EQ(Chosen(), 2);
    EXPECT_EQ(::GetFocus(), Combo());
}

TEST_F(EnumRow, OpenedHoveredAndEscaped_WritesNothingAndGoesBack) {
    CreateRow(CLSID_KvPePropertyEditorEnum, {20, 20});
    OpenList();
    for (const int entry : {0, 3, 2}) {
        HoverOver(entry);
    }
    kvtest::PressKey(VK_ESCAPE);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Writes(), CallLines{});
    EXPECT_EQ(Chosen(), 1);
    EXPECT_EQ(SizeOf(0), 20);
}

TEST_F(EnumRow, HoveredAndLeftForAnotherWindow_WritesNothing) {
    CreateRow(CLSID_KvPePropertyEditorEnum, {20});
    OpenList();
    HoverOver(3);
    elsewhere.SetFocus();
    kvtest::PumpWaiting();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Writes(), CallLines{});
    EXPECT_EQ(SizeOf(0), 20);
}

TEST_F(EnumRow, SameEntryPressedAgain_WritesNothing) {
    CreateRow(CLSID_KvPePropertyEditorEnum, {20});
    OpenList();
    Press(1);
    EXPECT_EQ(Writes(), CallLines{});
    EXPECT_EQ(Chosen(), 1);
}

TEST_F(EnumRow, ChoiceOverValuesThatDiffer_DropsTheVariesEntry) {
    CreateRow(CLSID_KvPePropertyEditorEnum, {10, 20});
    EXPECT_EQ(::SendMessageW(Combo(), CB_GETCOUNT, 0, 0), 5);
    EXPECT_EQ(Chosen(), 4);
    OpenList();
    Press(2);
    EXPECT_EQ(SizeOf(0), 30);
    EXPECT_EQ(SizeOf(1), 30);
    EXPECT_EQ(::SendMessageW(Combo(), CB_GETCOUNT, 0, 0), 4);
    EXPECT_EQ(Chosen(), 2);
}

TEST_F(EnumRow, RefusedWrite_ShowsWhatTheObjectsHold) {
    CreateRow(CLSID_KvPePropertyEditorEnum, {10, 10});
    OpenList();
    for (const auto& object : objects) {
        object->At(c_property).putResult = E_ACCESSDENIED;
    }
    Press(3);
    EXPECT_EQ(Chosen(), 0);
    EXPECT_EQ(SizeOf(0), 10);
}

TEST_F(EnumRow, HostDrags_ChoiceIsRefusedAndTheFormerEntryIsBack) {
    CreateRow(CLSID_KvPePropertyEditorEnum, {10});
    objects[0]->interfaces |= kvhost::OffersIdentity;
    objects[0]->objectId = document->GetDatabase().ModelSpaceId();
    OpenList();
    host->Editor().SetDragging(true);
    Press(2);
    host->Editor().SetDragging(false);
    EXPECT_EQ(Writes(), CallLines{});
    EXPECT_EQ(CallsOnly(journal, {"LzTaskDialog"}).size(), 1U);
    EXPECT_EQ(Chosen(), 0);
    EXPECT_EQ(SizeOf(0), 10);
}

TEST_F(EnumRow, LayerOfOneIsLockedMeanwhile_ChoiceReachesTheOther) {
    CreateRow(CLSID_KvPePropertyEditorEnum, {10, 10});
    objects[0]->interfaces |= kvhost::OffersIdentity;
    objects[0]->objectId = MakeTextOnALockedLayer();
    OpenList();
    Press(2);
    EXPECT_EQ(SizeOf(0), 10);
    EXPECT_EQ(SizeOf(1), 30);
    const CallLines writes = Writes();
    ASSERT_FALSE(writes.empty());
    EXPECT_EQ(std::count(writes.begin(), writes.end(), "Invoke B put 5 i4:30"), 1);
    EXPECT_EQ(std::count(writes.begin(), writes.end(), "kvedSendModelessOperationEnded ZRB_CHGSELECTION"), 1);
    EXPECT_EQ(host->Editor().OpenMarks(), 0);
}

// A row over texts whose property has a dialog, which the launcher behind the list opens.
class LauncherRow : public EnumRow {
protected:
    LauncherRow() {
        kvhost::ScriptedObject& object = MakeObject(L"A", L"small", kvhost::OffersBrowsing);
        object.At(c_property).predefinedStrings = {L"small", L"middle", L"big"};
        for (const std::wstring& text : object.At(c_property).predefinedStrings) {
            object.At(c_property).predefinedValues.push_back(fw::Variant::FromString(text));
        }
        object.At(c_property).page = kvhost::CLSID_TextDialogByObjects;
        object.At(c_launcherKey).page = CLSID_StdPicture;  // any will do
    }
    ~LauncherRow() override { kvhost::Answers::Reset(); }

    void OpenRow() {
        Create(CLSID_KvPePropertyEditorEnum);
        ASSERT_EQ(InitEdit({objects[0].Get()}), S_OK);
        ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        GiveFont();
        UIActivate();
        ASSERT_TRUE(::IsWindowVisible(Launcher()));
    }
    HWND Launcher() const { return Box(1039); }
    void PressLauncher() {
        kvtest::ClickAt(Launcher(), {5, 5});
        kvtest::PumpWaiting();
    }
    CallLines DialogCalls() {
        return CallsOnly(journal, {"OnBegin", "OnEnd", "IPropertyDialog", "Invoke A put"});
    }

    static constexpr DISPID c_launcherKey = -23;
};

TEST_F(LauncherRow, DialogConfirmed_CallsAndEventsInOrder) {
    OpenRow();
    kvhost::Answers::QueueText(L"big");
    PressLauncher();
    EXPECT_CALLS(DialogCalls(), "OnBeginPropertyUpdate", "IPropertyDialogByObjects.ShowDialog small 1",
                 "Invoke A put 5 \"big\"", "OnEndPropertyUpdate");
    EXPECT_EQ(::GetFocus(), Combo());
    // The palette, told of the end, reads its rows anew.
    EXPECT_EQ(control->Refresh(0), S_OK);
    EXPECT_EQ(Chosen(), 2);
    Clear();
    EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    EXPECT_EQ(CallsOnly(journal, {"Invoke A put"}), CallLines{}) << "the dialog has written";
}

TEST_F(LauncherRow, DialogCancelled_CallsAndEventsInOrder) {
    OpenRow();
    kvhost::Answers::QueueButton(IDCANCEL);
    PressLauncher();
    EXPECT_CALLS(DialogCalls(), "OnBeginPropertyUpdate", "IPropertyDialogByObjects.ShowDialog small 1",
                 "OnEndPropertyUpdate");
    EXPECT_EQ(::GetFocus(), Combo());
    EXPECT_EQ(Chosen(), 0);
    EXPECT_TRUE(objects[0]->At(c_property).puts.empty());
}

TEST_F(EnumRow, DownInAShutList_WritesTheNextEntry) {
    CreateRow(CLSID_KvPePropertyEditorEnum, {10});
    kvtest::PressKey(VK_DOWN);
    EXPECT_EQ(SizeOf(0), 20);
    EXPECT_EQ(Chosen(), 1);
}

TEST_F(EnumRow, Truth_IsChosenLikeAnyOther) {
    Create(CLSID_KvPePropertyEditorBool);
    kvhost::ScriptedObject& object = MakeObject(L"A", L"");
    object.At(c_property).Set(fw::Variant::FromBool(false).Get());
    ASSERT_EQ(InitEdit({&object}), S_OK);
    ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    GiveFont();
    UIActivate();
    OpenList();
    Press(0);
    EXPECT_EQ(object.At(c_property).Get().boolVal, VARIANT_TRUE);
    EXPECT_EQ(Chosen(), 0);
}

// The type library declares it, and no row serves it.
TEST_F(EnumRow, PicturesOfTheLauncher_AreReachedByNoInterface) {
    for (const CLSID* const classId : {&CLSID_KvPePropertyEditorEnum, &CLSID_KvPePropertyEditorBool,
                                       &CLSID_KvPePropertyEditorSpinnerEnum}) {
        Create(*classId);
        EXPECT_FALSE(As<IKvPeButtonPicture>());
        EXPECT_FALSE(As<IKvPeButtonEditCtrl>());
        EXPECT_EQ(static_cast<bool>(As<IKvPeVariantCtrl>()), *classId == CLSID_KvPePropertyEditorSpinnerEnum);
        Discard();
    }
}

TEST_F(EnumRow, Element_IsToldByThePublishedInterface) {
    Create(CLSID_KvPePropertyEditorSpinnerEnum);
    kvhost::ScriptedObject& object =
        MakeObject(L"A", L"group", kvhost::OffersBrowsing | kvhost::OffersElementsOfObject);
    object.At(c_property).predefinedStrings = {L"straight", L"arc"};
    object.At(c_property).predefinedValues = {fw::Variant::FromLong(0), fw::Variant::FromLong(1)};
    object.At(c_property).keepsPuts = false;
    object.At(c_property).elements[7] = fw::Variant::FromLong(1);
    object.At(c_property).elements[8] = fw::Variant::FromLong(0);
    const auto elements = As<IKvPeVariantCtrl>();
    ASSERT_TRUE(static_cast<bool>(elements));
    LONG cookie = 7;
    SAFEARRAY* const array = ::SafeArrayCreateVector(VT_I4, 0, 1);
    LONG index = 0;
    EXPECT_EQ(::SafeArrayPutElement(array, &index, &cookie), S_OK);
    const fw::Variant cookies = fw::Variant::FromArray(VT_I4, array);
    EXPECT_EQ(elements->SetDwCookies(cookies.Get()), S_OK);
    EXPECT_EQ(elements->SetDwCookies(fw::Variant::FromLong(7).Get()), E_FAIL);
    EXPECT_EQ(elements->SetElementCount(2), S_OK);
    ASSERT_EQ(InitEdit({&object}), S_OK);
    ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    GiveFont();
    UIActivate();
    EXPECT_EQ(Chosen(), 1);
    EXPECT_EQ(elements->SetGroupOffset(1), S_OK);
    EXPECT_EQ(Chosen(), 0);
    OpenList();
    Press(1);
    EXPECT_EQ(object.At(c_property).elements[8].LongOr(-1), 1);
    EXPECT_EQ(object.At(c_property).elements[7].LongOr(-1), 1);
}

}  // namespace
