#include "families/CPropertyEditorSpinnerEnum.h"

#include "framework/base/MessageBox.h"
#include "framework/com/SafeArray.h"
#include "tests/unit/families/EnumBench.h"

namespace {

using kvtest::c_property;
using kvtest::Long;
using kvtest::Note;

class OpenSpinnerRow : public CPropertyEditorSpinnerEnum {
public:
    using CPropertyEditorSpinnerEnum::CPropertyEditorSpinnerEnum;
    using CPropertyEditorSpinnerEnum::m_entries;
    using CPropertyEditorSpinnerEnum::m_nCurItem;
    using CPropertyEditorSpinnerEnum::m_pList;
    using CPropertyEditorSpinnerEnum::m_strText;
};

int NoteTitledMessageBox(HWND owner, const wchar_t* text, const wchar_t* caption, UINT flags) {
    Note(L"MessageBox", std::wstring(owner != nullptr ? L"owned" : L"ownerless"), text, caption, flags);
    return IDOK;
}

fw::Variant Cookies(std::vector<LONG> cookies) {
    fw::Variant array;
    EXPECT_EQ(fw::MakeLongArray(cookies.data(), static_cast<ULONG>(cookies.size()), array), S_OK);
    return array;
}

/// Shapes of the segments of a path: the elements 10 to 13, in two groups of two.
class SpinnerRow : public kvtest::ChoiceTest<OpenSpinnerRow> {
protected:
    static constexpr unsigned c_firstKey = 10;

    SpinnerRow() { fw::SetMessageBoxHook(&NoteTitledMessageBox); }

    kvhost::ScriptedObject& MakePath(const wchar_t* name, unsigned interfaces) {
        kvhost::ScriptedObject& object = MakeObject(name, L"group", kvhost::OffersBrowsing | interfaces);
        object.At(c_property).predefinedStrings = {L"straight", L"left", L"right"};
        object.At(c_property).predefinedValues = {Long(0), Long(1), Long(2)};
        object.At(c_property).keepsPuts = false;
        for (unsigned key = 0; key < 4; ++key) {
            object.At(c_property).elements[c_firstKey + key] = Long(static_cast<long>(key % 3));
        }
        return object;
    }
    void Start() {
        EXPECT_EQ(row->SetDwCookies(Cookies({10, 11}).Get()), S_OK);
        EXPECT_EQ(Init(), S_OK);
    }
    long Element(unsigned key) { return objects[0]->At(c_property).elements[key].LongOr(-1); }
};

TEST_F(SpinnerRow, Element_IsReadByTheFirstCookie) {
    MakePath(L"A", kvhost::OffersElementsOfObject | kvhost::OffersElements);
    Start();
    EXPECT_EQ(row->m_nCurItem, 0);
    EXPECT_EQ(row->m_strText.View(), L"straight");
    EXPECT_EQ(kvtest::CallsOnly(journal, {"IPropertyElementAccess2.GetElementValue",
                                          "IPropertyElementAccess.GetElementValue"}),
              kvtest::CallLines{"IPropertyElementAccess2.GetElementValue A 5 A 10"});
}

TEST_F(SpinnerRow, OlderAccess_IsUsedWhereTheOtherIsMissing) {
    MakePath(L"A", kvhost::OffersElements);
    Start();
    EXPECT_EQ(row->m_nCurItem, 0);
    EXPECT_EQ(kvtest::CallsOnly(journal, {"IPropertyElementAccess.GetElementValue"}),
              kvtest::CallLines{"IPropertyElementAccess.GetElementValue A 5 10"});
}

TEST_F(SpinnerRow, DynamicProperty_IsAskedBeforeTheObject) {
    MakePath(L"A", kvhost::OffersElements);
    kvhost::ScriptedDynamicProperty& property =
        MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersValues | kvhost::OffersElementsOfObject);
    property.values = {{L"low", Long(1)}, {L"high", Long(2)}};
    property.shared.Set(L"group");
    property.shared.elements[c_firstKey] = Long(1);
    EXPECT_EQ(row->SetDwCookies(Cookies({10}).Get()), S_OK);
    EXPECT_EQ(InitDynamic(property), S_OK);
    EXPECT_EQ(row->m_nCurItem, 1);
    EXPECT_EQ(row->m_strText.View(), L"high");
    EXPECT_EQ(kvtest::CallsOnly(journal, {"IPropertyElementAccess2.GetElementValue"}),
              kvtest::CallLines{"IPropertyElementAccess2.GetElementValue P -23 A 10"});
}

