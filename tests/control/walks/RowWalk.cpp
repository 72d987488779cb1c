#include "tests/control/walks/RowWalk.h"

#include "host_sdk/KvEdServices.h"
#include "refhost/automation/LiveObject.h"
#include "refhost/testing/Answers.h"

namespace kvtest {
namespace {

constexpr unsigned c_seed = 20261121;

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

}  // namespace kvtest
