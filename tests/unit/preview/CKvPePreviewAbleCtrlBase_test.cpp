#include "preview/CKvPePreviewAbleCtrlBase.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "refhost/editor/EditorState.h"
#include "refhost/editor/HostSession.h"
#include "tests/support/ExpectCalls.h"

namespace {

class PlainRow final : public CKvPePreviewAbleCtrlBase {
public:
    long Handle_OnListHover(UINT, WPARAM, LPARAM, BOOL&) override { return 0; }
};

class CKvPePreviewAbleCtrlBase_Updates : public ::testing::Test {
protected:
    kvhost::HostSession host;
    PlainRow row;
    int handled = 0;
    kvhost::Journal journal;
};

TEST_F(CKvPePreviewAbleCtrlBase_Updates, NothingRecords_LeavesTheEventToThePalette) {
    host->Editor().SetPreviewStarted(true);
    EXPECT_EQ(row.Handle_OnBeginPropertyUpdate(handled), 0);
    EXPECT_EQ(row.Handle_OnEndPropertyUpdate(handled), 0);
    EXPECT_EQ(handled, 0);
    EXPECT_CALLS(journal, "kvedIsLivePreviewRecording", "kvedIsLivePreviewRecording");
}

TEST_F(CKvPePreviewAbleCtrlBase_Updates, NothingRecords_LeavesTheFlagAlone) {
    handled = 7;
    EXPECT_EQ(row.Handle_OnBeginPropertyUpdate(handled), 0);
    EXPECT_EQ(row.Handle_OnEndPropertyUpdate(handled), 0);
    EXPECT_EQ(handled, 7);
}

TEST_F(CKvPePreviewAbleCtrlBase_Updates, HostRecords_BracketsThePreviewWithItsOwnMark) {
    host->Editor().SetPreviewRecording(true);
    EXPECT_EQ(row.Handle_OnBeginPropertyUpdate(handled), 0);
    EXPECT_EQ(handled, 1);
    EXPECT_EQ(host->Editor().OpenMarks(L"ZRB_CHGPROP_PREVIEW"), 1);

    handled = 0;
    EXPECT_EQ(row.Handle_OnEndPropertyUpdate(handled), 0);
    EXPECT_EQ(handled, 1);
    EXPECT_EQ(host->Editor().OpenMarks(), 0);
    EXPECT_CALLS(journal, "kvedIsLivePreviewRecording", "kvedSendModelessOperationStart ZRB_CHGPROP_PREVIEW",
                 "kvedIsLivePreviewRecording", "kvedSendModelessOperationEnded ZRB_CHGPROP_PREVIEW");
}

TEST(CKvPePreviewAbleCtrlBase, HasNoFields) {
    EXPECT_EQ(sizeof(CKvPePreviewAbleCtrlBase), sizeof(void*));
    EXPECT_TRUE(std::is_abstract_v<CKvPePreviewAbleCtrlBase>);
}

}  // namespace
