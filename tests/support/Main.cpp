#include <gtest/gtest.h>

#include <memory>

#include "framework/base/WindowsApi.h"
#include "tests/support/CrashReport.h"
#include "tests/support/LeakCheck.h"
#include "tests/support/WarmUp.h"

namespace {

// Fails each test that leaves a window, a GDI object or a registered count behind.
class LeakListener : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { m_before = std::make_unique<kvtest::LeakCheck>(); }

    void OnTestEnd(const testing::TestInfo&) override {
        EXPECT_EQ(m_before->Describe(), "");
        m_before.reset();
    }

    std::unique_ptr<kvtest::LeakCheck> m_before;
};

}  // namespace

int main(int argc, char** argv) {
    kvtest::InstallCrashReport();
    testing::InitGoogleTest(&argc, argv);
    // Two clicks of two tests on one place must not count as a double click.
    SetDoubleClickTime(1);
    if (FAILED(OleInitialize(nullptr))) {
        return EXIT_FAILURE;
    }
    kvtest::WarmUp();
    testing::UnitTest::GetInstance()->listeners().Append(new LeakListener);
    const int result = RUN_ALL_TESTS();
    OleUninitialize();
    return result;
}
