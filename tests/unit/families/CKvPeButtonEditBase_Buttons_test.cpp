#include <cstring>
#include <iterator>

#include "families/ButtonBitmaps.h"
#include "resources/Ids.h"
#include "tests/support/PixelCanvas.h"
#include "tests/unit/families/ButtonBench.h"

namespace {

using kvtest::MakePicture;

// A pointer to a virtual operation holds one more than the distance of its slot.
template <class Operation>
std::ptrdiff_t SlotOf(Operation operation) {
    std::ptrdiff_t distance = 0;
    std::memcpy(&distance, &operation, sizeof distance);
    return (distance - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

TEST(ButtonRowSlots, Operations_StandInTheirOrder) {
    using Row = CKvPeButtonEditBase;
    const std::ptrdiff_t slots[] = {
        SlotOf(&Row::OnButtonCommand),    SlotOf(&Row::OnEditKillFocus),    SlotOf(&Row::OnDrawButton),
        SlotOf(&Row::GetDefaultPicture),  SlotOf(&Row::SetDefaultPicture),  SlotOf(&Row::GetDisabledPicture),
        SlotOf(&Row::SetDisabledPicture), SlotOf(&Row::OnCustomButton),     SlotOf(&Row::FormatValueText),
        SlotOf(&Row::GetCalculatorInput), SlotOf(&Row::SetCalculatorPoint), SlotOf(&Row::SetCalculatorResult),
        SlotOf(&Row::LaunchCalculator),   SlotOf(&Row::OnPickButton),
    };
    for (std::size_t index = 1; index < std::size(slots); ++index) {
        EXPECT_EQ(slots[index], slots[index - 1] + 1) << index;
    }
    EXPECT_GT(slots[0], SlotOf(&Row::Handle_GetPropertyIdentifier));
}

class ButtonRowButtons : public kvtest::ButtonBench {
protected:
    static CSize SizeOf(HBITMAP bitmap) {
        BITMAP info{};
        ::GetObjectW(bitmap, sizeof info, &info);
        return {info.bmWidth, info.bmHeight};
    }
    CustomButton& Record(int index) { return *row->m_buttons[index]; }
    // The picture's bitmap, which stands for what it shows.
    static HBITMAP BitmapOf(IPicture* picture) {
        OLE_HANDLE handle = 0;
        EXPECT_EQ(picture->get_Handle(&handle), S_OK);
        return reinterpret_cast<HBITMAP>(static_cast<ULONG_PTR>(handle));
    }
    static COLORREF PixelOf(HBITMAP bitmap, int x, int y) {
        const fw::MemoryDc dc(nullptr);
        const fw::ScopedSelect selected(dc, bitmap);
        return ::GetPixel(dc, x, y);
    }
};

TEST_F(ButtonRowButtons, AddButton_NoBitmaps_HasNoPictures) {
    row->AddButton(0, 0, c_first, true);
    EXPECT_EQ(Record(0).m_nId, c_first);
    EXPECT_TRUE(Record(0).m_bShowWhenReadOnly);
    EXPECT_FALSE(Record(0).m_hBitmap);
    EXPECT_FALSE(Record(0).m_pPicture);
    EXPECT_FALSE(Record(0).m_pDisabledPicture);
    EXPECT_FALSE(Record(0).m_pButton);
}

TEST_F(ButtonRowButtons, AddButton_BothBitmaps_MakesPicturesOfTheirSize) {
    row->AddButton(IDB_CALCULATOR, IDB_CALCULATOR_DISABLED, c_first, false);
    EXPECT_TRUE(Record(0).m_hBitmap);
    EXPECT_TRUE(Record(0).m_hDisabledBitmap);
    ASSERT_TRUE(Record(0).m_pPicture);
    ASSERT_TRUE(Record(0).m_pDisabledPicture);
    EXPECT_EQ(SizeOf(Record(0).m_hBitmap.Get()), CSize(13, 13));
    short type = 0;
    EXPECT_EQ(Record(0).m_pPicture->get_Type(&type), S_OK);
    EXPECT_EQ(type, PICTYPE_BITMAP);
    EXPECT_EQ(kvtest::ReferencesOf(Record(0).m_pPicture.Get()), 1u);
}

TEST_F(ButtonRowButtons, AddButton_FirstBitmapMissing_HasNoDisabledPictureEither) {
    row->AddButton(9999, IDB_CALCULATOR_DISABLED, c_first, false);
    EXPECT_FALSE(Record(0).m_pPicture);
    EXPECT_TRUE(Record(0).m_hDisabledBitmap);
    EXPECT_FALSE(Record(0).m_pDisabledPicture);
}

TEST_F(ButtonRowButtons, AddButton_Picture_OutlivesTheRowsBitmap) {
    row->AddButton(IDB_CALCULATOR, 0, c_first, false);
    const fw::ComPtr<IPicture> picture = Record(0).m_pPicture;
    const HBITMAP bitmap = BitmapOf(picture.Get());
    EXPECT_NE(bitmap, Record(0).m_hBitmap.Get());
    EXPECT_EQ(row->Cleanup(), S_OK);
    EXPECT_EQ(SizeOf(bitmap), CSize(13, 13));
    EXPECT_EQ(kvtest::ReferencesOf(picture.Get()), 1u);
}

TEST_F(ButtonRowButtons, Bitmaps_GroundIsTheSystemsFaceColour) {
    for (const unsigned id : {IDB_NO_EXPRESSION, IDB_MIXED_EXPRESSIONS, IDB_EXPRESSION, IDB_CALCULATOR,
                              IDB_CALCULATOR_DISABLED}) {
        const fw::UniqueBitmap bitmap = LoadButtonBitmap(id);
        ASSERT_TRUE(bitmap) << id;
        EXPECT_EQ(PixelOf(bitmap.Get(), 0, 0), ::GetSysColor(COLOR_3DFACE)) << id;
        EXPECT_NE(PixelOf(bitmap.Get(), 5, 4), ::GetSysColor(COLOR_3DFACE)) << id;
    }
}

TEST_F(ButtonRowButtons, Bitmaps_OnFinerScreens_AreDrawnInDoubleSize) {
    for (const unsigned id : {IDB_NO_EXPRESSION, IDB_MIXED_EXPRESSIONS, IDB_EXPRESSION, IDB_CALCULATOR,
                              IDB_CALCULATOR_DISABLED}) {
        EXPECT_EQ(SizeOf(LoadButtonBitmap(id, 96).Get()), CSize(13, 13)) << id;
        EXPECT_EQ(SizeOf(LoadButtonBitmap(id, 120).Get()), CSize(13, 13)) << id;
        EXPECT_EQ(SizeOf(LoadButtonBitmap(id, 144).Get()), CSize(26, 26)) << id;
        EXPECT_EQ(SizeOf(LoadButtonBitmap(id, 192).Get()), CSize(26, 26)) << id;
    }
    EXPECT_FALSE(LoadButtonBitmap(9999, 192));
}

TEST_F(ButtonRowButtons, SetButtonBitmaps_GivesTheButtonTheNewPictures) {
    row->AddButton(IDB_CALCULATOR, IDB_CALCULATOR_DISABLED, c_first, false);
    Open();
    const fw::ComPtr<IPicture> former = Record(0).m_pPicture;
    EXPECT_EQ(kvtest::ReferencesOf(former.Get()), 3u);  // ours, the record's and the button's
    row->SetButtonBitmaps(Record(0), IDB_EXPRESSION, 0);
    EXPECT_EQ(kvtest::ReferencesOf(former.Get()), 1u);
    EXPECT_EQ(kvtest::ReferencesOf(Record(0).m_pPicture.Get()), 2u);
    EXPECT_FALSE(Record(0).m_pDisabledPicture);
    EXPECT_FALSE(Record(0).m_hDisabledBitmap);
}

TEST_F(ButtonRowButtons, SetPickMode_AddsThePickButtonOnceAndChangesItsPictures) {
    row->SetPickMode(1);
    ASSERT_EQ(row->m_buttons.GetSize(), 1);
    EXPECT_EQ(Record(0).m_nId, KVPE_ID_PICK_BUTTON);
    EXPECT_TRUE(Record(0).m_bShowWhenReadOnly);
    const COLORREF noExpression = PixelOf(Record(0).m_hBitmap.Get(), 5, 4);
    EXPECT_EQ(PixelOf(Record(0).m_hDisabledBitmap.Get(), 5, 4), noExpression);
    row->SetPickMode(3);
    EXPECT_EQ(row->m_buttons.GetSize(), 1);
    EXPECT_NE(PixelOf(Record(0).m_hBitmap.Get(), 5, 4), noExpression);
    row->SetPickMode(2);
    EXPECT_NE(PixelOf(Record(0).m_hBitmap.Get(), 5, 4), noExpression);
    EXPECT_EQ(PixelOf(Record(0).m_hBitmap.Get(), 8, 7), noExpression);
}

TEST_F(ButtonRowButtons, SetPickMode_OtherModes_DoNothing) {
    row->SetPickMode(0);
    row->SetPickMode(4);
    row->SetPickMode(-1);
    EXPECT_EQ(row->m_buttons.GetSize(), 0);
    row->SetPickMode(1);
    const fw::ComPtr<IPicture> picture = Record(0).m_pPicture;
    row->SetPickMode(4);
    EXPECT_EQ(Record(0).m_pPicture, picture);
}

TEST_F(ButtonRowButtons, SetButtonTip_GoesToTheFirstLiveButtonWithTheId) {
    row->AddButton(0, 0, c_first, false);
    row->AddButton(0, 0, c_second, false);
    Open();
    row->SetButtonTip(L"tip", c_second);
    EXPECT_TRUE(Button(0)->GetTipText().IsEmpty());
    EXPECT_EQ(Button(1)->GetTipText(), L"tip");
    row->SetButtonTip(L"", c_second);
    EXPECT_EQ(Button(1)->GetTipText(), L"tip");
}

TEST_F(ButtonRowButtons, SetButtonTip_NoRecordOrNoWindow_DoesNothing) {
    row->SetButtonTip(L"tip", c_first);
    row->AddButton(0, 0, c_first, false);
    row->SetButtonTip(L"tip", c_first);
    EXPECT_NO_CALLS(journal);
}

TEST_F(ButtonRowButtons, SetButtonTipId_IsATextOfTheFirstButton) {
    row->AddButton(0, 0, c_second, false);
    row->AddButton(0, 0, c_first, false);
    Open();
    row->SetButtonTipId(IDS_VARIES_TEXT);
    EXPECT_TRUE(Button(0)->GetTipText().IsEmpty());
    EXPECT_EQ(Button(1)->GetTipText(), L"*VARIES*");
    row->SetButtonTipId(9999);
    EXPECT_EQ(Button(1)->GetTipText(), L"*VARIES*");
}

TEST_F(ButtonRowButtons, EnableButtons_ReachesEachLiveWindow) {
    row->AddButton(0, 0, c_first, false);
    row->AddButton(0, 0, c_second, false);
    row->EnableButtons(false);
    Open();
    EXPECT_TRUE(Button(0)->IsWindowEnabled());
    row->EnableButtons(false);
    EXPECT_FALSE(Button(0)->IsWindowEnabled());
    EXPECT_FALSE(Button(1)->IsWindowEnabled());
    EXPECT_FALSE(::GetUpdateRect(Button(0)->m_hWnd, nullptr, FALSE));
    row->EnableButtons(true);
    EXPECT_TRUE(Button(1)->IsWindowEnabled());
}

TEST_F(ButtonRowButtons, Pictures_AreThoseOfTheFirstRecord) {
    const auto picture = MakePicture(4, 4, RGB(1, 2, 3));
    const auto disabled = MakePicture(4, 4, RGB(3, 2, 1));
    row->AddButton(0, 0, c_first, false);
    row->AddButton(IDB_CALCULATOR, 0, c_second, false);
    EXPECT_EQ(row->SetDefaultPicture(picture.Get()), S_OK);
    EXPECT_EQ(row->SetDisabledPicture(disabled.Get()), S_OK);
    fw::ComPtr<IPicture> got;
    EXPECT_EQ(row->GetDefaultPicture(got.Put()), S_OK);
    EXPECT_EQ(got, picture);
    EXPECT_EQ(row->GetDisabledPicture(got.Put()), S_OK);
    EXPECT_EQ(got, disabled);
    EXPECT_NE(Record(1).m_pPicture, picture);
    EXPECT_EQ(kvtest::ReferencesOf(picture.Get()), 2u);
}

TEST_F(ButtonRowButtons, Pictures_WithoutRecord_AreNullAndForgotten) {
    const auto picture = MakePicture(4, 4, RGB(1, 2, 3));
    EXPECT_EQ(row->SetDefaultPicture(picture.Get()), S_OK);
    EXPECT_EQ(row->SetDisabledPicture(picture.Get()), S_OK);
    EXPECT_EQ(kvtest::ReferencesOf(picture.Get()), 1u);
    IPicture* got = picture.Get();
    EXPECT_EQ(row->GetDefaultPicture(&got), S_OK);
    EXPECT_EQ(got, nullptr);
    got = picture.Get();
    EXPECT_EQ(row->GetDisabledPicture(&got), S_OK);
    EXPECT_EQ(got, nullptr);
    EXPECT_EQ(row->GetDefaultPicture(nullptr), E_POINTER);
    EXPECT_EQ(row->GetDisabledPicture(nullptr), E_POINTER);
}

TEST_F(ButtonRowButtons, SetNumericDataType_TakesTheTypesThatRowsHave) {
    for (const auto type : {PE_TOLM_DISTANCE, PE_TOLM_ANGLE, PE_TOLM_NOUNITS, PE_TOLM_RAW_ANGLE}) {
        EXPECT_EQ(row->SetNumericDataType(type), S_OK);
        EXPECT_EQ(row->m_numericType, type);
    }
    for (const auto type : {PE_TOLM_OTHER, PE_TOLM_ANGLEPLUS360, PE_TOLM_RELATIVE_ANGLE}) {
        EXPECT_EQ(row->SetNumericDataType(type), E_FAIL);
        EXPECT_EQ(row->m_numericType, PE_TOLM_RAW_ANGLE);
    }
}

TEST_F(ButtonRowButtons, SetCalculatorMode_OnlyTheOneTruthAddsTheButton) {
    row->m_nButtonSide = 0;
    EXPECT_EQ(row->SetCalculatorMode(1), S_OK);
    EXPECT_EQ(row->m_buttons.GetSize(), 0);
    EXPECT_EQ(row->m_nButtonSide, 2);
    EXPECT_EQ(row->SetCalculatorMode(VARIANT_FALSE), S_OK);
    EXPECT_EQ(row->m_buttons.GetSize(), 0);
    row->m_nButtonSide = 1;
    EXPECT_EQ(row->SetCalculatorMode(VARIANT_TRUE), S_OK);
    ASSERT_EQ(row->m_buttons.GetSize(), 1);
    EXPECT_EQ(Record(0).m_nId, KVPE_ID_CALCULATOR_BUTTON);
    EXPECT_TRUE(Record(0).m_bShowWhenReadOnly);
    EXPECT_TRUE(Record(0).m_pDisabledPicture);
    EXPECT_EQ(row->m_nButtonSide, 1);
}

TEST_F(ButtonRowButtons, SetCalculatorMode_PropertyWithExpressions_AddsNone) {
    row->m_expressionState = ExpressionState_NoExpression;
    EXPECT_EQ(row->SetCalculatorMode(VARIANT_TRUE), S_OK);
    EXPECT_EQ(row->m_buttons.GetSize(), 0);
}

TEST_F(ButtonRowButtons, Array_IndexOutside_RaisesTheFrameworksException) {
    EXPECT_THROW(static_cast<void>(row->m_buttons[0]), CInvalidArgException);
    row->AddButton(0, 0, c_first, false);
    EXPECT_THROW(static_cast<void>(row->m_buttons[1]), CInvalidArgException);
    EXPECT_THROW(static_cast<void>(row->m_buttons[-1]), CInvalidArgException);
    EXPECT_NE(row->m_buttons[0], nullptr);
}

}  // namespace
