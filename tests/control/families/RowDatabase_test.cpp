#include "refhost/automation/PropertyRows.h"
#include "refhost/db/Layer.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/db/Text.h"
#include "tests/control/support/RowContainer.h"
#include "tests/control/support/UserInput.h"

namespace {

using kvhost::Database;
using kvhost::ScopedOpen;
using kvhost::Text;

// Rows over objects of a drawing: what stands in the database is what counts.
class RowDatabase : public kvtest::RowContainer {
protected:
    static constexpr DISPID c_textString = 231;

    Database& Drawing() { return document->GetDatabase(); }

    KvDbObjectId MakeText(const wchar_t* content) {
        auto text = std::make_unique<Text>();
        EXPECT_EQ(text->SetContent(content), Tolm::eOk);
        KvDbObjectId id;
        EXPECT_EQ(Drawing().AppendEntity(std::move(text), id), Tolm::eOk);
        texts.push_back(id);
        return id;
    }
    void LockLayerOf(KvDbObjectId entity) {
        KvDbObjectId layer;
        ASSERT_EQ(Drawing().AddLayer(L"locked", layer), Tolm::eOk);
        {
            const ScopedOpen<Text> text(entity, KvDb::kForWrite);
            ASSERT_EQ(text->SetLayerId(layer), Tolm::eOk);
        }
        const ScopedOpen<kvhost::Layer> opened(layer, KvDb::kForWrite);
        ASSERT_EQ(opened->SetLocked(true), Tolm::eOk);
    }
    /// A text row over all texts, in edit.
    void OpenRow() {
        Create(CLSID_KvPePropertyEditorText);
        std::vector<fw::ComPtr<IDispatch>> automation;
        std::vector<IDispatch*> selection;
        for (const KvDbObjectId id : texts) {
            automation.emplace_back();
            ASSERT_EQ(kvhost::GetAutomationObject(id, automation.back().Put()), S_OK);
            selection.push_back(automation.back().Get());
        }
        dispid = c_textString;
        ASSERT_EQ(InitEdit(selection), S_OK);
        UIActivate();
    }
    void Enter(const wchar_t* text) {
        kvtest::TypeText(text);
        kvtest::PressKey(VK_RETURN);
    }
    std::wstring Content(std::size_t index) const { return Database::PeekAs<Text>(texts[index])->Content(); }

    std::vector<KvDbObjectId> texts;
};

TEST_F(RowDatabase, EditOfThree_IsOneStepThatUndoTakesBack) {
    for (const wchar_t* content : {L"one", L"two", L"three"}) {
        MakeText(content);
    }
    Drawing().Undo().Clear();
    OpenRow();
    Enter(L"four");
    for (std::size_t index = 0; index < 3; ++index) {
        EXPECT_EQ(Content(index), L"four");
    }
    EXPECT_EQ(Drawing().Undo().UndoCount(), 1);
    EXPECT_EQ(Drawing().Undo().UndoByUser(1), Tolm::eOk);
    EXPECT_EQ(Content(0), L"one");
    EXPECT_EQ(Content(1), L"two");
    EXPECT_EQ(Content(2), L"three");
    EXPECT_EQ(control->Refresh(0), S_OK);
    EXPECT_NE(BoxText(), L"four");
    EXPECT_EQ(Drawing().Undo().RedoByUser(1), Tolm::eOk);
    EXPECT_EQ(Content(2), L"four");
}

TEST_F(RowDatabase, OneOnALockedLayer_RowIsReadOnly) {
    MakeText(L"one");
    MakeText(L"one");
    LockLayerOf(texts[1]);
    OpenRow();
    EXPECT_EQ(Box(), nullptr);
}

TEST_F(RowDatabase, LayerOfOneIsLockedMeanwhile_TheOthersChange) {
    MakeText(L"one");
    MakeText(L"one");
    OpenRow();
    LockLayerOf(texts[0]);
    Enter(L"four");
    EXPECT_EQ(Content(0), L"one");
    EXPECT_EQ(Content(1), L"four");
    EXPECT_EQ(Drawing().OpenCount(), 0);
    EXPECT_EQ(host->Editor().OpenMarks(), 0);
}

TEST_F(RowDatabase, ManyObjects_OneEditReachesAll) {
    constexpr std::size_t count = 300;
    for (std::size_t index = 0; index < count; ++index) {
        MakeText(L"same");
    }
    OpenRow();
    EXPECT_EQ(BoxText(), L"same");
    Enter(L"other");
    for (std::size_t index = 0; index < count; ++index) {
        ASSERT_EQ(Content(index), L"other");
    }
    EXPECT_EQ(BoxText(), L"other");
    EXPECT_EQ(Drawing().OpenCount(), 0);
}

TEST_F(RowDatabase, ObjectErasedMeanwhile_EditEndsInPeace) {
    MakeText(L"one");
    OpenRow();
    {
        const ScopedOpen<Text> text(texts[0], KvDb::kForWrite);
        ASSERT_EQ(text->Erase(), Tolm::eOk);
    }
    kvtest::TypeText(L"two");
    kvtest::PressKey(VK_RETURN);
    EXPECT_EQ(BoxText(), L"one") << "the refused text is taken back";
    EXPECT_EQ(host->Editor().OpenMarks(), 0);
}

}  // namespace