TEST_F(SpinnerRow, ValueOfTheWholeProperty_ComesFirst) {
    MakePath(L"A", kvhost::OffersElements).At(c_property).Set(2L);
    Start();
    EXPECT_EQ(row->m_nCurItem, 2);
    EXPECT_EQ(kvtest::CallsOnly(journal, {"IPropertyElementAccess.GetElementValue"}), kvtest::CallLines{});
}

TEST_F(SpinnerRow, NoAccessNoCookiesOrFailingRead_HasNoEntry) {
    MakePath(L"A", 0);
    EXPECT_EQ(Init(), E_FAIL);
    objects[0]->interfaces |= kvhost::OffersElements;
    EXPECT_EQ(row->Handle_Refresh(), E_FAIL);  // no cookies yet
    EXPECT_EQ(row->SetDwCookies(Cookies({10}).Get()), S_OK);
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    objects[0]->script.FailCall(L"IPropertyElementAccess.GetElementValue", 0, E_ACCESSDENIED);
    EXPECT_EQ(row->GetCurrentItem(), -1);
}

TEST_F(SpinnerRow, GroupOffset_MovesToTheElementOfThatGroup) {
    MakePath(L"A", kvhost::OffersElements);
    Start();
    ::ValidateRect(window.m_hWnd, nullptr);
    EXPECT_EQ(row->SetGroupOffset(2), S_OK);
    EXPECT_EQ(row->m_nCurItem, 2);
    EXPECT_EQ(row->m_strText.View(), L"right");
    EXPECT_NE(::GetUpdateRect(window.m_hWnd, nullptr, FALSE), FALSE);
    EXPECT_EQ(row->SetElementCount(4), S_OK);
}

TEST_F(SpinnerRow, Cookies_ThatAreNone_AreRefused) {
    EXPECT_EQ(row->SetDwCookies(Long(1).Get()), E_FAIL);
    EXPECT_EQ(row->SetDwCookies(fw::Variant().Get()), E_FAIL);
    VARIANT empty{};
    empty.vt = VT_ARRAY | VT_I4;
    EXPECT_EQ(row->SetDwCookies(empty), E_FAIL);
    fw::Variant others;
    others = fw::Variant::FromArray(VT_R8, ::SafeArrayCreateVector(VT_R8, 0, 1));
    EXPECT_EQ(row->SetDwCookies(others.Get()), E_FAIL);
}

TEST_F(SpinnerRow, Cookies_StandAtTheirIndexesFromTheLowerBound) {
    MakePath(L"A", kvhost::OffersElements).At(c_property).elements[0] = Long(2);
    SAFEARRAYBOUND bound{1, 1};  // one element, at the index 1
    SAFEARRAY* const array = ::SafeArrayCreate(VT_I4, 1, &bound);
    LONG index = 1;
    LONG cookie = 11;
    EXPECT_EQ(::SafeArrayPutElement(array, &index, &cookie), S_OK);
    EXPECT_EQ(row->SetDwCookies(fw::Variant::FromArray(VT_I4, array).Get()), S_OK);
    EXPECT_EQ(Init(), S_OK);
    EXPECT_EQ(row->m_nCurItem, 2);  // the element of the cookie at index 0, which is 0
}

TEST_F(SpinnerRow, Cleanup_ForgetsTheCookies) {
    MakePath(L"A", kvhost::OffersElements);
    Start();
    EXPECT_EQ(row->Cleanup(), S_OK);
    EXPECT_EQ(Init(), E_FAIL);
}

TEST_F(SpinnerRow, EndEdit_WritesThePropertyAndThenItsElement) {
    MakePath(L"A", kvhost::OffersElementsOfObject);
    Start();
    Open();
    List().SetCurSel(1);
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_EQ(Element(10), 1);
    const auto calls = kvtest::CallsOnly(
        journal, {"OnBeginPropertyUpdate", "OnEndPropertyUpdate", "IPropertyElementAccess2.SetElementValue"});
    EXPECT_EQ(calls,
              (kvtest::CallLines{"OnBeginPropertyUpdate", "OnEndPropertyUpdate", "OnBeginPropertyUpdate",
                                 "IPropertyElementAccess2.SetElementValue A 5 A 10 i4:1",
                                 "OnEndPropertyUpdate", "OnEndPropertyUpdate"}));
}

TEST_F(SpinnerRow, EndEdit_NothingChosen_WritesNothing) {
    MakePath(L"A", kvhost::OffersElements);
    Start();
    Open();
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_EQ(kvtest::CallsOnly(journal, {"OnBeginPropertyUpdate", "Invoke"}), kvtest::CallLines{});
}

