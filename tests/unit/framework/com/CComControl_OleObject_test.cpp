#include "tests/unit/framework/com/ControlTest.h"

namespace {

class AdviseSink : public fw::ComObjectRoot, public IAdviseSink {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static constexpr std::array s_interfaces{fw::Implements<AdviseSink, IAdviseSink>()};
        return s_interfaces;
    }
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override { kvtest::Note("sink.OnDataChange"); }
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { kvtest::Note("sink.OnViewChange"); }
    STDMETHODIMP_(void) OnRename(IMoniker*) override { kvtest::Note("sink.OnRename"); }
    STDMETHODIMP_(void) OnSave() override { kvtest::Note("sink.OnSave"); }
    STDMETHODIMP_(void) OnClose() override { kvtest::Note("sink.OnClose"); }
};

class OleObjectTest : public kvtest::ControlTest {};

TEST_F(OleObjectTest, Show_ActivatesInPlaceOnly) {
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(m_row->IsWindowVisible());
    EXPECT_FALSE(m_row->m_bUIActive);
    EXPECT_EQ(Do(OLEIVERB_OPEN), S_OK);
    EXPECT_FALSE(m_row->m_bUIActive);
}

TEST_F(OleObjectTest, Primary_ActivatesForTheUser) {
    EXPECT_EQ(Do(OLEIVERB_PRIMARY), S_OK);
    EXPECT_TRUE(m_row->m_bUIActive);
}

TEST_F(OleObjectTest, Hide_TakesBackTheActivationWithoutEndingTheEdit) {
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
    kvtest::Log().clear();
    EXPECT_EQ(Do(OLEIVERB_HIDE), S_OK);
    EXPECT_LOG("frame.SetActiveObject null", "document.SetActiveObject null", "site.OnUIDeactivate",
               "site.OnFocus 0");
    EXPECT_FALSE(m_row->IsWindowVisible());
    EXPECT_TRUE(m_row->m_bInPlaceActive);
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(m_row->IsWindowVisible());
}

TEST_F(OleObjectTest, Hide_NeverActivated_DoesNothing) {
    EXPECT_EQ(Do(OLEIVERB_HIDE), S_OK);
    EXPECT_EMPTY_LOG();
}

TEST_F(OleObjectTest, UnknownVerbs_PositiveTakenForPrimaryNegativeRefused) {
    EXPECT_EQ(Do(5), OLEOBJ_S_INVALIDVERB);
    EXPECT_TRUE(m_row->m_bUIActive);
    EXPECT_EQ(Do(-7), E_NOTIMPL);
    EXPECT_EQ(Do(-1000), E_NOTIMPL);
    EXPECT_EQ(Do(OLEIVERB_DISCARDUNDOSTATE), S_OK);
}

TEST_F(OleObjectTest, EnumVerbs_NamesTheStandardVerbs) {
    fw::ComPtr<IEnumOLEVERB> verbs;
    ASSERT_EQ(m_object->EnumVerbs(verbs.Put()), S_OK);
    const LONG expected[] = {0, -1, -2, -3, -4, -5};
    for (const LONG id : expected) {
        OLEVERB verb{};
        ASSERT_EQ(verbs->Next(1, &verb, nullptr), S_OK);
        EXPECT_EQ(verb.lVerb, id);
        EXPECT_NE(verb.lpszVerbName, nullptr);
        EXPECT_EQ(verb.grfAttribs, 0u);
        ::CoTaskMemFree(verb.lpszVerbName);
    }
    OLEVERB verb{};
    EXPECT_EQ(verbs->Next(1, &verb, nullptr), S_FALSE);
    EXPECT_EQ(m_object->EnumVerbs(nullptr), E_POINTER);
}

TEST_F(OleObjectTest, EnumVerbs_HeldAlone_KeepsTheModule) {
    fw::ComPtr<IEnumOLEVERB> verbs;
    auto row = kvtest::MakeRow();
    ASSERT_EQ(row->EnumVerbs(verbs.Put()), S_OK);
    row.Reset();
    EXPECT_EQ(kvtest::TestModule().GetLockCount(), 2);
    verbs.Reset();
    EXPECT_EQ(kvtest::TestModule().GetLockCount(), 1);
}

