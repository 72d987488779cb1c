#pragma once

#include "tests/control/support/AvailableClass.h"

namespace kvtest {

/// How many objects a swept row stands for.
inline constexpr std::size_t c_sweptObjects = 3;

/// Where the row's value stands in each object: in the class's property, or in the custom attribute of that
/// name.
struct SweptProperty {
    const char* name;
    const wchar_t* attributes[c_sweptObjects];
    DISPID dispid = 0;  ///< instead of the class's property; 0 is none
};

/// A class over one of the properties that it can edit.
struct SweptRow {
    AvailableClass available;
    SweptProperty property;
    std::size_t index = 0;  ///< among all
};

/// Each class, and those that take typed texts over dynamic properties too: custom attributes are texts.
[[nodiscard]] std::vector<SweptRow> SweptRows();
/// Each class that shows texts over the properties whose dialogs edit texts, one that is given the objects
/// and one that is given their ids.
[[nodiscard]] std::vector<SweptRow> DialogRows();
/// Each class that takes typed texts over a dynamic property whose dialog tells something and writes nothing.
[[nodiscard]] std::vector<SweptRow> NoteDialogRows();

/// The class's scenario with the row's property.
[[nodiscard]] ClassScenario ScenarioOf(const SweptRow& row);

void PrintTo(const SweptRow& row, std::ostream* stream);

[[nodiscard]] std::string NameOfSweptRow(const ::testing::TestParamInfo<SweptRow>& row);

}  // namespace kvtest
