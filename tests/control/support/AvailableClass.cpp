#include "tests/control/support/AvailableClass.h"

#include "tests/support/ExpectCalls.h"

namespace kvtest {

const std::vector<AvailableClass>& AvailableClasses() {
    static const std::vector<AvailableClass> classes = [] {
        std::vector<AvailableClass> available;
        for (const ClassRow& row : s_classRows) {
            if (row.state == "READY") {
                available.push_back({row, FindScenario(ToUtf8(row.name))});
            }
        }
        return available;
    }();
    return classes;
}

void PrintTo(const AvailableClass& row, std::ostream* stream) {
    *stream << row.scenario->coclass;
}

std::string NameOfClass(const ::testing::TestParamInfo<AvailableClass>& info) {
    return std::string(info.param.scenario->coclass);
}

}  // namespace kvtest
