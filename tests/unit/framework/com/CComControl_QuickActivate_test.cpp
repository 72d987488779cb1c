#include "tests/unit/framework/com/ControlTest.h"
#include "tests/unit/framework/com/TestSink.h"

namespace {

class QuickActivateTest : public kvtest::ControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        ASSERT_EQ(m_object->SetClientSite(nullptr), S_OK);
        m_quick = m_object.As<IQuickActivate>();
        m_container.cbSize = sizeof m_container;
        m_container.pClientSite = m_site.Get();
        m_control.cbSize = sizeof m_control;
    }
    void TearDown() override {
        m_quick.Reset();
        ControlTest::TearDown();
    }

    fw::ComPtr<IQuickActivate> m_quick;
    QACONTAINER m_container{};
    QACONTROL m_control{};
};

TEST_F(QuickActivateTest, EveryField_IsTakenAndAnswered) {
    const auto sink = kvtest::MakeSink();
    m_container.pUnkEventSink = sink->Events();
    m_container.pPropertyNotifySink = static_cast<IPropertyNotifySink*>(sink.Get());
    m_control.dwPointerActivationPolicy = 77;
    EXPECT_EQ(m_quick->QuickActivate(&m_container, &m_control), S_OK);
    EXPECT_EQ(m_row->m_spClientSite.Get(), static_cast<IOleClientSite*>(m_site.Get()));
    EXPECT_EQ(m_control.cbSize, sizeof m_control);
    EXPECT_EQ(m_control.dwMiscStatus, fw::ControlMiscStatus);
    EXPECT_EQ(m_control.dwViewStatus, static_cast<DWORD>(VIEWSTATUS_OPAQUE));
    EXPECT_EQ(m_control.dwPointerActivationPolicy, 0u);
    EXPECT_EQ(m_row->events.Snapshot().size(), 1u);
    EXPECT_EQ(m_row->notifications.Snapshot().size(), 1u);
    EXPECT_EQ(m_row->events.Unadvise(m_control.dwEventCookie), S_OK);
    EXPECT_EQ(m_row->notifications.Unadvise(m_control.dwPropNotifyCookie), S_OK);
    EXPECT_EMPTY_LOG();
}

TEST_F(QuickActivateTest, NoSinks_GiveNoCookies) {
    EXPECT_EQ(m_quick->QuickActivate(&m_container, &m_control), S_OK);
    EXPECT_EQ(m_control.dwEventCookie, 0u);
    EXPECT_EQ(m_control.dwPropNotifyCookie, 0u);
}

TEST_F(QuickActivateTest, SinkOfAnotherKind_GivesNoCookie) {
    m_container.pUnkEventSink = m_site->GetUnknown();
    EXPECT_EQ(m_quick->QuickActivate(&m_container, &m_control), S_OK);
    EXPECT_EQ(m_control.dwEventCookie, 0u);
}

TEST_F(QuickActivateTest, BadArguments_ChangeNothing) {
    EXPECT_EQ(m_quick->QuickActivate(nullptr, &m_control), E_POINTER);
    EXPECT_EQ(m_quick->QuickActivate(&m_container, nullptr), E_POINTER);
    m_container.cbSize = 8;
    EXPECT_EQ(m_quick->QuickActivate(&m_container, &m_control), E_INVALIDARG);
    m_container.cbSize = sizeof m_container;
    m_control.cbSize = 8;
    EXPECT_EQ(m_quick->QuickActivate(&m_container, &m_control), E_INVALIDARG);
    EXPECT_FALSE(m_row->m_spClientSite);
}

TEST_F(QuickActivateTest, Colours_CountWhereTheSiteHasNoAmbients) {
    m_container.colorFore = 0x000001;
    m_container.colorBack = 0xFFFFFF;
    EXPECT_EQ(m_quick->QuickActivate(&m_container, &m_control), S_OK);
    OLE_COLOR color = 0;
    EXPECT_EQ(m_row->GetAmbientForeColor(color), S_OK);
    EXPECT_EQ(color, 0x000001u);
    m_site->ambients[DISPID_AMBIENT_BACKCOLOR] = fw::Variant::FromLong(0x445566);
    EXPECT_EQ(m_row->GetAmbientBackColor(color), S_OK);
    EXPECT_EQ(color, 0x445566u);
}

TEST_F(QuickActivateTest, NoColours_AreNotTakenForBlack) {
    EXPECT_EQ(m_quick->QuickActivate(&m_container, &m_control), S_OK);
    OLE_COLOR color = 0;
    EXPECT_TRUE(FAILED(m_row->GetAmbientForeColor(color)));
    EXPECT_TRUE(FAILED(m_row->GetAmbientBackColor(color)));
}

TEST_F(QuickActivateTest, ContentExtent_IsTheExtent) {
    SIZEL extent{123, 456};
    EXPECT_EQ(m_quick->SetContentExtent(&extent), S_OK);
    SIZEL read{};
    EXPECT_EQ(m_quick->GetContentExtent(&read), S_OK);
    EXPECT_EQ(read.cy, 456);
    EXPECT_EQ(m_quick->SetContentExtent(nullptr), E_POINTER);
    EXPECT_EQ(m_quick->GetContentExtent(nullptr), E_POINTER);
}

}  // namespace
