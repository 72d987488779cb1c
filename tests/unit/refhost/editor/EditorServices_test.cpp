#include "host_sdk/KvEdServices.h"

#include <gtest/gtest.h>

#include "framework/base/WindowsApi.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/EditorState.h"
#include "refhost/editor/HostSession.h"

namespace {

class EditorServices : public testing::Test {
protected:
    kvhost::HostSession m_session;
    kvhost::EditorState& m_editor = m_session->Editor();
};

TEST_F(EditorServices, ModelessMarks_NestByName) {
    kvedSendModelessOperationStart(L"ZRB_CHGPROP");
    kvedSendModelessOperationStart(L"ZRB_CHGPROP");
    kvedSendModelessOperationStart(L"ZRB_CHGLAYER");
    EXPECT_EQ(m_editor.OpenMarks(L"ZRB_CHGPROP"), 2);
    EXPECT_EQ(m_editor.OpenMarks(), 3);
    kvedSendModelessOperationEnded(L"ZRB_CHGPROP");
    kvedSendModelessOperationEnded(L"ZRB_CHGPROP");
    kvedSendModelessOperationEnded(L"ZRB_CHGLAYER");
    EXPECT_EQ(m_editor.OpenMarks(), 0);
    EXPECT_EQ(m_editor.LooseEnds(), 0);
    kvedSendModelessOperationEnded(L"ZRB_CHGSELECTION");
    EXPECT_EQ(m_editor.LooseEnds(), 1);
    EXPECT_EQ(m_editor.OpenMarks(), 0);
    kvedSendModelessOperationStart(nullptr);
    kvedSendModelessOperationEnded(nullptr);
    EXPECT_EQ(m_editor.OpenMarks(), 0);
}

TEST_F(EditorServices, Commands_AreAskedByTheirClasses) {
    EXPECT_FALSE(kvedIsInCommandStack(0xFFFFFFFF));
    m_editor.PushCommand(L"PROPERTIES", KVED_COMMAND_WRITES_PROPERTIES | 4);
    m_editor.PushCommand(L"ZOOM", 1);
    EXPECT_TRUE(kvedIsInCommandStack(KVED_COMMAND_WRITES_PROPERTIES));
    EXPECT_TRUE(kvedIsInCommandStack(1));
    EXPECT_FALSE(kvedIsInCommandStack(2));
    m_editor.PopCommand();
    EXPECT_FALSE(kvedIsInCommandStack(1));
    m_editor.PopCommand();
    m_editor.PopCommand();
    EXPECT_FALSE(kvedIsInCommandStack(KVED_COMMAND_WRITES_PROPERTIES));
}

TEST_F(EditorServices, DragAndPreview_AreAnsweredAsTheyStand) {
    EXPECT_FALSE(kvedIsDragging());
    EXPECT_FALSE(kvedIsLivePreviewStarted());
    EXPECT_FALSE(kvedIsLivePreviewRecording());
    m_editor.SetDragging(true);
    m_editor.SetPreviewStarted(true);
    EXPECT_TRUE(kvedIsDragging());
    EXPECT_TRUE(kvedIsLivePreviewStarted());
    EXPECT_FALSE(kvedIsLivePreviewRecording());
    m_editor.SetPreviewRecording(true);
    EXPECT_TRUE(kvedIsLivePreviewRecording());
}

TEST_F(EditorServices, UserBreak_CountsAndNeverGoesBelowZero) {
    kvedDisableUsrbrk();
    kvedDisableUsrbrk();
    kvedEnableUsrbrk();
    EXPECT_EQ(m_editor.UserBreakDisabled(), 1);
    kvedEnableUsrbrk();
    kvedEnableUsrbrk();
    EXPECT_EQ(m_editor.UserBreakDisabled(), 0);
    kvedDisableUsrbrk();
    EXPECT_EQ(m_editor.UserBreakDisabled(), 1);
}

TEST_F(EditorServices, Prompts_AreCounted) {
    kvedPostCommandPrompt();
    EXPECT_EQ(m_editor.PromptsPosted(), 1);
}

TEST_F(EditorServices, ApplicationObject_IsHandedOutWithAReference) {
    IUnknown* const original = m_session->ApplicationObject();
    m_session->SetApplicationObject(nullptr);
    EXPECT_EQ(kvedGetApplicationObject(), nullptr);
    struct Application final : IUnknown {
        ULONG references = 1;
        STDMETHODIMP QueryInterface(REFIID, void** object) override {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
        STDMETHODIMP_(ULONG) Release() override { return --references; }
    };
    Application application;
    m_session->SetApplicationObject(&application);
    EXPECT_EQ(kvedGetApplicationObject(), &application);
    EXPECT_EQ(application.references, 2U);
    m_session->SetApplicationObject(original);
}

TEST(EditorServicesWithoutHost, AnswerNo) {
    EXPECT_FALSE(kvedIsDragging());
    EXPECT_FALSE(kvedIsInCommandStack(0xFFFFFFFF));
    EXPECT_FALSE(kvedIsLivePreviewStarted());
    kvedSendModelessOperationStart(L"ZRB_CHGPROP");
    kvedSendModelessOperationEnded(L"ZRB_CHGPROP");
    kvedDisableUsrbrk();
    kvedEnableUsrbrk();
    kvedPostCommandPrompt();
    EXPECT_EQ(kvedGetApplicationObject(), nullptr);
}

}  // namespace
