#include "core/ModuleTexts.h"
#include "refhost/db/Settings.h"
#include "refhost/db/UndoController.h"
#include "refhost/testing/Faults.h"
#include "tests/support/DrawnText.h"
#include "tests/unit/lists/LayerBench.h"

// What stands in the list of a layer row, and when it is read.

namespace {

using Entries = std::vector<std::wstring>;
using kvhost::ColorValue;
using kvhost::Faults;
using kvhost::Layer;

class LayerList : public kvtest::LayerBench {
protected:
    LayerList() : entity(AddEntity(L"Doors")) { EXPECT_EQ(Select({entity}), S_OK); }
    ~LayerList() override { Faults::Reset(); }

    KvDbObjectId entity;
};

TEST_F(LayerList, Row_ShowsTheObjectsLayerAmongAllInTheirOrder) {
    EXPECT_TRUE(Row().m_bNeedsActiveDatabase);
    EXPECT_EQ(Row().m_tableId, Drawing().LayerTableId());
    EXPECT_EQ(Entries(), (::Entries{L"0", L"Doors", L"Trees", L"Walls"}));
    EXPECT_EQ(Row().m_nCurItem, 1);
    EXPECT_EQ(Row().m_strText, L"Doors");
    EXPECT_EQ(::GetDlgCtrlID(List().m_hWnd), 1002);
    EXPECT_EQ(List().GetStyle() & 0xFFFF, 0x0323U);
}

TEST_F(LayerList, EntriesKnowTheRowsColours) {
    EXPECT_EQ(shell->put_ForeColor(RGB(1, 2, 3)), S_OK);
    Edit();
    EXPECT_EQ(Item(L"Doors").data, RGB(1, 2, 3));
}

TEST_F(LayerList, NoWorkingDatabase_HasNoTableAndNoWindow) {
    Discard();
    host->Documents().CloseAll();
    kvtest::LayerRow row(nullptr, nullptr);
    EXPECT_TRUE(row.m_tableId.isNull());
    EXPECT_EQ(row.CreateComboWindow({0, 0, 10, 10}), E_FAIL);
    EXPECT_EQ(row.GetCurrentItem(), -1);
    EXPECT_EQ(row.SetSelectedItem(0), E_FAIL);
    EXPECT_EQ(row.BeginEdit({0, 0, 10, 10}), -1);
}

TEST_F(LayerList, WindowThatCannotBeMade_LeavesNone) {
    kvtest::LayerRow row(nullptr, nullptr);
    EXPECT_EQ(row.CreateComboWindow({0, 0, 10, 10}), E_FAIL) << "there is no parent";
    EXPECT_EQ(row.m_pComboList, nullptr);
}

TEST_F(LayerList, WindowThatIsThere_IsKept) {
    CComboLayer* const list = &List();
    EXPECT_EQ(Row().CreateComboWindow({0, 0, 10, 10}), S_OK);
    EXPECT_EQ(&List(), list);
}

TEST_F(LayerList, FrozenWithObjects_CanBeChosen_WithoutItIsFaint) {
    Freeze(L"Walls");
    Edit();
    EXPECT_FALSE(Item(L"Walls").disabled);
    EXPECT_EQ(SelectObjects({nullptr}, 102), E_FAIL);
    Row().m_state = EditState_Shown;
    Edit();
    EXPECT_TRUE(Item(L"Walls").disabled);
    EXPECT_FALSE(Item(L"Trees").disabled);
    EXPECT_EQ(Row().SetSelectedItem(IndexOf(L"Walls")), E_FAIL);
}

TEST_F(LayerList, ExternalLayer_IsAlwaysFaintAndRefused) {
    ChangeLayer(L"Walls", [](Layer& layer) { layer.SetExternal(true); });
    Edit();
    EXPECT_TRUE(Item(L"Walls").disabled);
    journal.Clear();
    EXPECT_EQ(Row().SetSelectedItem(IndexOf(L"Walls")), E_FAIL);
    EXPECT_NO_CALLS(journal);
    EXPECT_EQ(LayerOf(entity), L"Doors");
}

TEST_F(LayerList, Override_OfTheShownLayerComesWithTheNextRead_OfOthersWithTheNextOpening) {
    KvDbObjectId viewport;
    ASSERT_EQ(Drawing().AddViewport(L"Plan", viewport), Tolm::eOk);
    kvhost::ScopedOpen<kvhost::Settings>(Drawing().SettingsId(), KvDb::kForWrite)
        ->SetCurrentViewport(L"Plan");
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    const auto setOverrides = [&](const std::optional<ColorValue>& color) {
        for (const wchar_t* const name : {L"Doors", L"Walls"}) {
            ChangeLayer(name, [&](Layer& layer) { layer.SetOverrideColor(L"Plan", color); });
        }
        Row().m_pComboList->m_bFilled = true;  // as if the reactor had not heard
    };
    setOverrides(ColorValue::OfIndex(1));
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    EXPECT_TRUE(Item(L"Doors").hasViewportOverride);
    EXPECT_FALSE(Item(L"Walls").hasViewportOverride);
    Edit();
    EXPECT_TRUE(Item(L"Walls").hasViewportOverride);
    setOverrides(std::nullopt);
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    EXPECT_FALSE(Item(L"Doors").hasViewportOverride);
    EXPECT_TRUE(Item(L"Walls").hasViewportOverride);
}

TEST_F(LayerList, ModelWithoutViewport_ShowsNoOverride) {
    KvDbObjectId viewport;
    ASSERT_EQ(Drawing().AddViewport(L"Plan", viewport), Tolm::eOk);
    ChangeLayer(L"Doors", [](Layer& layer) { layer.SetOverrideColor(L"Plan", ColorValue::OfIndex(1)); });
    Edit();
    EXPECT_FALSE(Item(L"Doors").hasViewportOverride);
}

TEST_F(LayerList, LayerRenamedOrAdded_ShowsWithTheNextRead) {
    ChangeLayer(L"Trees", [](Layer& layer) { layer.SetName(L"Bushes"); });
    KvDbObjectId added;
    ASSERT_EQ(Drawing().AddLayer(L"Zones", added), Tolm::eOk);
    EXPECT_FALSE(Row().m_pComboList->m_bFilled);
    EXPECT_EQ(Entries(), (::Entries{L"0", L"Doors", L"Trees", L"Walls"})) << "nothing visible changes";
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    EXPECT_EQ(Entries(), (::Entries{L"0", L"Bushes", L"Doors", L"Walls", L"Zones"}));
    EXPECT_EQ(Row().m_nCurItem, 2);
    EXPECT_TRUE(Row().m_pComboList->m_bFilled);
}

TEST_F(LayerList, LayerErasedOrBroughtBack_MakesTheListStale) {
    ChangeLayer(L"Trees", [](Layer& layer) { layer.Erase(); });
    EXPECT_FALSE(Row().m_pComboList->m_bFilled);
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    EXPECT_EQ(Entries(), (::Entries{L"0", L"Doors", L"Walls"}));
    Drawing().Undo().UndoByUser(1);
    EXPECT_FALSE(Row().m_pComboList->m_bFilled);
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    EXPECT_EQ(Entries(), (::Entries{L"0", L"Doors", L"Trees", L"Walls"}));
}

TEST_F(LayerList, Opening_ReadsTheTableAnew) {
    const int before = List().GetCount();
    List().ResetContent();
    Row().m_pComboList->m_bFilled = true;
    Edit();
    EXPECT_EQ(List().GetCount(), before);
    EXPECT_EQ(List().GetCurSel(), 1);
}

TEST_F(LayerList, TableThatCannotBeRead_FailsToOpen) {
    Faults::FailService(L"kvdbOpenKvDbObject", 1);
    EXPECT_EQ(Row().BeginEdit(c_place), -1);
    EXPECT_EQ(Entries(), ::Entries());
    EXPECT_TRUE(Row().m_pComboList->m_bFilled) << "nobody looks again until the next opening";
    EXPECT_EQ(Row().FillList(), S_OK);
    EXPECT_EQ(Entries(), ::Entries());
}

TEST_F(LayerList, RecordsThatCannotBeOpenedOrNamed_AreLeftOut) {
    const auto fillWithout = [&](const wchar_t* service, std::size_t occurrence) {
        Faults::FailService(service, occurrence);
        Row().m_pComboList->m_bFilled = false;
        EXPECT_EQ(Row().FillList(), S_OK);
        Faults::Reset();
        return Entries();
    };
    EXPECT_EQ(fillWithout(L"getName", 2), (::Entries{L"0", L"Doors", L"Trees"}))
        << "Walls, in the first pass";
    EXPECT_EQ(fillWithout(L"getName", 7), (::Entries{L"0", L"Doors", L"Walls"})) << "Trees, in the second";
    EXPECT_EQ(fillWithout(L"kvdbOpenKvDbObject", 2), (::Entries{L"Doors", L"Trees", L"Walls"}));
    EXPECT_EQ(fillWithout(L"kvdbOpenKvDbObject", 9), (::Entries{L"0", L"Doors", L"Trees"}));
    EXPECT_EQ(fillWithout(L"getRecordId", 1), (::Entries{L"Doors", L"Trees", L"Walls"}));
    EXPECT_EQ(fillWithout(L"newIterator", 1), ::Entries());
}

TEST_F(LayerList, RecordOfAnotherClass_IsRefused) {
    EXPECT_EQ(Row().AddRecordItem(nullptr), E_FAIL);
}

// The reference host takes no two such names, so that one record comes from outside.
TEST_F(LayerList, NamesThatDifferInCase_AreTwoEntriesAndTheValueFindsItsOwn) {
    Layer capitals;
    ASSERT_EQ(capitals.SetName(L"DOORS"), Tolm::eOk);
    EXPECT_EQ(Row().AddRecordItem(&capitals), S_OK);
    EXPECT_EQ(List().GetCount(), 5);
    const fw::ComPtr<kvhost::ScriptedObject> object = kvhost::ScriptedObject::Make(L"A");
    object->At(5).Set(L"DOORS");
    EXPECT_EQ(SelectObjects({object.Get()}, 5), E_FAIL) << "a new list holds the drawing's layers alone";
    EXPECT_EQ(Row().AddRecordItem(&capitals), S_OK);
    EXPECT_EQ(Row().GetCurrentItem(), IndexOf(L"DOORS"));
    object->At(5).Set(L"Doors");
    EXPECT_EQ(Row().GetCurrentItem(), IndexOf(L"Doors"));
    EXPECT_NE(IndexOf(L"DOORS"), IndexOf(L"Doors"));
    fw::Ignore(Row().Cleanup());
}

TEST_F(LayerList, ValueThatIsNoText_OrNoLayer_IsNoEntry) {
    const fw::ComPtr<kvhost::ScriptedObject> object = kvhost::ScriptedObject::Make(L"A");
    object->At(5).Set(7L);
    EXPECT_EQ(SelectObjects({object.Get()}, 5), E_FAIL);
    EXPECT_EQ(Row().GetCurrentItem(), -1);
    object->At(5).Set(L"Nowhere");
    EXPECT_EQ(Row().GetCurrentItem(), -1);
    object->At(5).Set(L"doors");
    EXPECT_EQ(Row().GetCurrentItem(), -1) << "letter case counts";
    object->At(5).Set(L"Doors");
    EXPECT_EQ(Row().GetCurrentItem(), 1);
    fw::Ignore(Row().Cleanup());
}

TEST_F(LayerList, ObjectsOnDifferentLayers_ShowTheVariesEntryAtTheEnd) {
    EXPECT_EQ(Select({entity, AddEntity(L"Walls")}), S_OK);
    const std::wstring varies = VariesText().Std();
    EXPECT_EQ(Entries(), (::Entries{L"0", L"Doors", L"Trees", L"Walls", varies}));
    EXPECT_EQ(Row().m_nCurItem, 4);
    EXPECT_EQ(Row().m_strText, VariesText());
    Edit();
    EXPECT_EQ(Entries(), (::Entries{L"0", L"Doors", L"Trees", L"Walls", varies}));
    EXPECT_EQ(List().GetCurSel(), 4);
    EXPECT_EQ(Row().SetSelectedItem(4), E_FAIL);
    EXPECT_EQ(LayerOf(entity), L"Doors");
    EXPECT_EQ(Select({entity}), S_OK);
    EXPECT_EQ(Entries(), (::Entries{L"0", L"Doors", L"Trees", L"Walls"})) << "it goes with the difference";
}

TEST_F(LayerList, UnspecifiedProperty_HasItsEntryAtTheEnd) {
    const fw::ComPtr<kvhost::ScriptedObject> object =
        kvhost::ScriptedObject::Make(L"A", kvhost::OffersUnspecified);
    object->At(5).Set(L"Doors");
    object->At(5).unspecifiedText = L"none";
    object->At(5).unspecifiedAllowed = true;
    EXPECT_EQ(SelectObjects({object.Get()}, 5), S_OK);
    EXPECT_EQ(Entries(), (::Entries{L"0", L"Doors", L"Trees", L"Walls", L"none"}));
    object->At(5).unspecified = true;
    EXPECT_EQ(Row().GetCurrentItem(), 4);
    Edit();
    EXPECT_EQ(Row().SetSelectedItem(4), S_OK);
    EXPECT_EQ(kvtest::CallsOnly(journal, {"SetUnspecified", "Invoke A put"}),
              (kvtest::CallLines{"SetUnspecified A 5 -1"}));
    fw::Ignore(Row().Cleanup());
}

TEST_F(LayerList, IdleRow_ShowsTheChosenEntryItself) {
    Item(L"Doors").disabled = true;
    const auto draw = [&](HDC dc) {
        const RECTL bounds{0, 0, 100, 16};
        ATL_DRAWINFO info;
        info.hdcDraw = dc;
        info.prcBounds = &bounds;
        EXPECT_EQ(Row().Handle_OnDraw(info), S_OK);
    };
    std::vector<kvtest::DrawnText> drawn = kvtest::RecordText(draw);
    std::erase_if(drawn, [](const kvtest::DrawnText& text) { return text.text.empty(); });
    ASSERT_EQ(drawn.size(), 1U);
    EXPECT_EQ(drawn[0].text, L"Doors");
    EXPECT_NE(drawn[0].textColor, ::GetSysColor(COLOR_WINDOWTEXT)) << "as the entry draws itself";
    List().SetCurSel(-1);
    EXPECT_TRUE(kvtest::RecordText(draw).empty()) << "without a choice nothing is painted";
    fw::Ignore(Row().Cleanup());
    EXPECT_TRUE(kvtest::RecordText(draw).empty()) << "nor without a list";
}

TEST_F(LayerList, DrawingGoesFirst_TheListLeavesItsReactorAlone) {
    fw::Ignore(shell->Close(OLECLOSE_NOSAVE));
    CComboLayer* const list = new CComboLayer(&Drawing());
    host->Documents().CloseAll();
    journal.Clear();
    delete list;
    EXPECT_NO_CALLS(journal);
}

TEST_F(LayerList, ListGoesFirst_TakesItsReactorOff) {
    {
        const CComboLayer list(&Drawing());
        EXPECT_EQ(kvtest::CallsOnly(journal, {"addReactor"}), (kvtest::CallLines{"addReactor 1"}));
        journal.Clear();
    }
    EXPECT_CALLS(journal, "kvdbOpenKvDbObject 1 0", "removeReactor 1", "close 1");
    Faults::FailService(L"kvdbOpenKvDbObject", 1);
    { const CComboLayer unattached(&Drawing()); }
}

}  // namespace