TEST_F(SpinnerRow, EndEdit_WithoutList_IsThatOfTheFamily) {
    MakePath(L"A", kvhost::OffersElements);
    Start();
    EXPECT_EQ(row->EndEdit(), E_FAIL);
}

TEST_F(SpinnerRow, EndEdit_WithoutAccess_TellsBeginAndEndAlone) {
    MakePath(L"A", kvhost::OffersElements);
    Start();
    Open();
    objects[0]->interfaces = kvhost::OffersBrowsing;
    List().SetCurSel(1);
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_EQ(kvtest::CallsOnly(journal, {"OnBeginPropertyUpdate", "OnEndPropertyUpdate"}),
              (kvtest::CallLines{"OnBeginPropertyUpdate", "OnEndPropertyUpdate", "OnBeginPropertyUpdate",
                                 "OnEndPropertyUpdate"}));
}

TEST_F(SpinnerRow, EndEdit_ObjectOnALockedLayer_KeepsItsElement) {
    kvhost::ScriptedObject& object = MakePath(L"A", kvhost::OffersElements | kvhost::OffersIdentity);
    LockLayerOf(MakeEntity(&object));
    Start();
    Open();
    List().SetCurSel(1);
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_EQ(Element(10), 0);
    EXPECT_EQ(kvtest::CallsOnly(journal, {"IPropertyElementAccess.SetElementValue"}), kvtest::CallLines{});
}

TEST_F(SpinnerRow, EndEdit_RefusedElement_TellsWhyAndFails) {
    kvhost::ScriptedObject& object = MakePath(L"A", kvhost::OffersElements);
    object.At(c_property).errorText = L"The path would cross itself.";
    Start();
    Open();
    object.script.FailCall(L"IPropertyElementAccess.SetElementValue", 1, E_ACCESSDENIED);
    List().SetCurSel(1);
    EXPECT_EQ(row->EndEdit(), E_ACCESSDENIED);
    const auto calls = kvtest::CallsOnly(journal, {"OnBeginPropertyUpdate", "OnEndPropertyUpdate",
                                                   "MessageBox", "IPropertyElementAccess.SetElementValue"});
    EXPECT_EQ(calls, (kvtest::CallLines{
                         "OnBeginPropertyUpdate", "OnEndPropertyUpdate", "OnBeginPropertyUpdate",
                         "IPropertyElementAccess.SetElementValue A 5 10 i4:1", "OnEndPropertyUpdate",
                         "MessageBox ownerless The path would cross itself. Property not changed 48"}));
}

TEST_F(SpinnerRow, EndEdit_RefusedElementWithoutReason_FailsSilently) {
    kvhost::ScriptedObject& object = MakePath(L"A", kvhost::OffersElements);
    Start();
    Open();
    object.script.FailCall(L"IPropertyElementAccess.SetElementValue", 1, E_ACCESSDENIED);
    List().SetCurSel(1);
    EXPECT_EQ(row->EndEdit(), E_ACCESSDENIED);
    EXPECT_EQ(kvtest::CallsOnly(journal, {"MessageBox"}), kvtest::CallLines{});
}

TEST_F(SpinnerRow, EndEdit_WindowEndsAtTheSecondBegin_ChoiceIsWritten) {
    MakePath(L"A", kvhost::OffersElementsOfObject);
    Start();
    Open();
    List().SetCurSel(2);
    int begun = 0;
    shell.onEvent = [&](const std::wstring& event) {
        if (event == L"OnBeginPropertyUpdate" && ++begun == 2) {
            window.DestroyWindow();
        }
    };
    fw::Ignore(row->EndEdit());
    EXPECT_EQ(begun, 2);
    EXPECT_EQ(Element(c_firstKey), 2);
}

TEST_F(SpinnerRow, LateCancelOutOfEdit_WritesNothing) {
    kvhost::ScriptedObject& object = MakePath(L"A", kvhost::OffersElementsOfObject);
    Start();
    Open();
    EXPECT_EQ(row->Handle_UIDeactivate(), S_OK);
    List().SetCurSel(1);
    object.script.FailCall(L"IPropertyElementAccess2.GetElementValue", 0, E_FAIL);
    journal.Clear();
    BOOL handled = TRUE;
    EXPECT_EQ(row->OnSelectionCancel(1025, 0, 0, handled), E_FAIL);
    EXPECT_NO_CALLS(kvtest::CallsOnly(journal, {"IPropertyElementAccess2.SetElementValue"}));
    EXPECT_EQ(Element(c_firstKey), 0);
}

}  // namespace
