// Null pointers to each method that takes one, in a new control and in a row that a user works in.

#include "refhost/testing/Answers.h"
#include "tests/control/support/AvailableClass.h"
#include "tests/control/support/ModuleLock.h"
#include "tests/control/support/RowContainer.h"

namespace {

class NullPointers : public kvtest::RowContainer,
                     public ::testing::WithParamInterface<kvtest::AvailableClass> {
protected:
    NullPointers() {
        scenario.Arrange(document->GetDatabase());
        Create(*GetParam().id);
    }
    ~NullPointers() override {
        Discard();
        kvhost::Answers::Reset();
        EXPECT_EQ(kvtest::AskModuleCanUnload(), S_OK);
    }

    void Activate() {
        kvhost::ScriptedObject& object = MakeObject(L"A", L"");
        scenario.Give(object, c_property, scenario.before);
        if (scenario.readsInWindow) {
            ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        }
        ASSERT_EQ(InitEdit({&object}), S_OK);
        ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        UIActivate();
    }

    const kvtest::ClassScenario& scenario = *GetParam().scenario;
};

TEST_P(NullPointers, ToTheRowsOwnInterface_AreRefused) {
    VARIANT_BOOL* const noFlag = nullptr;
    OLE_COLOR* const noColor = nullptr;
    IUnknown** const noObject = nullptr;
    EXPECT_EQ(control->InitEditControl(nullptr, nullptr, nullptr, 0), E_FAIL);
    EXPECT_EQ(control->get_KeepFocus(noFlag), E_POINTER);
    EXPECT_EQ(control->get_BackColor(noColor), E_POINTER);
    EXPECT_EQ(control->get_ForeColor(noColor), E_POINTER);
    EXPECT_EQ(control->get_ReadOnlyBackColor(noColor), E_POINTER);
    EXPECT_EQ(control->get_ReadOnlyForeColor(noColor), E_POINTER);
    EXPECT_EQ(control->get_Font(noObject), E_POINTER);
    EXPECT_EQ(control->put_Font(nullptr), E_POINTER);
    EXPECT_EQ(control->get_PropertyIdentifier(noObject), E_POINTER);
    EXPECT_EQ(control->put_PropertyIdentifier(nullptr), S_OK);
    EXPECT_EQ(control->SetValue(nullptr, 0), E_POINTER);
    EXPECT_EQ(control->LaunchDialog(nullptr, 0), E_UNEXPECTED);
    EXPECT_EQ(control->LaunchDialog(nullptr, 8), S_OK);
    EXPECT_TRUE(FAILED(control->QueryInterface(IID_IUnknown, nullptr)));
    EXPECT_TRUE(FAILED(control->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr)));
    EXPECT_TRUE(FAILED(control->GetTypeInfoCount(nullptr)));
    EXPECT_TRUE(FAILED(control->GetTypeInfo(0, 0, nullptr)));
    for (const DISPID id : {1, 2, 3, 4, 5, 6, -501, -512, -513, -2000, -2001, 12345}) {
        for (const WORD flags :
             {WORD{DISPATCH_METHOD}, WORD{DISPATCH_PROPERTYGET}, WORD{DISPATCH_PROPERTYPUT}}) {
            EXPECT_TRUE(FAILED(control->Invoke(id, IID_NULL, 0, flags, nullptr, nullptr, nullptr, nullptr)))
                << id;
        }
    }
}

TEST_P(NullPointers, ToTheOleObject_AreRefusedOrMeanNothing) {
    const auto object = As<IOleObject>();
    EXPECT_TRUE(FAILED(object->GetClientSite(nullptr)));
    EXPECT_TRUE(FAILED(object->GetUserClassID(nullptr)));
    EXPECT_TRUE(FAILED(object->GetExtent(DVASPECT_CONTENT, nullptr)));
    EXPECT_TRUE(FAILED(object->SetExtent(DVASPECT_CONTENT, nullptr)));
    EXPECT_TRUE(FAILED(object->GetMiscStatus(DVASPECT_CONTENT, nullptr)));
    EXPECT_TRUE(FAILED(object->Advise(nullptr, nullptr)));
    EXPECT_TRUE(FAILED(object->EnumAdvise(nullptr)));
    EXPECT_TRUE(FAILED(object->EnumVerbs(nullptr)));
    EXPECT_TRUE(FAILED(object->GetUserType(USERCLASSTYPE_FULL, nullptr)));
    EXPECT_TRUE(FAILED(object->GetMoniker(0, 0, nullptr)));
    EXPECT_TRUE(FAILED(object->GetClipboardData(0, nullptr)));
    EXPECT_TRUE(FAILED(object->SetMoniker(OLEWHICHMK_OBJREL, nullptr)));
    EXPECT_TRUE(FAILED(object->InitFromData(nullptr, TRUE, 0)));
    EXPECT_TRUE(FAILED(object->SetColorScheme(nullptr)));
    EXPECT_TRUE(FAILED(object->Unadvise(12345)));
    EXPECT_EQ(object->SetHostNames(nullptr, nullptr), S_OK);
    EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
    EXPECT_TRUE(FAILED(object->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr)));
}