TEST_F(OleObjectTest, ClassAndStatus_ComeFromTheClassTable) {
    CLSID classId{};
    EXPECT_EQ(m_object->GetUserClassID(&classId), S_OK);
    EXPECT_TRUE(::IsEqualCLSID(classId, CLSID_TestRowControl));
    EXPECT_EQ(m_object->GetUserClassID(nullptr), E_POINTER);
    LPOLESTR type = nullptr;
    ASSERT_EQ(m_object->GetUserType(USERCLASSTYPE_FULL, &type), S_OK);
    EXPECT_STREQ(type, kvtest::TestRowDescription);
    ::CoTaskMemFree(type);
    EXPECT_EQ(m_object->GetUserType(USERCLASSTYPE_FULL, nullptr), E_POINTER);
    DWORD status = 0;
    EXPECT_EQ(m_object->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_EQ(status, fw::ControlMiscStatus);
    EXPECT_EQ(m_object->GetMiscStatus(DVASPECT_ICON, &status), DV_E_DVASPECT);
    EXPECT_EQ(status, 0u);
    EXPECT_EQ(m_object->GetMiscStatus(DVASPECT_CONTENT, nullptr), E_POINTER);
}

TEST_F(OleObjectTest, Extent_IsKept) {
    SIZEL extent{1000, 2000};
    EXPECT_EQ(m_object->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    SIZEL read{};
    EXPECT_EQ(m_object->GetExtent(DVASPECT_CONTENT, &read), S_OK);
    EXPECT_EQ(read.cx, 1000);
    EXPECT_EQ(read.cy, 2000);
    EXPECT_EQ(m_object->SetExtent(DVASPECT_ICON, &extent), DV_E_DVASPECT);
    EXPECT_EQ(m_object->GetExtent(DVASPECT_ICON, &read), DV_E_DVASPECT);
    SIZEL negative{-1, 5};
    EXPECT_EQ(m_object->SetExtent(DVASPECT_CONTENT, &negative), E_INVALIDARG);
    EXPECT_EQ(m_object->SetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(m_object->GetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
}

TEST_F(OleObjectTest, Advise_TellsTheEnd) {
    fw::ComPtr<CComObject<AdviseSink>> sink;
    ASSERT_EQ(CComObject<AdviseSink>::CreateInstance(nullptr, sink.Put()), S_OK);
    fw::ComPtr<IEnumSTATDATA> connections;
    EXPECT_EQ(m_object->EnumAdvise(connections.Put()), S_OK);
    EXPECT_FALSE(connections);
    EXPECT_EQ(m_object->Unadvise(1), OLE_E_NOCONNECTION);
    DWORD first = 0;
    DWORD second = 0;
    EXPECT_EQ(m_object->Advise(sink.Get(), &first), S_OK);
    EXPECT_EQ(m_object->Advise(sink.Get(), &second), S_OK);
    EXPECT_EQ(m_object->EnumAdvise(connections.Put()), S_OK);
    EXPECT_TRUE(connections);
    connections.Reset();
    EXPECT_EQ(m_object->Unadvise(first), S_OK);
    EXPECT_EQ(m_object->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_LOG("sink.OnClose");
    EXPECT_EQ(m_object->Unadvise(second), S_OK);
    EXPECT_EQ(m_object->Advise(nullptr, &first), E_POINTER);
    EXPECT_EQ(m_object->Advise(sink.Get(), nullptr), E_POINTER);
}

TEST_F(OleObjectTest, SiteIsGivenBack) {
    fw::ComPtr<IOleClientSite> site;
    EXPECT_EQ(m_object->GetClientSite(site.Put()), S_OK);
    EXPECT_EQ(site.Get(), static_cast<IOleClientSite*>(m_site.Get()));
    EXPECT_EQ(m_object->GetClientSite(nullptr), E_POINTER);
}

TEST_F(OleObjectTest, WhatAControlDoesNotDo_IsRefusedWithClearedResults) {
    IMoniker* moniker = reinterpret_cast<IMoniker*>(m_object.Get());
    EXPECT_EQ(m_object->GetMoniker(0, 0, &moniker), E_NOTIMPL);
    EXPECT_EQ(moniker, nullptr);
    EXPECT_EQ(m_object->SetMoniker(0, nullptr), E_NOTIMPL);
    EXPECT_EQ(m_object->InitFromData(nullptr, FALSE, 0), E_NOTIMPL);
    IDataObject* data = reinterpret_cast<IDataObject*>(m_object.Get());
    EXPECT_EQ(m_object->GetClipboardData(0, &data), E_NOTIMPL);
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(m_object->SetColorScheme(nullptr), E_NOTIMPL);
    EXPECT_EQ(m_object->SetHostNames(L"palette", nullptr), S_OK);
    EXPECT_EQ(m_object->Update(), S_OK);
    EXPECT_EQ(m_object->IsUpToDate(), S_OK);
}

TEST_F(OleObjectTest, OleControl_AnswersAndCounts) {
    const auto control = m_object.As<IOleControl>();
    CONTROLINFO info{};
    info.hAccel = reinterpret_cast<HACCEL>(this);
    EXPECT_EQ(control->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.cb, 24u);
    EXPECT_EQ(info.hAccel, nullptr);
    EXPECT_EQ(info.cAccel, 0);
    EXPECT_EQ(info.dwFlags, 0u);
    EXPECT_EQ(control->GetControlInfo(nullptr), E_POINTER);
    EXPECT_EQ(control->OnMnemonic(nullptr), S_OK);
    EXPECT_EQ(control->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
    EXPECT_LOG("row.OnAmbientPropertyChange -1");
    EXPECT_EQ(control->FreezeEvents(TRUE), S_OK);
    EXPECT_EQ(control->FreezeEvents(TRUE), S_OK);
    EXPECT_EQ(control->FreezeEvents(FALSE), S_OK);
    EXPECT_TRUE(m_row->AreEventsFrozen());
    EXPECT_EQ(control->FreezeEvents(FALSE), S_OK);
    EXPECT_EQ(control->FreezeEvents(FALSE), S_OK);
    EXPECT_FALSE(m_row->AreEventsFrozen());
}

TEST_F(OleObjectTest, Ambients_ComeFromTheSite) {
    OLE_COLOR color = 1;
    EXPECT_TRUE(FAILED(m_row->GetAmbientBackColor(color)));
    m_site->ambients[DISPID_AMBIENT_BACKCOLOR] = fw::Variant::FromLong(0x112233);
    m_site->ambients[DISPID_AMBIENT_FORECOLOR] = fw::Variant::FromString(L"no colour");
    EXPECT_EQ(m_row->GetAmbientBackColor(color), S_OK);
    EXPECT_EQ(color, 0x112233u);
    EXPECT_TRUE(FAILED(m_row->GetAmbientForeColor(color)));
    fw::ComPtr<IFont> font;
    EXPECT_TRUE(FAILED(m_row->GetAmbientFont(font)));
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<LPOLESTR>(L"Tahoma");
    description.cySize.int64 = 80000;
    fw::ComPtr<IFontDisp> offered;
    ASSERT_EQ(::OleCreateFontIndirect(&description, IID_IFontDisp, offered.PutVoid()), S_OK);
    m_site->ambients[DISPID_AMBIENT_FONT] = fw::Variant::FromDispatch(offered.Get());
    EXPECT_EQ(m_row->GetAmbientFont(font), S_OK);
    EXPECT_TRUE(fw::IsSameObject(font.Get(), offered.Get()));
}

TEST_F(OleObjectTest, Ambients_WithoutSite_Fail) {
    EXPECT_EQ(m_object->SetClientSite(nullptr), S_OK);
    fw::Variant value = fw::Variant::FromString(L"old");
    EXPECT_EQ(m_row->GetAmbientProperty(DISPID_AMBIENT_FONT, *value.Address()), E_FAIL);
    EXPECT_TRUE(value.IsEmpty());
}

}  // namespace
