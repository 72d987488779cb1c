#include "core/CannotModifyDialog.h"

#include "framework/window/CWnd.h"
#include "framework/window/MainWindow.h"
#include "refhost/testing/Answers.h"
#include "tests/support/FakeSite.h"
#include "tests/unit/core/ControlBench.h"

namespace {

class CannotModifyDialog : public kvtest::ControlTest {
protected:
    CannotModifyDialog() { fw::Ignore(kvhost::Answers::TakeShown()); }
    ~CannotModifyDialog() override { kvhost::Answers::Reset(); }
};

TEST_F(CannotModifyDialog, NoIdOrUnknownId_ReturnsCancelAndShowsNothing) {
    EXPECT_EQ(ShowCannotModifyDialog(nullptr, nullptr), 2);
    EXPECT_EQ(ShowCannotModifyDialog(L"ZRB.KvPEXCtl.NoSuchDialog", nullptr), 2);
    EXPECT_TRUE(kvhost::Answers::TakeShown().empty());
}

TEST_F(CannotModifyDialog, KnownId_IsShownAndItsButtonReturned) {
    kvhost::Answers::QueueButton(IDOK);
    EXPECT_EQ(ShowCannotModifyDialog(L"ZRB.KvPEXCtl.CannotModifyProperty", nullptr), IDOK);
    EXPECT_EQ(kvhost::Answers::TakeShown().size(), 1U);
}

TEST_F(CannotModifyDialog, Refusal_IsOwnedByTheFrameElseByTheMainWindow) {
    const fw::WindowClass windowClass{.name = L"KvTestRefusalFrame"};
    CWnd frame;
    frame.Create(windowClass, L"frame", WS_POPUP, {0, 0, 10, 10}, nullptr);
    CWnd mainWindow;
    mainWindow.Create(windowClass, L"main", WS_POPUP, {0, 0, 10, 10}, nullptr);
    const auto site = kvtest::FakeSite::Make(frame, RECT{0, 0, 10, 10});
    const auto owners = [&] { return kvtest::CallsOnly(journal, {"LzTaskDialog"}); };
    ShowEditRefusedDialog(control);
    EXPECT_CALLS(owners(), "LzTaskDialog ZRB.KvPEXCtl.CannotModifyProperty null");
    fw::SetMainWindow(mainWindow);
    journal.Clear();
    ShowEditRefusedDialog(control);
    EXPECT_CALLS(owners(), "LzTaskDialog ZRB.KvPEXCtl.CannotModifyProperty main");
    shell.site = site.Get();
    journal.Clear();
    ShowEditRefusedDialog(control);
    EXPECT_CALLS(owners(), "LzTaskDialog ZRB.KvPEXCtl.CannotModifyProperty frame");
    fw::SetMainWindow(nullptr);
    EXPECT_EQ(kvhost::Answers::TakeShown().size(), 3U);
    EXPECT_TRUE(frame.IsWindow());
}

}  // namespace