TEST_P(NullPointers, ToControlAndQuickActivation_AreRefused) {
    EXPECT_TRUE(FAILED(As<IOleControl>()->GetControlInfo(nullptr)));
    EXPECT_TRUE(FAILED(As<IQuickActivate>()->QuickActivate(nullptr, nullptr)));
    EXPECT_TRUE(FAILED(As<IQuickActivate>()->GetContentExtent(nullptr)));
    EXPECT_TRUE(FAILED(As<IQuickActivate>()->SetContentExtent(nullptr)));
}

TEST_P(NullPointers, ToTheInPlaceObject_AreRefused) {
    const auto inPlace = As<IOleInPlaceObject>();
    EXPECT_TRUE(FAILED(inPlace->GetWindow(nullptr)));
    EXPECT_TRUE(FAILED(inPlace->SetObjectRects(nullptr, nullptr)));
}

TEST_P(NullPointers, ToConnectionPoints_AreRefused) {
    const auto points = As<IConnectionPointContainer>();
    EXPECT_TRUE(FAILED(points->EnumConnectionPoints(nullptr)));
    EXPECT_TRUE(FAILED(points->FindConnectionPoint(__uuidof(IKvPiPropertyEditEventsSink2), nullptr)));
    fw::ComPtr<IConnectionPoint> point;
    ASSERT_EQ(points->FindConnectionPoint(__uuidof(IKvPiPropertyEditEventsSink2), point.Put()), S_OK);
    EXPECT_TRUE(FAILED(point->Advise(nullptr, nullptr)));
    EXPECT_TRUE(FAILED(point->GetConnectionInterface(nullptr)));
    EXPECT_TRUE(FAILED(point->GetConnectionPointContainer(nullptr)));
    EXPECT_TRUE(FAILED(point->EnumConnections(nullptr)));
    EXPECT_TRUE(FAILED(point->Unadvise(12345)));
}

TEST_P(NullPointers, ToTheView_AreRefusedOrMeanNothing) {
    const auto view = As<IViewObjectEx>();
    EXPECT_TRUE(FAILED(
        view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0)));
    EXPECT_TRUE(FAILED(view->GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr)));
    EXPECT_TRUE(FAILED(view->Freeze(DVASPECT_CONTENT, -1, nullptr, nullptr)));
    EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, 0, nullptr), S_OK);
    EXPECT_EQ(view->GetAdvise(nullptr, nullptr, nullptr), S_OK) << "nothing is asked for";
    EXPECT_TRUE(FAILED(view->GetExtent(DVASPECT_CONTENT, -1, nullptr, nullptr)));
    EXPECT_TRUE(FAILED(view->GetViewStatus(nullptr)));
    EXPECT_TRUE(FAILED(view->GetRect(DVASPECT_CONTENT, nullptr)));
    EXPECT_TRUE(FAILED(view->QueryHitPoint(DVASPECT_CONTENT, nullptr, {}, 0, nullptr)));
    EXPECT_TRUE(FAILED(view->QueryHitRect(DVASPECT_CONTENT, nullptr, nullptr, 0, nullptr)));
    EXPECT_TRUE(FAILED(view->GetNaturalExtent(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr)));
}

TEST_P(NullPointers, ToTheFurtherInterfaces_AreRefused) {
    if (const auto pictures = As<IKvPeButtonEditCtrl>()) {
        EXPECT_EQ(pictures->get_DefaultPicture(nullptr), E_POINTER);
        EXPECT_EQ(pictures->get_DisabledPicture(nullptr), E_POINTER);
        EXPECT_EQ(pictures->put_DefaultPicture(nullptr), S_OK);
        EXPECT_EQ(pictures->put_DisabledPicture(nullptr), S_OK);
    }
    if (const auto elements = As<IKvPeVariantCtrl>()) {
        VARIANT noArray{};
        noArray.vt = VT_ARRAY | VT_I4;
        EXPECT_EQ(elements->SetDwCookies(noArray), E_FAIL);
        noArray.vt = VT_BYREF | VT_ARRAY | VT_I4;
        EXPECT_EQ(elements->SetDwCookies(noArray), E_FAIL);
    }
}

TEST_P(NullPointers, ToTheRowInEdit_AreRefusedOrMeanNothing) {
    Activate();
    const auto active = As<IOleInPlaceActiveObject>();
    EXPECT_TRUE(FAILED(active->GetWindow(nullptr)));
    EXPECT_EQ(active->TranslateAccelerator(nullptr), E_POINTER);
    EXPECT_EQ(active->ResizeBorder(nullptr, nullptr, TRUE), S_OK) << "a row has no tools";
    EXPECT_EQ(As<IOleControl>()->OnMnemonic(nullptr), S_OK) << "a row has no mnemonics";
    const auto windowless = As<IOleInPlaceObjectWindowless>();
    EXPECT_TRUE(FAILED(windowless->OnWindowMessage(WM_PAINT, 0, 0, nullptr)));
    EXPECT_TRUE(FAILED(windowless->GetDropTarget(nullptr)));
    EXPECT_TRUE(FAILED(windowless->SetObjectRects(nullptr, nullptr)));
    EXPECT_EQ(control->InitEditControl(nullptr, nullptr, nullptr, 0), E_FAIL);
    EXPECT_EQ(control->SetValue(nullptr, 0), E_POINTER);
    EXPECT_TRUE(
        SUCCEEDED(As<IOleObject>()->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr)));
    EXPECT_EQ(As<IOleObject>()->SetClientSite(nullptr), S_OK);
}

KV_FOR_EACH_AVAILABLE_CLASS(NullPointers);

}  // namespace
