#include <stdexcept>

#include "framework/base/DeviceContexts.h"
#include "framework/base/Handles.h"
#include "tests/unit/framework/com/ControlTest.h"

namespace {

class ViewSink : public fw::ComObjectRoot, public IAdviseSink {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static constexpr std::array s_interfaces{fw::Implements<ViewSink, IAdviseSink>()};
        return s_interfaces;
    }
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    STDMETHODIMP_(void) OnViewChange(DWORD aspect, LONG) override {
        changes += aspect == DVASPECT_CONTENT ? 1 : 100;
    }
    STDMETHODIMP_(void) OnRename(IMoniker*) override {}
    STDMETHODIMP_(void) OnSave() override {}
    STDMETHODIMP_(void) OnClose() override {}
    DWORD changes = 0;
};

class ViewTest : public kvtest::ControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        m_view = m_object.As<IViewObjectEx>();
        ASSERT_EQ(CComObject<ViewSink>::CreateInstance(nullptr, m_sink.Put()), S_OK);
    }
    void TearDown() override {
        m_view.Reset();
        m_sink.Reset();
        ControlTest::TearDown();
    }
    HRESULT Draw(HDC dc, const RECTL& bounds, const RECTL* window = nullptr) {
        return m_view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, window, nullptr, 0);
    }

    fw::ComPtr<IViewObjectEx> m_view;
    fw::ComPtr<CComObject<ViewSink>> m_sink;
};

TEST_F(ViewTest, Draw_InAnyMapMode_GivesPixels) {
    const fw::MemoryDc dc(nullptr);
    ::SetMapMode(dc, MM_ANISOTROPIC);
    ::SetWindowExtEx(dc, 100, 100, nullptr);
    ::SetViewportExtEx(dc, 200, -200, nullptr);
    CRect drawn;
    m_row->draw = [&](ATL_DRAWINFO& info) {
        EXPECT_EQ(::GetMapMode(info.hdcDraw), MM_TEXT);
        drawn =
            CRect(info.prcBounds->left, info.prcBounds->top, info.prcBounds->right, info.prcBounds->bottom);
        ::SetTextColor(info.hdcDraw, RGB(1, 2, 3));
        return S_OK;
    };
    EXPECT_EQ(Draw(dc, RECTL{10, -10, 20, -30}), S_OK);
    EXPECT_EQ(drawn, CRect(20, 20, 40, 60));
    EXPECT_EQ(::GetMapMode(dc), MM_ANISOTROPIC);
    EXPECT_NE(::GetTextColor(dc), RGB(1, 2, 3));
}

TEST_F(ViewTest, Draw_IntoAMetafile_KeepsItsUnits) {
    const RECT frame{0, 0, 1000, 1000};
    const HDC dc = ::CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
    const RECTL window{0, 0, 50, 50};
    CRect drawn;
    m_row->draw = [&](ATL_DRAWINFO& info) {
        EXPECT_EQ(info.prcWBounds, &window);
        EXPECT_EQ(info.ptd, nullptr);
        drawn =
            CRect(info.prcBounds->left, info.prcBounds->top, info.prcBounds->right, info.prcBounds->bottom);
        ::Rectangle(info.hdcDraw, info.prcBounds->left, info.prcBounds->top, info.prcBounds->right,
                    info.prcBounds->bottom);
        return S_OK;
    };
    EXPECT_EQ(Draw(dc, RECTL{5, 6, 45, 46}, &window), S_OK);
    const fw::UniqueMetafile metafile(::CloseEnhMetaFile(dc));
    ASSERT_TRUE(metafile);
    EXPECT_EQ(drawn, CRect(5, 6, 45, 46));
    int rectangles = 0;
    ::EnumEnhMetaFile(
        nullptr, metafile.Get(),
        [](HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM count) -> int {
            *reinterpret_cast<int*>(count) += record->iType == EMR_RECTANGLE ? 1 : 0;
            return 1;
        },
        &rectangles, &frame);
    EXPECT_EQ(rectangles, 1);
}

