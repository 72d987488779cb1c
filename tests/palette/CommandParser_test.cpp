#include "palette/commands/CommandParser.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using kvpalette::CommandKind;
using kvpalette::CommandLine;
using kvpalette::CommandParser;

struct Parsed {
    bool good = false;
    CommandLine line;
    std::wstring message;
};

Parsed Parse(const std::vector<std::wstring>& arguments, std::map<std::wstring, std::wstring> files = {}) {
    CommandParser parser([&](const std::wstring& path, std::wstring& text) {
        const auto found = files.find(path);
        text = found == files.end() ? L"" : found->second;
        return found != files.end();
    });
    Parsed parsed;
    parsed.good = parser.Parse(arguments, parsed.line, parsed.message);
    return parsed;
}

TEST(CommandParser, NoArguments_OpensTheWindow) {
    const Parsed parsed = Parse({});
    EXPECT_TRUE(parsed.good);
    EXPECT_TRUE(parsed.line.drawing.empty());
    EXPECT_TRUE(parsed.line.commands.empty());
}

TEST(CommandParser, FirstWordWithoutDash_IsTheDrawing) {
    const Parsed parsed = Parse({L"a map.geojson", L"--rows"});
    ASSERT_TRUE(parsed.good);
    EXPECT_EQ(parsed.line.drawing, L"a map.geojson");
    ASSERT_EQ(parsed.line.commands.size(), 1u);
    EXPECT_EQ(parsed.line.commands[0].kind, CommandKind::Rows);
    EXPECT_FALSE(parsed.line.commands[0].json);
}

TEST(CommandParser, SecondDrawing_IsRefused) {
    const Parsed parsed = Parse({L"a.qxf", L"b.qxf"});
    EXPECT_FALSE(parsed.good);
    EXPECT_EQ(parsed.message, L"a command was expected, not b.qxf");
}

TEST(CommandParser, Json_BelongsToTheCommandBefore) {
    const Parsed parsed = Parse({L"--rows", L"--json", L"--objects", L"--catalogue", L"--json"});
    ASSERT_TRUE(parsed.good);
    ASSERT_EQ(parsed.line.commands.size(), 3u);
    EXPECT_TRUE(parsed.line.commands[0].json);
    EXPECT_FALSE(parsed.line.commands[1].json);
    EXPECT_TRUE(parsed.line.commands[2].json);
}

TEST(CommandParser, JsonAfterOtherCommands_IsRefused) {
    EXPECT_FALSE(Parse({L"--undo", L"--json"}).good);
    EXPECT_FALSE(Parse({L"--json"}).good);
}

TEST(CommandParser, Set_SplitsAtTheFirstEqualsSign) {
    const Parsed parsed = Parse({L"--set", L"Contents=a=b"});
    ASSERT_TRUE(parsed.good);
    EXPECT_EQ(parsed.line.commands[0].target, L"Contents");
    EXPECT_EQ(parsed.line.commands[0].value, L"a=b");
}

TEST(CommandParser, Set_TakesAnEmptyText) {
    const Parsed parsed = Parse({L"--set", L"Contents="});
    ASSERT_TRUE(parsed.good);
    EXPECT_EQ(parsed.line.commands[0].value, L"");
}

TEST(CommandParser, UndoWithoutCount_IsOneStep) {
    const Parsed parsed = Parse({L"--undo", L"--redo", L"12"});
    ASSERT_TRUE(parsed.good);
    EXPECT_EQ(parsed.line.commands[0].count, 1);
    EXPECT_EQ(parsed.line.commands[1].count, 12);
}

