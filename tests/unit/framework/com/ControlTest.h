#pragma once

#include <gtest/gtest.h>

#include "framework/window/CWnd.h"
#include "tests/unit/framework/com/CallLog.h"
#include "tests/unit/framework/com/RecordingSite.h"
#include "tests/unit/framework/com/TestRow.h"

namespace kvtest {

/// A control in a strict container: a window with one site, frame and document.
class ControlTest : public testing::Test {
protected:
    void SetUp() override {
        static const fw::WindowClass s_class{L"KvFrameTestContainer"};
        ASSERT_TRUE(
            m_parent.Create(s_class, L"container", WS_POPUP | WS_VISIBLE, {10, 10, 410, 310}, nullptr));
        m_parent.SetFocus();
        m_site = MakeSite(m_parent);
        m_row = MakeRow();
        m_object = fw::QueryFrom<IOleObject>(m_row->GetUnknown());
        m_inPlace = fw::QueryFrom<IOleInPlaceObject>(m_row->GetUnknown());
        ASSERT_EQ(m_object->SetClientSite(m_site.Get()), S_OK);
        Log().clear();
    }
    void TearDown() override {
        if (m_object) {
            EXPECT_EQ(m_object->Close(OLECLOSE_NOSAVE), S_OK);
            EXPECT_EQ(m_object->SetClientSite(nullptr), S_OK);
        }
        m_inPlace.Reset();
        m_object.Reset();
        m_row.Reset();
        m_site->reactions.actions.clear();
        m_site->frame->activeObject.Reset();
        m_site->document->activeObject.Reset();
        m_site.Reset();
        m_parent.DestroyWindow();
        Log().clear();
    }

    HRESULT Do(LONG verb) {
        return m_object->DoVerb(verb, nullptr, m_site.Get(), 0, m_parent, &m_site->place);
    }
    Reactions& Container() { return m_site->reactions; }

    CWnd m_parent;
    fw::ComPtr<CComObject<RecordingSite>> m_site;
    fw::ComPtr<CComObject<TestRow>> m_row;
    fw::ComPtr<IOleObject> m_object;
    fw::ComPtr<IOleInPlaceObject> m_inPlace;
};

}  // namespace kvtest