TEST_F(ViewTest, Draw_BadArguments_AreRefused) {
    const fw::MemoryDc dc(nullptr);
    const RECTL bounds{0, 0, 10, 10};
    EXPECT_EQ(m_view->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr, nullptr, 0),
              DV_E_DVASPECT);
    EXPECT_EQ(m_view->Draw(DVASPECT_CONTENT, 1, nullptr, nullptr, nullptr, dc, &bounds, nullptr, nullptr, 0),
              DV_E_LINDEX);
    EXPECT_EQ(m_view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, nullptr, nullptr, nullptr, 0),
              E_POINTER);
    EXPECT_EQ(Draw(nullptr, bounds), E_INVALIDARG);
}

TEST_F(ViewTest, Draw_ControlThrows_NothingCrossesTheBorder) {
    const fw::MemoryDc dc(nullptr);
    m_row->draw = [](ATL_DRAWINFO&) -> HRESULT { throw std::runtime_error("no brush"); };
    EXPECT_EQ(Draw(dc, RECTL{0, 0, 10, 10}), E_FAIL);
}

TEST_F(ViewTest, OleDraw_ReachesTheControl) {
    const fw::MemoryDc dc(nullptr);
    int draws = 0;
    m_row->draw = [&](ATL_DRAWINFO&) {
        ++draws;
        return S_OK;
    };
    const RECT bounds{0, 0, 10, 10};
    EXPECT_EQ(::OleDraw(m_view.Get(), DVASPECT_CONTENT, dc, &bounds), S_OK);
    EXPECT_EQ(draws, 1);
}

TEST_F(ViewTest, SetAdvise_TellsChangesWhileNotActive) {
    EXPECT_EQ(m_view->SetAdvise(DVASPECT_CONTENT, 0, m_sink.Get()), S_OK);
    m_row->FireViewChange();
    EXPECT_EQ(m_sink->changes, 1u);
    DWORD aspects = 0;
    DWORD flags = 9;
    fw::ComPtr<IAdviseSink> sink;
    EXPECT_EQ(m_view->GetAdvise(&aspects, &flags, sink.Put()), S_OK);
    EXPECT_EQ(aspects, static_cast<DWORD>(DVASPECT_CONTENT));
    EXPECT_EQ(flags, 0u);
    EXPECT_EQ(sink.Get(), static_cast<IAdviseSink*>(m_sink.Get()));
    EXPECT_EQ(m_view->GetAdvise(nullptr, nullptr, nullptr), S_OK);
    SIZEL extent{10, 10};
    EXPECT_EQ(m_object->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    EXPECT_EQ(m_object->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    EXPECT_EQ(m_sink->changes, 2u);
    EXPECT_EQ(m_view->SetAdvise(0, 0, nullptr), S_OK);
    m_row->FireViewChange();
    EXPECT_EQ(m_sink->changes, 2u);
    EXPECT_EQ(m_view->SetAdvise(DVASPECT_ICON, 0, m_sink.Get()), DV_E_DVASPECT);
}

TEST_F(ViewTest, SetAdvise_PrimeFirstAndOnlyOnce_AreKept) {
    EXPECT_EQ(m_view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST | ADVF_ONLYONCE, m_sink.Get()), S_OK);
    EXPECT_EQ(m_sink->changes, 1u);
    m_row->FireViewChange();
    EXPECT_EQ(m_sink->changes, 1u);
}

TEST_F(ViewTest, FireViewChange_WhileActive_Repaints) {
    EXPECT_EQ(m_view->SetAdvise(DVASPECT_CONTENT, 0, m_sink.Get()), S_OK);
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    m_row->UpdateWindow();
    EXPECT_FALSE(::GetUpdateRect(m_row->m_hWnd, nullptr, FALSE));
    m_row->FireViewChange();
    EXPECT_TRUE(::GetUpdateRect(m_row->m_hWnd, nullptr, FALSE));
    EXPECT_EQ(m_sink->changes, 0u);
}

TEST_F(ViewTest, Extents_AndHits) {
    SIZEL extent{300, 200};
    EXPECT_EQ(m_object->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    SIZEL read{};
    EXPECT_EQ(m_view->GetExtent(DVASPECT_CONTENT, -1, nullptr, &read), S_OK);
    EXPECT_EQ(read.cx, 300);
    EXPECT_EQ(m_view->GetExtent(DVASPECT_CONTENT, 0, nullptr, &read), DV_E_LINDEX);
    EXPECT_EQ(m_view->GetExtent(DVASPECT_ICON, -1, nullptr, &read), DV_E_DVASPECT);
    RECTL bounds{};
    EXPECT_EQ(m_view->GetRect(DVASPECT_CONTENT, &bounds), S_OK);
    EXPECT_EQ(bounds.right, 300);
    EXPECT_EQ(bounds.bottom, 200);
    DWORD status = 0;
    EXPECT_EQ(m_view->GetViewStatus(&status), S_OK);
    EXPECT_EQ(status, static_cast<DWORD>(VIEWSTATUS_OPAQUE));
    const RECT area{0, 0, 10, 10};
    DWORD hit = 9;
    EXPECT_EQ(m_view->QueryHitPoint(DVASPECT_CONTENT, &area, {5, 5}, 0, &hit), S_OK);
    EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_HIT));
    EXPECT_EQ(m_view->QueryHitPoint(DVASPECT_CONTENT, &area, {10, 5}, 0, &hit), S_OK);
    EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_OUTSIDE));
    const RECT other{9, 9, 20, 20};
    const RECT apart{10, 10, 20, 20};
    EXPECT_EQ(m_view->QueryHitRect(DVASPECT_CONTENT, &area, &other, 0, &hit), S_OK);
    EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_HIT));
    EXPECT_EQ(m_view->QueryHitRect(DVASPECT_CONTENT, &area, &apart, 0, &hit), S_OK);
    EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_OUTSIDE));
    DVEXTENTINFO info{sizeof info, DVEXTENT_CONTENT, {}};
    EXPECT_EQ(m_view->GetNaturalExtent(DVASPECT_CONTENT, -1, nullptr, nullptr, &info, &read), S_OK);
    EXPECT_GT(read.cx, 0);
    info.dwExtentMode = DVEXTENT_INTEGRAL;
    EXPECT_EQ(m_view->GetNaturalExtent(DVASPECT_CONTENT, -1, nullptr, nullptr, &info, &read), E_NOTIMPL);
}

