#include "refhost/editor/LivePreview.h"

#include <gtest/gtest.h>

#include <functional>

#include "host_sdk/KvEdServices.h"
#include "host_sdk/KvRxVariablesDictionary.h"
#include "refhost/db/DrawingFile.h"
#include "refhost/db/Line.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/EditorState.h"
#include "refhost/editor/HostSession.h"
#include "refhost/editor/LivePreviewContexts.h"
#include "refhost/editor/SystemVariables.h"
#include "refhost/testing/Faults.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/MessagePump.h"
#include "tests/unit/refhost/db/SampleDrawing.h"

namespace {

using kvhost::ScopedOpen;

/// An action that does what a test gives it; counts those that live.
class TestAction final : public KvEdLivePreviewAction {
public:
    explicit TestAction(std::function<Tolm::ErrorStatus()> work) : m_work(std::move(work)) { ++s_living; }
    TestAction(const TestAction&) = delete;
    TestAction& operator=(const TestAction&) = delete;
    ~TestAction() override { --s_living; }

    Tolm::ErrorStatus Execute() override { return m_work(); }
    int Reserved() override { return 0; }

    static inline int s_living = 0;

private:
    std::function<Tolm::ErrorStatus()> m_work;
};

class LivePreview : public testing::Test {
protected:
    LivePreview() : m_before(kvhost::QdfContent(m_document.GetDatabase())) {}
    ~LivePreview() override {
        kvhost::Faults::Reset();
        m_session->Documents().CloseAll();
        EXPECT_EQ(TestAction::s_living, 0);
    }

    /// An action that writes the description, asking the host whether it records.
    TestAction* Describing(const wchar_t* text, Tolm::ErrorStatus status = Tolm::eOk) {
        return new TestAction([this, text, status] {
            m_recordedAtRun = kvedIsLivePreviewRecording();
            ScopedOpen<kvhost::Line>(m_line, KvDb::kForWrite)->SetDescription(text);
            return status;
        });
    }
    void Queue(TestAction* action) { KvEdLivePreview(&m_document, false).queueAction(action); }
    [[nodiscard]] std::wstring Shown() const {
        return kvhost::Database::PeekAs<kvhost::Line>(m_line)->Description();
    }
    void ExpectTrueDrawing() { EXPECT_EQ(kvhost::QdfContent(m_document.GetDatabase()), m_before); }

