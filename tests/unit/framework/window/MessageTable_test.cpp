#include "framework/window/MessageTable.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "framework/window/LifeWatch.h"

namespace {

constexpr UINT g_first = WM_USER + 1;
constexpr UINT g_shared = WM_USER + 2;
constexpr UINT g_unlisted = WM_USER + 3;

class Row {
public:
    LRESULT OnFirst(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
        EXPECT_TRUE(handled);
        EXPECT_EQ(message, g_first);
        calls.push_back("first " + std::to_string(wParam) + " " + std::to_string(lParam));
        return 1;
    }
    LRESULT OnSharedPassingOn(UINT, WPARAM, LPARAM, BOOL& handled) {
        EXPECT_TRUE(handled);
        calls.push_back("passes on");
        handled = FALSE;
        return 2;
    }
    LRESULT OnShared(UINT, WPARAM wParam, LPARAM, BOOL& handled) {
        EXPECT_TRUE(handled) << "each handler begins with TRUE";
        calls.push_back("shared");
        handled = wParam == 0;
        return 3;
    }
    LRESULT OnPressed(UINT, WPARAM, LPARAM, BOOL&) {
        calls.push_back("pressed");
        return 4;
    }
    LRESULT OnAnyOf38(UINT, WPARAM, LPARAM, BOOL&) {
        calls.push_back("any of 38");
        return 5;
    }

    static constexpr std::array s_messages{
        fw::OnMessage(g_first, &Row::OnFirst),
        fw::OnMessage(g_shared, &Row::OnSharedPassingOn),
        fw::OnMessage(g_shared, &Row::OnShared),
        fw::OnCommand(38, 2, &Row::OnPressed),
        fw::OnCommand(38, fw::AnyCommand, &Row::OnAnyOf38),
    };

    bool Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result);
    }

    std::vector<std::string> calls;
    LRESULT result = -1;
};

TEST(MessageTable, ListedMessage_CallsItsHandlerWithTheArguments) {
    Row row;
    EXPECT_TRUE(row.Send(g_first, 5, 6));
    EXPECT_EQ(row.result, 1);
    EXPECT_EQ(row.calls, std::vector<std::string>{"first 5 6"});
}

TEST(MessageTable, UnlistedMessage_IsLeftAlone) {
    Row row;
    EXPECT_FALSE(row.Send(g_unlisted));
    EXPECT_TRUE(row.calls.empty());
}

TEST(MessageTable, HandlerClearsHandled_SearchGoesOnInOrder) {
    Row row;
    EXPECT_TRUE(row.Send(g_shared, 0));
    EXPECT_EQ(row.result, 3);
    EXPECT_EQ(row.calls, (std::vector<std::string>{"passes on", "shared"}));
}

TEST(MessageTable, EveryHandlerClearsHandled_IsUnhandled) {
    Row row;
    EXPECT_FALSE(row.Send(g_shared, 1));
    EXPECT_EQ(row.calls, (std::vector<std::string>{"passes on", "shared"}));
}

TEST(MessageTable, Command_MatchesIdAndCode) {
    Row row;
    EXPECT_TRUE(row.Send(WM_COMMAND, MAKEWPARAM(38, 2)));
    EXPECT_TRUE(row.Send(WM_COMMAND, MAKEWPARAM(38, 7)));
    EXPECT_FALSE(row.Send(WM_COMMAND, MAKEWPARAM(39, 2)));
    EXPECT_EQ(row.calls, (std::vector<std::string>{"pressed", "any of 38"}));
}

// Deletes itself in a handler that leaves the message unhandled: the worst case for the search.
class Suicide : public fw::Watchable {
public:
    explicit Suicide(std::vector<std::string>& log) : m_log(log) {}
    ~Suicide() { m_log.push_back("gone"); }

    LRESULT OnDelete(UINT, WPARAM, LPARAM, BOOL& handled) {
        handled = FALSE;
        delete this;
        return 8;
    }
    LRESULT OnLater(UINT, WPARAM, LPARAM, BOOL&) {
        m_log.push_back("later");
        return 9;
    }

    static constexpr std::array s_messages{
        fw::OnMessage(g_first, &Suicide::OnDelete),
        fw::OnMessage(g_first, &Suicide::OnLater),
    };

private:
    std::vector<std::string>& m_log;
};

TEST(MessageTable, HandlerDeletesTheObject_NobodyTouchesItAgain) {
    std::vector<std::string> log;
    auto* const object = new Suicide(log);
    LRESULT result = 0;
    EXPECT_TRUE(fw::DispatchMessage(Suicide::s_messages, *object, g_first, 0, 0, result));
    EXPECT_EQ(result, 8);
    EXPECT_EQ(log, std::vector<std::string>{"gone"});
}

class Watched : public fw::Watchable {};

TEST(LifeWatch, SeveralWatches_AllSeeTheEnd) {
    auto object = std::make_unique<Watched>();
    const fw::LifeWatch outer(*object);
    {
        const fw::LifeWatch inner(*object);
        EXPECT_TRUE(inner);
    }
    const fw::LifeWatch second(*object);
    EXPECT_TRUE(outer);
    object.reset();
    EXPECT_FALSE(outer);
    EXPECT_FALSE(second);
}

}  // namespace
