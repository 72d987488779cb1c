#include "framework/com/ConnectionPoint.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/unit/framework/com/TestRow.h"
#include "tests/unit/framework/com/TestSink.h"

namespace {

using kvtest::MakeRow;
using kvtest::MakeSink;

void Fire(kvtest::TestRow& row, LONG value) {
    for (const fw::ComPtr<IUnknown>& each : row.events.Snapshot()) {
        if (const auto sink = each.As<ITestRowEvents>()) {
            EXPECT_EQ(sink->OnChanged(value), S_OK);
        }
    }
}

class ConnectionPointTest : public testing::Test {
protected:
    fw::ComPtr<IConnectionPoint> Point(REFIID id) {
        fw::ComPtr<IConnectionPoint> point;
        EXPECT_EQ(m_container->FindConnectionPoint(id, point.Put()), S_OK);
        return point;
    }
    DWORD Advise(IUnknown* sink) {
        DWORD cookie = 0;
        EXPECT_EQ(m_point->Advise(sink, &cookie), S_OK);
        return cookie;
    }

    fw::ComPtr<CComObject<kvtest::TestRow>> m_row = MakeRow();
    fw::ComPtr<IConnectionPointContainer> m_container =
        fw::QueryFrom<IConnectionPointContainer>(m_row->GetUnknown());
    fw::ComPtr<IConnectionPoint> m_point = Point(__uuidof(ITestRowEvents));
};

TEST_F(ConnectionPointTest, Find_UnknownSinkInterface_IsRefused) {
    IConnectionPoint* point = m_point.Get();
    EXPECT_EQ(m_container->FindConnectionPoint(IID_IDispatch, &point), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(point, nullptr);
    EXPECT_EQ(m_container->FindConnectionPoint(IID_IDispatch, nullptr), E_POINTER);
}

TEST_F(ConnectionPointTest, Point_HasAnIdentityOfItsOwn) {
    EXPECT_FALSE(m_point.As<IConnectionPointContainer>());
    EXPECT_FALSE(m_point.As<IOleObject>());
    EXPECT_FALSE(fw::IsSameObject(m_point.Get(), m_row->GetUnknown()));
    IID id{};
    EXPECT_EQ(m_point->GetConnectionInterface(&id), S_OK);
    EXPECT_TRUE(::IsEqualIID(id, __uuidof(ITestRowEvents)));
    fw::ComPtr<IConnectionPointContainer> container;
    EXPECT_EQ(m_point->GetConnectionPointContainer(container.Put()), S_OK);
    EXPECT_EQ(container, m_container);
    EXPECT_EQ(m_point->GetConnectionInterface(nullptr), E_POINTER);
    EXPECT_EQ(m_point->GetConnectionPointContainer(nullptr), E_POINTER);
}

TEST_F(ConnectionPointTest, EnumConnectionPoints_GivesDeclaredOrder) {
    fw::ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(m_container->EnumConnectionPoints(points.Put()), S_OK);
    IConnectionPoint* found[3] = {};
    ULONG count = 0;
    EXPECT_EQ(points->Next(3, found, &count), S_FALSE);
    ASSERT_EQ(count, 2u);
    EXPECT_EQ(found[0], Point(__uuidof(ITestRowEvents)).Get());
    EXPECT_EQ(found[1], Point(IID_IPropertyNotifySink).Get());
    found[0]->Release();
    found[1]->Release();
    EXPECT_EQ(points->Next(2, found, nullptr), E_INVALIDARG);
    EXPECT_EQ(points->Reset(), S_OK);
    EXPECT_EQ(points->Skip(1), S_OK);
    fw::ComPtr<IEnumConnectionPoints> copy;
    ASSERT_EQ(points->Clone(copy.Put()), S_OK);
    EXPECT_EQ(copy->Skip(2), S_FALSE);
    EXPECT_EQ(points->Next(1, found, nullptr), S_OK);
    found[0]->Release();
    EXPECT_EQ(m_container->EnumConnectionPoints(nullptr), E_POINTER);
}

TEST_F(ConnectionPointTest, Advise_WrongSink_IsRefused) {
    DWORD cookie = 5;
    EXPECT_EQ(m_point->Advise(m_row->GetUnknown(), &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(m_point->Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(m_point->Advise(MakeSink()->Events(), nullptr), E_POINTER);
    EXPECT_FALSE(m_row->events.HasConnections());
}

TEST_F(ConnectionPointTest, Cookies_NeverComeTwice) {
    const auto sink = MakeSink();
    std::set<DWORD> cookies;
    for (int i = 0; i < 50; ++i) {
        const DWORD kept = Advise(sink->Events());
        const DWORD left = Advise(sink->Events());
        EXPECT_NE(kept, 0u);
        EXPECT_TRUE(cookies.insert(kept).second);
        EXPECT_TRUE(cookies.insert(left).second);
        EXPECT_EQ(m_point->Unadvise(left), S_OK);
        EXPECT_EQ(m_point->Unadvise(left), CONNECT_E_NOCONNECTION);
    }
    EXPECT_EQ(m_row->events.Snapshot().size(), 50u);
    EXPECT_EQ(m_point->Unadvise(0), CONNECT_E_NOCONNECTION);
}

TEST_F(ConnectionPointTest, EnumConnections_GivesSinksWithTheirCookies) {
    const auto sink = MakeSink();
    const DWORD cookie = Advise(sink->Events());
    fw::ComPtr<IEnumConnections> connections;
    ASSERT_EQ(m_point->EnumConnections(connections.Put()), S_OK);
    EXPECT_EQ(m_point->Unadvise(cookie), S_OK);
    CONNECTDATA data{};
    ASSERT_EQ(connections->Next(1, &data, nullptr), S_OK);
    EXPECT_EQ(data.dwCookie, cookie);
    EXPECT_EQ(data.pUnk, sink->Events());
    data.pUnk->Release();
    EXPECT_EQ(connections->Next(1, &data, nullptr), S_FALSE);
    EXPECT_EQ(m_point->EnumConnections(nullptr), E_POINTER);
}

TEST_F(ConnectionPointTest, SinkLeavesInsideAnEvent_OthersStillHearIt) {
    const auto first = MakeSink();
    const auto second = MakeSink();
    const auto late = MakeSink();
    const DWORD cookie = Advise(first->Events());
    Advise(second->Events());
    first->whenCalled = [&] {
        first->whenCalled = nullptr;
        EXPECT_EQ(m_point->Unadvise(cookie), S_OK);
        Advise(late->Events());
    };
    Fire(*m_row.Get(), 7);
    EXPECT_EQ(first->calls, 1);
    EXPECT_EQ(second->lastValue, 7);
    EXPECT_EQ(late->calls, 0);
    Fire(*m_row.Get(), 8);
    EXPECT_EQ(first->calls, 1);
    EXPECT_EQ(late->lastValue, 8);
}

TEST_F(ConnectionPointTest, SinkReleasesTheLastReferenceInsideAnEvent_NothingBreaks) {
    const auto sink = MakeSink();
    Advise(sink->Events());
    auto* const row = m_row.Get();
    sink->whenCalled = [&] {
        m_container.Reset();
        m_point.Reset();
        m_row.Reset();
    };
    const fw::ComPtr<IUnknown> alive(row->GetUnknown());
    Fire(*row, 1);
    EXPECT_EQ(sink->calls, 1);
}

TEST_F(ConnectionPointTest, SinkEndsAndUnadvisesAgain_ListStaysInOrder) {
    auto sink = MakeSink();
    const DWORD cookie = Advise(sink->Events());
    m_row->events.DisconnectAll();
    EXPECT_EQ(m_point->Unadvise(cookie), CONNECT_E_NOCONNECTION);
    EXPECT_TRUE(m_row->events.Snapshot().empty());
}

TEST_F(ConnectionPointTest, PointHeldAlone_KeepsTheObject) {
    m_container.Reset();
    m_row.Reset();
    IID id{};
    EXPECT_EQ(m_point->GetConnectionInterface(&id), S_OK);
    EXPECT_EQ(kvtest::TestModule().GetLockCount(), 1);
    m_point.Reset();
    EXPECT_EQ(kvtest::TestModule().GetLockCount(), 0);
}

}  // namespace