    kvhost::HostSession m_session;
    kvhost::Document& m_document = m_session->Documents().New();
    KvDbObjectId m_line = kvtest::AppendNew<kvhost::Line>(m_document.GetDatabase());
    std::string m_before;
    bool m_recordedAtRun = false;
};

TEST_F(LivePreview, QueuedAction_RunsFromTheMessageLoopAndShows) {
    Queue(Describing(L"shown"));
    EXPECT_TRUE(kvedIsLivePreviewStarted());
    EXPECT_FALSE(kvedIsLivePreviewRecording());
    EXPECT_EQ(Shown(), L"") << "the action does not run within queueAction";
    kvtest::PumpWaiting();
    EXPECT_EQ(Shown(), L"shown");
    EXPECT_TRUE(m_recordedAtRun);
    EXPECT_FALSE(kvedIsLivePreviewRecording());
    EXPECT_TRUE(kvedIsLivePreviewStarted());
    EXPECT_EQ(TestAction::s_living, 0) << "the host deletes what it ran";
    KvEdLivePreview(&m_document, true).endPreview();
    EXPECT_FALSE(kvedIsLivePreviewStarted());
    ExpectTrueDrawing();
}

TEST_F(LivePreview, AbortAll_DropsTheQueueAndTakesBackButStaysStarted) {
    Queue(Describing(L"first"));
    kvtest::PumpWaiting();
    Queue(Describing(L"second"));
    KvEdLivePreview(&m_document, false).abortAll();
    ExpectTrueDrawing();
    EXPECT_EQ(TestAction::s_living, 0);
    kvtest::PumpWaiting();
    ExpectTrueDrawing();
    EXPECT_TRUE(kvedIsLivePreviewStarted());
}

TEST_F(LivePreview, FailedAction_LeavesNothingBehind) {
    Queue(Describing(L"shown", Tolm::eNotAllowed));
    kvtest::PumpWaiting();
    EXPECT_TRUE(m_recordedAtRun);
    ExpectTrueDrawing();
    EXPECT_TRUE(kvedIsLivePreviewStarted());
}

TEST_F(LivePreview, BetweenStartAndEndRecording_ActionsWait) {
    KvEdLivePreview preview(&m_document, false);
    preview.startRecording();
    preview.queueAction(Describing(L"first"));
    preview.queueAction(Describing(L"second"));
    kvtest::PumpWaiting();
    EXPECT_EQ(Shown(), L"");
    preview.endRecording();
    kvtest::PumpWaiting();
    EXPECT_EQ(Shown(), L"second");
    EXPECT_EQ(m_session->Preview().RunActions(), 2);
    preview.endPreview(0, true);
    ExpectTrueDrawing();
}

TEST_F(LivePreview, ActionThatEndsItsOwnPreview_IsTakenBackAfterIt) {
    Queue(new TestAction([this] {
        ScopedOpen<kvhost::Line>(m_line, KvDb::kForWrite)->SetDescription(L"shown");
        KvEdLivePreview(&m_document, true).endPreview();
        EXPECT_TRUE(kvedIsLivePreviewStarted());
        return Tolm::eOk;
    }));
    kvtest::PumpWaiting();
    EXPECT_FALSE(kvedIsLivePreviewStarted());
    ExpectTrueDrawing();
}

TEST_F(LivePreview, ActionThatAborts_IsTakenBackAfterIt) {
    Queue(new TestAction([this] {
        ScopedOpen<kvhost::Line>(m_line, KvDb::kForWrite)->SetDescription(L"shown");
        KvEdLivePreview(&m_document, true).abortAll();
        return Tolm::eOk;
    }));
    kvtest::PumpWaiting();
    EXPECT_TRUE(kvedIsLivePreviewStarted());
    ExpectTrueDrawing();
}

TEST_F(LivePreview, LoopWithinAnAction_RunsNoOther) {
    Queue(new TestAction([this] {
        Queue(Describing(L"inner"));
        kvtest::PumpWaiting();
        EXPECT_EQ(Shown(), L"");
        return Tolm::eOk;
    }));
    kvtest::PumpWaiting();
    EXPECT_EQ(Shown(), L"inner");
}

TEST_F(LivePreview, BusyDocument_DropsTheAction) {
    m_document.SetQuiescent(false);
    Queue(Describing(L"shown"));
    kvtest::PumpWaiting();
    ExpectTrueDrawing();
    m_document.SetQuiescent(true);
    m_session->Editor().SetDragging(true);
    Queue(Describing(L"shown"));
    kvtest::PumpWaiting();
    ExpectTrueDrawing();
    m_session->Editor().SetDragging(false);
    EXPECT_EQ(m_session->Preview().RunActions(), 0);
    EXPECT_EQ(TestAction::s_living, 0);
}

TEST_F(LivePreview, AnotherDocumentCurrent_DropsTheAction) {
    kvhost::Document& other = m_session->Documents().New();
    Queue(Describing(L"shown"));
    m_session->Documents().SetCurrent(&other);
    kvtest::PumpWaiting();
    ExpectTrueDrawing();
}

TEST_F(LivePreview, ActionOnAnotherDocument_EndsThePreviewOfTheFirst) {
    Queue(Describing(L"shown"));
    kvtest::PumpWaiting();
    kvhost::Document& other = m_session->Documents().New();
    KvEdLivePreview(&other, false).queueAction(new TestAction([] { return Tolm::eOk; }));
    ExpectTrueDrawing();
    EXPECT_TRUE(kvedIsLivePreviewStarted());
    KvEdLivePreview(&m_document, true).endPreview();
    EXPECT_TRUE(kvedIsLivePreviewStarted()) << "the first document has no preview any more";
    KvEdLivePreview(&other, true).endPreview();
    EXPECT_FALSE(kvedIsLivePreviewStarted());
}

TEST_F(LivePreview, DocumentCloses_EndsItsPreview) {
    Queue(Describing(L"shown"));
    kvtest::PumpWaiting();
    Queue(Describing(L"again"));
    m_session->Documents().Close(&m_document);
    EXPECT_FALSE(kvedIsLivePreviewStarted());
    EXPECT_EQ(TestAction::s_living, 0);
    kvtest::PumpWaiting();
}

TEST_F(LivePreview, NoDocument_DoesNothing) {
    KvEdLivePreview preview(nullptr, true);
    preview.queueAction(Describing(L"shown"));
    preview.queueAction(nullptr);
    preview.abortAll();
    preview.startRecording();
    preview.endRecording();
    preview.endPreview();
    preview.endPreview(0, false);
    EXPECT_FALSE(kvedIsLivePreviewStarted());
    EXPECT_EQ(TestAction::s_living, 0);
}

TEST_F(LivePreview, EachCall_WritesItsJournalLine) {
    const kvhost::Journal journal;
    KvEdLivePreview preview(&m_document, false);
    preview.abortAll();
    preview.startRecording();
    preview.queueAction(new TestAction([] { return Tolm::eOk; }));
    preview.endRecording();
    kvtest::PumpWaiting();
    preview.endPreview();
    preview.endPreview(0, true);
    EXPECT_CALLS(journal, "KvEdLivePreview 0", "abortAll", "startRecording", "queueAction", "endRecording",
                 "runPreviewAction", "endPreview", "endPreview 0 1");
}

TEST_F(LivePreview, Faults_KeepTheActionsFromRunningButNotFromEnding) {
    kvhost::Faults::FailService(L"queueAction", 1);
    Queue(Describing(L"shown"));
    EXPECT_FALSE(kvedIsLivePreviewStarted());
    EXPECT_EQ(TestAction::s_living, 0);
    kvhost::Faults::FailService(L"runPreviewAction", 1);
    Queue(Describing(L"shown"));
    kvtest::PumpWaiting();
    ExpectTrueDrawing();
    Queue(Describing(L"shown"));
    kvtest::PumpWaiting();
    kvhost::Faults::FailService(L"abortAll", 1);
    KvEdLivePreview(&m_document, true).abortAll();
    ExpectTrueDrawing();
    kvhost::Faults::FailService(L"endPreview", 1);
    KvEdLivePreview(&m_document, true).endPreview(0, false);
    EXPECT_FALSE(kvedIsLivePreviewStarted());
}

TEST_F(LivePreview, SavingWhileShown_SavesTheTrueDrawing) {
    Queue(Describing(L"shown"));
    kvtest::PumpWaiting();
    const std::wstring path = L"preview.qdf";
    EXPECT_EQ(m_document.SaveAs(path), L"");
    const kvhost::DrawingReadResult saved = kvhost::ReadDrawing(path);
    ::DeleteFileW(path.c_str());
    ASSERT_NE(saved.database, nullptr);
    EXPECT_EQ(kvhost::QdfContent(*saved.database), m_before);
}

TEST_F(LivePreview, Palettes_AreTheWindowsThatWereRegistered) {
    EXPECT_EQ(kvedGetPaletteWnd(KVED_FIRST_PALETTE), nullptr);
    m_session->Editor().SetPaletteWindow(KVED_SECOND_PALETTE, ::GetDesktopWindow());
    EXPECT_EQ(kvedGetPaletteWnd(KVED_FIRST_PALETTE), nullptr);
    EXPECT_EQ(kvedGetPaletteWnd(KVED_SECOND_PALETTE), ::GetDesktopWindow());
}

TEST_F(LivePreview, Variables_AreReadAsTruth) {
    EXPECT_TRUE(KvRxVariablesDictionary::getBool(L"propertypreview", false)) << "on from the start";
    m_session->Variables().Set(L"PROPERTYPREVIEW", 0);
    EXPECT_FALSE(KvRxVariablesDictionary::getBool(L"PROPERTYPREVIEW", true));
    EXPECT_TRUE(KvRxVariablesDictionary::getBool(L"NOSUCH", true));
    EXPECT_FALSE(KvRxVariablesDictionary::getBool(L"NOSUCH", false));
    EXPECT_TRUE(KvRxVariablesDictionary::getBool(L"CLAYER", true)) << "a text is no truth value";
    EXPECT_FALSE(KvRxVariablesDictionary::getBool(nullptr, false));
}

class ContextWitness final : public KvEdLivePreviewContextReactor {
public:
    std::vector<int> events;
    std::function<void()> onEvent;
    void contextEvent(KvEdLivePreviewEvent event, const KvRxObject* value) override {
        events.push_back(static_cast<int>(event) + (value != nullptr ? 10 : 0));
        if (onEvent) {
            onEvent();
        }
    }
};

TEST_F(LivePreview, ContextReactors_HearTheirContextOnly) {
    KvEdLivePreviewContextManager* const manager = kvedLivePreviewContextManager();
    ASSERT_NE(manager, nullptr);
    ContextWitness witness;
    EXPECT_TRUE(manager->addReactor(L"Colors", &witness));
    EXPECT_FALSE(manager->addReactor(L"Colors", &witness));
    EXPECT_FALSE(manager->addReactor(nullptr, &witness));
    EXPECT_FALSE(manager->addReactor(L"Colors", nullptr));
    kvhost::LivePreviewContexts& contexts = m_session->PreviewContexts();
    contexts.Raise(L"Colors", KvEdLivePreviewEvent::Value, &m_document.GetDatabase());
    contexts.Raise(L"Other", KvEdLivePreviewEvent::Ended, nullptr);
    contexts.Raise(L"Colors", KvEdLivePreviewEvent::Ended, nullptr);
    EXPECT_EQ(witness.events, (std::vector<int>{11, 0}));
    EXPECT_FALSE(manager->removeReactor(L"Other", &witness));
    EXPECT_TRUE(manager->removeReactor(L"Colors", &witness));
    EXPECT_FALSE(manager->removeReactor(L"Colors", &witness));
    contexts.Raise(L"Colors", KvEdLivePreviewEvent::Ended, nullptr);
    EXPECT_EQ(witness.events.size(), 2U);
}

TEST_F(LivePreview, ContextReactorThatRemovesAnother_KeepsItFromHearing) {
    KvEdLivePreviewContextManager* const manager = kvedLivePreviewContextManager();
    ContextWitness first;
    ContextWitness second;
    first.onEvent = [&] { static_cast<void>(manager->removeReactor(L"Colors", &second)); };
    static_cast<void>(manager->addReactor(L"Colors", &first));
    static_cast<void>(manager->addReactor(L"Colors", &second));
    m_session->PreviewContexts().Raise(L"Colors", KvEdLivePreviewEvent::Ended, nullptr);
    EXPECT_EQ(first.events.size(), 1U);
    EXPECT_TRUE(second.events.empty());
}

}  // namespace
