// Reads over selections of every size and kind, for the three outcomes of a read.

#include "tests/unit/core/ControlBench.h"

namespace {

using kvtest::c_property;
using kvtest::SelectionArrays;

enum class EntryKind { Dispid, DynamicByObject, DynamicById, Mixed };
enum class Outcome { Specific, VariesAtSecond, VariesAtLast, Unspecified };

struct ReadCase {
    int count;
    EntryKind kind;
    Outcome outcome;
};

class ReadSelections : public kvtest::ControlTest, public ::testing::WithParamInterface<ReadCase> {
protected:
    [[nodiscard]] int OddIndex() const {
        switch (GetParam().outcome) {
            case Outcome::VariesAtSecond:
                return 1;
            case Outcome::VariesAtLast:
                return GetParam().count - 1;
            default:
                return -1;
        }
    }

    void AddDispid(SelectionArrays& arrays, const std::wstring& name, const wchar_t* text) {
        kvhost::ScriptedObject& object = MakeObject(name.c_str(), text, kvhost::OffersUnspecified);
        object.At(c_property).unspecifiedAllowed = true;
        object.At(c_property).unspecified = GetParam().outcome == Outcome::Unspecified;
        object.At(c_property).unspecifiedText = L"none";
        arrays.Add(&object);
    }

    void AddDynamic(SelectionArrays& arrays, const std::wstring& name, const wchar_t* text, unsigned form) {
        kvhost::ScriptedDynamicProperty& property =
            MakeProperty((L"P" + name).c_str(), form | kvhost::OffersUnspecified);
        property.shared.Set(text);
        property.shared.unspecifiedAllowed = true;
        property.shared.unspecified = GetParam().outcome == Outcome::Unspecified;
        property.shared.unspecifiedText = L"none";
        arrays.AddDynamic(&MakeObject(name.c_str()), &property);
    }

    SelectionArrays Build() {
        SelectionArrays arrays;
        for (int index = 0; index < GetParam().count; ++index) {
            const std::wstring name = L"O" + std::to_wstring(index);
            const wchar_t* const text = index == OddIndex() ? L"other" : L"same";
            const EntryKind kind =
                GetParam().kind == EntryKind::Mixed ? static_cast<EntryKind>(index % 3) : GetParam().kind;
            if (kind == EntryKind::Dispid) {
                AddDispid(arrays, name, text);
            } else {
                AddDynamic(arrays, name, text,
                           kind == EntryKind::DynamicById ? kvhost::OffersById : kvhost::OffersByObject);
            }
        }
        return arrays;
    }

    // Objects whose value was asked for.
    [[nodiscard]] std::size_t ValuesRead() const {
        return kvtest::CallsOnly(journal, {"Invoke", "GetCurrentValueData"}).size();
    }
};

TEST_P(ReadSelections, Read_GivesOutcomeAndReadsUpToTheFirstDifference) {
    const ReadCase& parameter = GetParam();
    Select(Build());
    EXPECT_EQ(Read(), S_OK);
    const auto count = static_cast<std::size_t>(parameter.count);
    const bool several = parameter.count > 1;
    switch (parameter.outcome) {
        case Outcome::Specific:
            EXPECT_EQ(type, ValueType_Specific);
            EXPECT_EQ(ValueText(), L"same");
            EXPECT_EQ(ValuesRead(), count);
            EXPECT_EQ(control.comparisons, parameter.count - 1);
            break;
        case Outcome::VariesAtSecond:
        case Outcome::VariesAtLast:
            EXPECT_EQ(type, several ? ValueType_Varies : ValueType_Specific);
            EXPECT_EQ(ValueText(), several ? L"same" : OddIndex() == 0 ? L"other" : L"same");
            EXPECT_EQ(ValuesRead(), several ? static_cast<std::size_t>(OddIndex()) + 1 : 1U);
            break;
        case Outcome::Unspecified:
            EXPECT_EQ(type, ValueType_Unspecified);
            EXPECT_EQ(ValueText(), several ? L"*VARIES*" : L"none");
            EXPECT_EQ(control.m_unspecifiedText, L"none");
            EXPECT_EQ(ValuesRead(), 0U);
            EXPECT_EQ(control.comparisons, 0);
            break;
    }
}

std::vector<ReadCase> AllCases() {
    std::vector<ReadCase> cases;
    for (const int count : {1, 2, 3, 1000}) {
        for (const EntryKind kind :
             {EntryKind::Dispid, EntryKind::DynamicByObject, EntryKind::DynamicById, EntryKind::Mixed}) {
            for (const Outcome outcome :
                 {Outcome::Specific, Outcome::VariesAtSecond, Outcome::VariesAtLast, Outcome::Unspecified}) {
                cases.push_back({count, kind, outcome});
            }
        }
    }
    return cases;
}

INSTANTIATE_TEST_SUITE_P(CKvPeCtrlBase, ReadSelections, ::testing::ValuesIn(AllCases()));

}  // namespace
