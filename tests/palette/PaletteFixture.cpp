#include "tests/palette/PaletteFixture.h"

#include "framework/base/Hresult.h"
#include "refhost/db/Text.h"
#include "tests/support/MessagePump.h"

namespace kvtest {

namespace {

// The system keeps what the first windows and the first input of a process made: that is no leak of a test.
class FirstUse final : public testing::Environment {
    void SetUp() override {
        class Program final : public PaletteFixture {
        public:
            void Use() {
                const KvDbObjectId first = AddText(L"first", 0, 0);
                const KvDbObjectId second = AddText(L"second", 40, 40);
                Select({first});
                Click(ValuePoint(L"Contents"));
                TypeText(L"x");
                Press(VK_TAB);
                Select({});
                CRect view = Window().View().GetClientRect();
                view.Inflate(-4, -4);
                Window().View().ClientToScreen(&view);
                DragTo(view.TopLeft(), view.BottomRight());
                Select({first, second});
                Select({});
                DragTo({view.left + 20, view.bottom - 20}, {view.right + 60, view.top - 60});
            }

        private:
            void TestBody() override {}
        };
        Program().Use();
    }
};

const testing::Environment* const g_firstUse = testing::AddGlobalTestEnvironment(new FirstUse);

POINT MiddleOnScreen(HWND window, const RECT& bounds) {
    POINT point{(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2};
    ::ClientToScreen(window, &point);
    return point;
}

void SendKey(WORD key, WORD character, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = character;
    input.ki.dwFlags = flags;
    ::SendInput(1, &input, sizeof(input));
    PumpWaiting();
}

// Input takes a moment on a busy machine.
void PressDown(WORD key) {
    SendKey(key, 0, 0);
    EXPECT_TRUE(PumpUntil([&] { return ::GetKeyState(key) < 0; }));
}

void LetGo(WORD key) {
    SendKey(key, 0, KEYEVENTF_KEYUP);
    EXPECT_TRUE(PumpUntil([&] { return ::GetKeyState(key) >= 0; }));
}

void SendMouse(DWORD flags, DWORD data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    ::SendInput(1, &input, sizeof(input));
    PumpWaiting();
}

}  // namespace

PaletteFixture::PaletteFixture() {
    EXPECT_EQ(m_catalogue.Load(), S_OK);
    m_host = std::make_unique<kvhost::HostSession>();
    m_window = std::make_unique<kvpalette::MainWindow>(**m_host, m_catalogue);
    EXPECT_TRUE(m_window->Create());
    m_window->ShowWindow(SW_SHOW);
    EXPECT_TRUE(PumpUntil([this] {
        return ::GetForegroundWindow() == m_window->m_hWnd ||
               ::SetForegroundWindow(m_window->m_hWnd) == FALSE;
    }));
    EXPECT_EQ(::GetForegroundWindow(), m_window->m_hWnd);
}

PaletteFixture::~PaletteFixture() {
    m_window.reset();
    m_host.reset();
    PumpWaiting();
}

KvDbObjectId PaletteFixture::AddText(const std::wstring& content, double x, double y) {
    auto text = std::make_unique<kvhost::Text>();
    EXPECT_EQ(text->SetContent(content), Tolm::eOk);
    EXPECT_EQ(text->SetPosition({x, y, 0}), Tolm::eOk);
    EXPECT_EQ(text->SetHeight(4), Tolm::eOk);
    KvDbObjectId id;
    EXPECT_EQ(m_window->Document().GetDatabase().AppendEntity(std::move(text), id), Tolm::eOk);
    m_window->View().ZoomExtents();
    return id;
}

void PaletteFixture::Select(const std::vector<KvDbObjectId>& ids) {
    m_window->Document().GetSelection().Pick(ids);
    PumpWaiting();
}

std::wstring PaletteFixture::ContentOf(KvDbObjectId id) {
    const auto* const text = kvhost::Database::PeekAs<kvhost::Text>(id);
    return text ? text->Content() : L"";
}

std::wstring PaletteFixture::CurrentName() {
    const std::size_t current = Pane().Current();
    return current < Pane().Rows().size() ? Pane().Rows()[current].property.name : L"";
}

POINT PaletteFixture::ValuePoint(const std::wstring& row) {
    return MiddleOnScreen(Pane().m_hWnd, Pane().Layout().ValueBounds(Row(row)));
}

POINT PaletteFixture::NamePoint(const std::wstring& row) {
    return MiddleOnScreen(Pane().m_hWnd, Pane().Layout().NameBounds(Row(row)));
}

void PaletteFixture::MoveTo(POINT place) {
    ::SetCursorPos(static_cast<int>(place.x), static_cast<int>(place.y));
    PumpWaiting();
}

void PaletteFixture::Click(POINT place) {
    MoveTo(place);
    SendMouse(MOUSEEVENTF_LEFTDOWN);
    SendMouse(MOUSEEVENTF_LEFTUP);
}

void PaletteFixture::DragTo(POINT from, POINT to) {
    MoveTo(from);
    SendMouse(MOUSEEVENTF_LEFTDOWN);
    MoveTo(to);
    SendMouse(MOUSEEVENTF_LEFTUP);
}

void PaletteFixture::Press(WORD key, bool shift, bool control) {
    if (shift) {
        PressDown(VK_SHIFT);
    }
    if (control) {
        PressDown(VK_CONTROL);
    }
    PressDown(key);
    LetGo(key);
    if (control) {
        LetGo(VK_CONTROL);
    }
    if (shift) {
        LetGo(VK_SHIFT);
    }
}

void PaletteFixture::TypeText(const std::wstring& text) {
    for (const wchar_t character : text) {
        SendKey(0, character, KEYEVENTF_UNICODE);
        SendKey(0, character, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
}

void PaletteFixture::TurnWheel(POINT place, int steps) {
    MoveTo(place);
    SendMouse(MOUSEEVENTF_WHEEL, static_cast<DWORD>(steps) * WHEEL_DELTA);
}

}  // namespace kvtest
