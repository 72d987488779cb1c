#include "tests/control/walks/RowWalk.h"

#include <map>

#include "host_sdk/KvEdServices.h"
#include "refhost/automation/LiveObject.h"
#include "refhost/testing/Answers.h"

namespace kvtest {
namespace {

constexpr unsigned c_seed = 20261121;

struct Pair {
    std::string_view opening;
    std::string_view closing;
};

constexpr Pair c_pairs[] = {
    {"undoGroup 8", "undoGroup 16"},
    {"OnBeginPropertyUpdate", "OnEndPropertyUpdate"},
    {"OnBeginModal", "OnEndModal"},
    {"kvedDisableUsrbrk", "kvedEnableUsrbrk"},
    {"kvedSendModelessOperationStart ZRB_CHGPROP_PREVIEW",
     "kvedSendModelessOperationEnded ZRB_CHGPROP_PREVIEW"},
    {"kvedSendModelessOperationStart ZRB_CHGPROP", "kvedSendModelessOperationEnded ZRB_CHGPROP"},
    {"kvedSendModelessOperationStart ZRB_CHGLAYER", "kvedSendModelessOperationEnded ZRB_CHGLAYER"},
};

}  // namespace

RowWalk::RowWalk() : m_random(c_seed) {
    scenario.Arrange(document->GetDatabase());
    host->Editor().SetPaletteWindow(KVED_FIRST_PALETTE, frame);
}

RowWalk::~RowWalk() {
    Discard();
    kvhost::Answers::Reset();
    EXPECT_EQ(kvhost::LiveObject::Count(), 0);
    EXPECT_EQ(document->GetDatabase().OpenCount(), 0);
    EXPECT_EQ(host->Editor().UserBreakDisabled(), 0);
    EXPECT_EQ(host->Editor().OpenMarks(), 0);
}

int RowWalk::Below(int limit) {
    return std::uniform_int_distribution<int>(0, limit - 1)(m_random);
}

std::string RowWalk::Unpaired() const {
    std::map<std::string_view, int> open;
    for (const std::string& line : CallsOf(journal)) {
        for (const Pair& pair : c_pairs) {
            if (line.starts_with(pair.opening)) {
                ++open[pair.opening];
                break;
            }
            if (line.starts_with(pair.closing)) {
                if (--open[pair.opening] < 0) {
                    return line + " without its beginning";
                }
                break;
            }
        }
    }
    for (const auto& [opening, count] : open) {
        if (count != 0) {
            return std::string(opening) + " without its end";
        }
    }
    return {};
}

}  // namespace kvtest