TEST(CommandParser, Batch_StandsInPlaceOfItsCommands) {
    const Parsed parsed =
        Parse({L"--rows", L"--batch", L"b.txt", L"--escape"},
              {{L"b.txt", L"# tour\r\n\r\n--select \"layer=North wing\"\r\n--set \"A=b c\" --undo 2\n"}});
    ASSERT_TRUE(parsed.good) << parsed.message.c_str();
    const auto& commands = parsed.line.commands;
    ASSERT_EQ(commands.size(), 5u);
    EXPECT_EQ(commands[1].target, L"layer=North wing");
    EXPECT_EQ(commands[1].origin, L"b.txt:3");
    EXPECT_EQ(commands[2].value, L"b c");
    EXPECT_EQ(commands[3].count, 2);
    EXPECT_EQ(commands[4].kind, CommandKind::Escape);
    EXPECT_EQ(commands[4].origin, L"");
}

TEST(CommandParser, MistakeInBatch_NamesFileAndLine) {
    const Parsed parsed = Parse({L"--batch", L"b.txt"}, {{L"b.txt", L"--rows\n--paint\n"}});
    EXPECT_FALSE(parsed.good);
    EXPECT_EQ(parsed.message, L"b.txt:2: unknown command --paint");
}

TEST(CommandParser, BatchThatCallsItself_IsRefused) {
    const Parsed parsed = Parse({L"--batch", L"b.txt"}, {{L"b.txt", L"--batch b.txt\n"}});
    EXPECT_FALSE(parsed.good);
    EXPECT_EQ(parsed.message, L"b.txt:1: batch files call each other too deeply: b.txt");
}

TEST(CommandParser, Help_StandsAlone) {
    const Parsed parsed = Parse({L"--help"});
    EXPECT_TRUE(parsed.good);
    EXPECT_TRUE(parsed.line.help);
}

TEST(CommandParser, HelpText_NamesEveryCommand) {
    const std::wstring help = kvpalette::HelpText();
    for (int kind = 0; kind <= static_cast<int>(CommandKind::Say); ++kind) {
        const std::wstring name = kvpalette::CommandName(static_cast<CommandKind>(kind));
        EXPECT_FALSE(name.empty()) << kind;
        EXPECT_NE(help.find(name), std::wstring::npos) << kind;
    }
}

class BadCommandLine : public testing::TestWithParam<std::vector<std::wstring>> {};

TEST_P(BadCommandLine, IsRefusedWithAMessage) {
    const Parsed parsed = Parse(GetParam());
    EXPECT_FALSE(parsed.good);
    EXPECT_FALSE(parsed.message.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Forms, BadCommandLine,
    testing::Values(
        std::vector<std::wstring>{L""}, std::vector<std::wstring>{L"--frobnicate"},
        std::vector<std::wstring>{L"-x"}, std::vector<std::wstring>{L"--select"},
        std::vector<std::wstring>{L"--select", L"--rows"}, std::vector<std::wstring>{L"--select", L""},
        std::vector<std::wstring>{L"--set", L"Contents"}, std::vector<std::wstring>{L"--set", L"=text"},
        std::vector<std::wstring>{L"--hover", L"Layer"}, std::vector<std::wstring>{L"--click", L"Row"},
        std::vector<std::wstring>{L"--pick", L"1"}, std::vector<std::wstring>{L"--pick", L"1,2,3,4"},
        std::vector<std::wstring>{L"--pick", L"1,x"}, std::vector<std::wstring>{L"--undo", L"1000000"},
        std::vector<std::wstring>{L"--undo", L"-1"}, std::vector<std::wstring>{L"--setvar", L"GRIPS"},
        std::vector<std::wstring>{L"--batch"}, std::vector<std::wstring>{L"--batch", L"absent.txt"},
        std::vector<std::wstring>{L"--size", L"800"}, std::vector<std::wstring>{L"--size", L"10x10"},
        std::vector<std::wstring>{L"--zoom", L"0"}, std::vector<std::wstring>{L"--zoom", L"far"}));

class GoodPoint : public testing::TestWithParam<std::wstring> {};

TEST_P(GoodPoint, IsTaken) {
    EXPECT_TRUE(Parse({L"--pick", GetParam()}).good);
}

INSTANTIATE_TEST_SUITE_P(Forms, GoodPoint, testing::Values(L"1,2", L"-1.5,2e3", L"0,0,0.25"));

}  // namespace
