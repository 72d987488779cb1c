// Seeded numbers in a row, in every unit format and precision: what is left alone, what is typed, and what is
// refused.
#include "framework/window/CWnd.h"
#include "host_sdk/KvDbUnits.h"
#include "tests/support/MessagePump.h"
#include "tests/support/Rounds.h"
#include "tests/support/RowWarmUp.h"
#include "tests/support/SeededNumber.h"
#include "tests/support/WarmUp.h"
#include "tests/unit/numeric/NumericBench.h"

namespace {

using kvtest::SelectionArrays;

const int c_numbers = kvtest::Rounds(1'000, 1'000'000);

const kvtest::WarmUpStep s_rows(&kvtest::WarmUpRows);

struct NumberKind {
    KvPeNumericType type;
    const wchar_t* format;
    const wchar_t* precision;
    int firstFormat;
    int (*toText)(double, int, int, wchar_t*);
    int (*toNumber)(const wchar_t*, int, double*);
    int mode;
};

constexpr NumberKind c_kinds[] = {
    {PE_TOLM_DISTANCE, L"LUNITS", L"LUPREC", 1, kvdbRToS, kvdbDisToF, -1},
    {PE_TOLM_ANGLE, L"AUNITS", L"AUPREC", 0, kvdbAngToS, kvdbAngToF, -1},
    {PE_TOLM_RAW_ANGLE, L"AUNITS", L"AUPREC", 0, kvdbRawAngToS, kvdbRawAngToF, -1},
    {PE_TOLM_NOUNITS, L"LUNITS", L"LUPREC", 1, kvdbRToS, kvdbDisToF, 2},
};
constexpr int c_formats = 5;
constexpr int c_precisions = 9;
constexpr int c_ways = static_cast<int>(std::size(c_kinds)) * c_formats * c_precisions;

class OpenRow : public CPropertyEditorTOLMNumeric {
public:
    using CPropertyEditorTOLMNumeric::CPropertyEditorTOLMNumeric;
    using CPropertyEditorTOLMNumeric::m_edit;
    using CPropertyEditorTOLMNumeric::m_text;
};

class NumberRounds : public kvtest::NumberRowTest<OpenRow> {
protected:
    NumberRounds() {
        window.Create(s_windowClass, L"bench", WS_POPUP | WS_VISIBLE, {100, 100, 300, 120}, nullptr);
        shell.window = window.m_hWnd;
        EXPECT_EQ(SelectionArrays().Add(&MakeNumber(L"A", 1)).Init(row), S_OK);
        EXPECT_EQ(row.BeginEdit({0, 0, 200, 20}), S_OK);
        kvtest::PumpWaiting();
    }
    ~NumberRounds() override { EXPECT_EQ(row.Cleanup(), S_OK); }

    void TakeWay(int way) {
        kind = &c_kinds[way / (c_formats * c_precisions)];
        EXPECT_EQ(row.SetNumericDataType(kind->type), S_OK);
        SetVariable(kind->format, kind->firstFormat + way / c_precisions % c_formats);
        SetVariable(kind->precision, way % c_precisions);
    }
    /// What the host writes of a number, as the row does.
    CString TextOf(double number) const {
        wchar_t text[KVDB_NUMBER_TEXT_SIZE]{};
        kind->toText(number, kind->mode, -1, text);
        return text;
    }
    bool IsNumber(const CString& text, double& number) const {
        return kind->toNumber(text, kind->mode, &number) == KVED_RTNORM;
    }
    void Show(double number) {
        FirstValue().Set(number);
        EXPECT_EQ(row.Handle_Refresh(), S_OK);
        FirstValue().puts.clear();
        journal.Clear();
    }
    /// The text between blanks of nothing, a stray letter or mark in it, or another text behind it.
    CString Mistyped(const CString& text) {
        static constexpr wchar_t c_strays[] = L"abcxyzNSEWdgr?*#&'\"-+.,/ 0";
        const int place = static_cast<int>(random() % static_cast<unsigned>(text.GetLength() + 1));
        const wchar_t stray[] = {c_strays[random() % (std::size(c_strays) - 1)], L'\0'};
        return text.Left(place) + stray + text.Mid(place);
    }
    static std::string Spelled(const CString& text) { return kvtest::ToUtf8(std::wstring(text.View())); }
    CString BoxText() const { return row.m_edit->GetWindowText(); }
    /// Leaves the row with this text in its box; true when that led to a write.
    bool Enter(const CString& text) {
        row.m_edit->SetWindowText(text);
        EXPECT_EQ(row.EndEdit(), S_OK);
        return !FirstValue().puts.empty();
    }
    void ForgetTheWrites() {
        Drawing().Undo().Clear();
        journal.Clear();
    }

    inline static const fw::WindowClass s_windowClass{.name = L"KvTestNumberRounds"};
    CWnd window;
    const NumberKind* kind = nullptr;
    std::mt19937_64 random{19910825};
};

TEST_F(NumberRounds, Untouched_WritesNothingAndMistyped_IsReadByTheHostOrTakenBack) {
    int refused = 0;
    int taken = 0;
    for (int round = 0; round < c_numbers && !HasFailure(); ++round) {
        TakeWay(round % c_ways);
        const double number = kvtest::SeededNumber(random);
        Show(number);
        const CString shown = TextOf(number);
        ASSERT_EQ(BoxText(), shown) << number;
        ASSERT_FALSE(Enter(shown)) << Spelled(shown);

        const CString typed = Mistyped(shown);
        double meant = 0;
        const bool isNumber = IsNumber(typed, meant);
        ASSERT_EQ(Enter(typed), isNumber) << Spelled(typed);
        ASSERT_EQ(BoxText(), isNumber ? TextOf(meant) : shown) << Spelled(typed);
        ASSERT_EQ(row.m_text, BoxText()) << Spelled(typed);
        if (isNumber) {
            ASSERT_EQ(FirstValue().Get().dblVal, meant) << Spelled(typed);
        }
        (isNumber ? taken : refused) += 1;
        ForgetTheWrites();
    }
    EXPECT_GT(refused, c_numbers / 4);
    EXPECT_GT(taken, c_numbers / 20);
}

TEST_F(NumberRounds, OwnTextTypedAnew_IsShownTheSame) {
    for (int round = 0; round < c_numbers && !HasFailure(); ++round) {
        TakeWay(round % c_ways);
        const double number = kvtest::SeededNumber(random);
        Show(number);
        const CString shown = BoxText();
        if (shown.IsEmpty()) {
            continue;  // infinities have no text
        }
        row.m_text = L"another";
        ASSERT_TRUE(Enter(shown)) << Spelled(shown);
        ASSERT_EQ(BoxText(), shown) << number;
        ForgetTheWrites();
    }
}

}  // namespace