TEST_F(ViewTest, WhatIsNotOffered_IsRefusedWithClearedResults) {
    LOGPALETTE* palette = reinterpret_cast<LOGPALETTE*>(this);
    EXPECT_EQ(m_view->GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, &palette), S_FALSE);
    EXPECT_EQ(palette, nullptr);
    DWORD cookie = 4;
    EXPECT_EQ(m_view->Freeze(DVASPECT_CONTENT, -1, nullptr, &cookie), E_NOTIMPL);
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(m_view->Unfreeze(1), OLE_E_NOCONNECTION);
}

TEST_F(ViewTest, NullResults_AreRefused) {
    const RECT area{0, 0, 10, 10};
    DWORD hit = 0;
    SIZEL extent{};
    DVEXTENTINFO info{sizeof info, DVEXTENT_CONTENT, {}};
    EXPECT_EQ(m_view->GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(m_view->Freeze(DVASPECT_CONTENT, -1, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(m_view->GetExtent(DVASPECT_CONTENT, -1, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(m_view->GetRect(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(m_view->GetViewStatus(nullptr), E_POINTER);
    EXPECT_EQ(m_view->QueryHitPoint(DVASPECT_CONTENT, nullptr, {5, 5}, 0, &hit), E_POINTER);
    EXPECT_EQ(m_view->QueryHitPoint(DVASPECT_CONTENT, &area, {5, 5}, 0, nullptr), E_POINTER);
    EXPECT_EQ(m_view->QueryHitRect(DVASPECT_CONTENT, &area, nullptr, 0, &hit), E_POINTER);
    EXPECT_EQ(m_view->QueryHitRect(DVASPECT_CONTENT, &area, &area, 0, nullptr), E_POINTER);
    EXPECT_EQ(m_view->GetNaturalExtent(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, &extent), E_POINTER);
    EXPECT_EQ(m_view->GetNaturalExtent(DVASPECT_CONTENT, -1, nullptr, nullptr, &info, nullptr), E_POINTER);
}

}  // namespace
