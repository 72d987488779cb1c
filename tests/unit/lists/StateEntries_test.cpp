#include "lists/StateEntries.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "framework/window/CWnd.h"
#include "lists/CComboLayer.h"

namespace {

class StateEntriesTest : public ::testing::Test {
protected:
    StateEntriesTest() {
        frame.Create(s_class, L"", WS_POPUP, {0, 0, 200, 200}, nullptr);
        list.Create({0, 0, 100, 100}, frame, CPeComboCustom::SortedStyle);
        for (const wchar_t* const name : {L"Walls", L"doors"}) {
            auto item = std::make_unique<COwnerDrawItem>();
            item->name = name;
            list.AddItem(std::move(item));
        }
    }
    ~StateEntriesTest() override {
        list.DestroyWindow();
        frame.DestroyWindow();
    }

    [[nodiscard]] std::vector<std::wstring> Entries() const {
        std::vector<std::wstring> texts;
        for (int i = 0; i < list.GetCount(); ++i) {
            texts.push_back(list.GetLBText(i).Std());
        }
        return texts;
    }

    using Texts = std::vector<std::wstring>;
    inline static const fw::WindowClass s_class{.name = L"KvTestStates"};
    CWnd frame;
    CComboLayer list{nullptr};
    StateEntries entries{list, [this](const wchar_t* text) { return list.FindItem(text); },
                         [] { return std::make_unique<COwnerDrawItem>(); }};
};

TEST_F(StateEntriesTest, Varies_StandsAtTheEndAndOnce) {
    entries.SyncVariesItem(true, L"*VARIES*");
    entries.SyncVariesItem(true, L"*VARIES*");
    EXPECT_EQ(Entries(), (Texts{L"doors", L"Walls", L"*VARIES*"}));
    EXPECT_EQ(COwnerDrawItem::FromRowData(list.GetItemObject(2))->name, L"*VARIES*");
    entries.SyncVariesItem(false, L"*VARIES*");
    entries.SyncVariesItem(false, L"*VARIES*");
    EXPECT_EQ(Entries(), (Texts{L"doors", L"Walls"}));
}

TEST_F(StateEntriesTest, VariesAtTheTop_GetsATwin) {
    list.ResetContent();
    entries.SyncVariesItem(true, L"*VARIES*");
    entries.SyncVariesItem(true, L"*VARIES*");
    EXPECT_EQ(Entries(), (Texts{L"*VARIES*", L"*VARIES*"}));
}

TEST_F(StateEntriesTest, Unspecified_IsFoundWithoutRegardToCase) {
    entries.SyncUnspecifiedItem(true, L"None");
    entries.SyncUnspecifiedItem(true, L"NONE");
    EXPECT_EQ(Entries(), (Texts{L"doors", L"Walls", L"None"})) << "the first form stays";
    entries.SyncUnspecifiedItem(false, L"none");
    EXPECT_EQ(Entries(), (Texts{L"doors", L"Walls"}));
    entries.SyncUnspecifiedItem(false, L"none");
    EXPECT_EQ(Entries(), (Texts{L"doors", L"Walls"}));
}

TEST_F(StateEntriesTest, UnspecifiedThatIsAValueToo_TakesItsPlace) {
    entries.SyncUnspecifiedItem(true, L"WALLS");
    EXPECT_EQ(Entries(), (Texts{L"doors", L"Walls"}));
}

TEST(CComboLayerFind, LetterCase_TellsNamesApart) {
    const fw::WindowClass windowClass{.name = L"KvTestFind"};
    CWnd frame;
    frame.Create(windowClass, L"", WS_POPUP, {0, 0, 200, 200}, nullptr);
    CComboLayer list(nullptr);
    ASSERT_TRUE(list.Create({0, 0, 100, 100}, frame, CPeComboCustom::Style));
    EXPECT_EQ(list.FindItem(L"walls"), -1) << "an empty list has no entry";
    for (const wchar_t* const name : {L"WALLS", L"other", L"walls", L"walls"}) {
        auto item = std::make_unique<COwnerDrawItem>();
        item->name = name;
        list.AddItem(std::move(item));
    }
    EXPECT_EQ(list.FindItem(L"walls"), 2) << "the first of two";
    EXPECT_EQ(list.FindItem(L"WALLS"), 0);
    EXPECT_EQ(list.FindItem(L"Walls"), -1);
    EXPECT_EQ(list.FindItem(L"wall"), -1);
    EXPECT_EQ(list.FindStringExact(-1, L"walls"), 0) << "the window alone does not tell them apart";
    list.DestroyWindow();
    frame.DestroyWindow();
}

}  // namespace
