#include "palette/commands/CommandParser.h"

#include <algorithm>
#include <cwchar>
#include <iterator>
#include <utility>

#include "palette/commands/BatchLine.h"

namespace kvpalette {

namespace {

enum class Argument { None, Text, Count, TwoParts, Points, Dimensions, Zoom };

struct CommandForm {
    const wchar_t* name;
    CommandKind kind;
    Argument argument;
    wchar_t separator;
    bool takesJson;
    const wchar_t* shape;
};

constexpr CommandForm c_forms[] = {
    {L"--select", CommandKind::Select, Argument::Text, 0, false, L"WHAT"},
    {L"--rows", CommandKind::Rows, Argument::None, 0, true, L""},
    {L"--set", CommandKind::Set, Argument::TwoParts, L'=', false, L"\"ROW=TEXT\""},
    {L"--unspecify", CommandKind::Unspecify, Argument::Text, 0, false, L"ROW"},
    {L"--list", CommandKind::List, Argument::Text, 0, true, L"ROW"},
    {L"--hover", CommandKind::Hover, Argument::TwoParts, L'=', false, L"\"ROW=ENTRY\""},
    {L"--escape", CommandKind::Escape, Argument::None, 0, false, L""},
    {L"--click", CommandKind::Click, Argument::TwoParts, L':', false, L"\"ROW:BUTTON\""},
    {L"--answer", CommandKind::Answer, Argument::Text, 0, false, L"\"TEXT\""},
    {L"--pick", CommandKind::Pick, Argument::Points, 0, false, L"\"x,y[,z]\""},
    {L"--undo", CommandKind::Undo, Argument::Count, 0, false, L"[N]"},
    {L"--redo", CommandKind::Redo, Argument::Count, 0, false, L"[N]"},
    {L"--objects", CommandKind::Objects, Argument::None, 0, true, L""},
    {L"--catalogue", CommandKind::Catalogue, Argument::None, 0, true, L""},
    {L"--setvar", CommandKind::SetVar, Argument::TwoParts, L'=', false, L"NAME=VALUE"},
    {L"--trace", CommandKind::Trace, Argument::Text, 0, false, L"FILE"},
    {L"--screenshot", CommandKind::Screenshot, Argument::Text, 0, false, L"FILE"},
    {L"--save", CommandKind::Save, Argument::Text, 0, false, L"FILE"},
    {L"--open", CommandKind::Open, Argument::Text, 0, false, L"FILE"},
    {L"--edit", CommandKind::Edit, Argument::Text, 0, false, L"ROW"},
    {L"--type", CommandKind::Type, Argument::Text, 0, false, L"TEXT"},
    {L"--tip", CommandKind::Tip, Argument::Text, 0, false, L"ROW"},
    {L"--zoom", CommandKind::Zoom, Argument::Zoom, 0, false, L"extents|selection|FACTOR"},
    {L"--size", CommandKind::Size, Argument::Dimensions, 0, false, L"WIDTHxHEIGHT"},
    {L"--say", CommandKind::Say, Argument::Text, 0, false, L"TEXT"},
};

constexpr int c_deepestBatch = 8;
constexpr int c_largestCount = 100000;
constexpr std::size_t c_mostCommands = 100000;

const CommandForm* FindForm(const std::wstring& name) {
    const auto* const found = std::find_if(std::begin(c_forms), std::end(c_forms),
                                           [&](const auto& form) { return name == form.name; });
    return found == std::end(c_forms) ? nullptr : found;
}

// A command where an argument should stand is a forgotten argument, not a value.
bool IsCommandWord(const std::wstring& word) {
    return FindForm(word) || word == L"--batch" || word == L"--help" || word == L"--json";
}

bool ReadCount(const std::wstring& text, int& count) {
    if (text.empty() || text.size() > 6 || text.find_first_not_of(L"0123456789") != std::wstring::npos) {
        return false;
    }
    count = static_cast<int>(std::wcstol(text.c_str(), nullptr, 10));
    return count <= c_largestCount;
}

bool IsNumber(const std::wstring& text) {
    wchar_t* end = nullptr;
    static_cast<void>(std::wcstod(text.c_str(), &end));
    return !text.empty() && *end == 0;
}

bool IsPoint(const std::wstring& text) {
    int numbers = 0;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(L',', begin), text.size());
        if (!IsNumber(text.substr(begin, end - begin))) {
            return false;
        }
        ++numbers;
        begin = end + 1;
    }
    return numbers == 2 || numbers == 3;
}

bool IsSize(const std::wstring& text) {
    const std::size_t cut = text.find(L'x');
    int width = 0;
    int height = 0;
    return cut != std::wstring::npos && ReadCount(text.substr(0, cut), width) &&
           ReadCount(text.substr(cut + 1), height) && width >= 200 && height >= 150 && width <= 8000 &&
           height <= 8000;
}

bool SplitAt(const CommandForm& form, const std::wstring& text, Command& command) {
    const std::size_t cut = text.find(form.separator);
    if (cut == std::wstring::npos || cut == 0) {
        return false;
    }
    command.target = text.substr(0, cut);
    command.value = text.substr(cut + 1);
    return true;
}

bool TakeArgument(const CommandForm& form, const std::wstring& text, Command& command) {
    command.target = text;
    switch (form.argument) {
        case Argument::TwoParts:
            return SplitAt(form, text, command);
        case Argument::Points:
            return IsPoint(text);
        case Argument::Dimensions:
            return IsSize(text);
        case Argument::Zoom:
            return text == L"extents" || text == L"selection" ||
                   (IsNumber(text) && std::wcstod(text.c_str(), nullptr) > 0);
        case Argument::Text:
            // An empty text can be typed, but names nothing.
            return !text.empty() || command.kind == CommandKind::Type ||
                   command.kind == CommandKind::Answer || command.kind == CommandKind::Say;
        default:
            return true;
    }
}

}  // namespace

CommandParser::CommandParser(TextFileReader readFile) : m_readFile(std::move(readFile)) {
}

bool CommandParser::Parse(std::span<const std::wstring> arguments, CommandLine& result,
                          std::wstring& message) {
    result = {};
    if (!arguments.empty() && !arguments.front().starts_with(L"-")) {
        result.drawing = arguments.front();
        arguments = arguments.subspan(1);
        if (result.drawing.empty()) {
            message = L"the name of the drawing is empty";
            return false;
        }
    }
    const bool done = ParseCommands(arguments, {}, result);
    message = m_message;
    return done;
}

bool CommandParser::ParseCommands(std::span<const std::wstring> arguments, const std::wstring& origin,
                                  CommandLine& result) {
    for (std::size_t next = 0; next < arguments.size();) {
        if (!ParseOne(arguments, next, origin, result)) {
            return false;
        }
    }
    return true;
}

bool CommandParser::ParseOne(std::span<const std::wstring> arguments, std::size_t& next,
                             const std::wstring& origin, CommandLine& result) {
    const std::wstring& word = arguments[next++];
    const bool argumentFollows = next < arguments.size() && !IsCommandWord(arguments[next]);
    if (word == L"--help" || word == L"-h") {
        result.help = true;
        return true;
    }
    if (word == L"--batch") {
        return argumentFollows ? ParseBatch(arguments[next++], origin, result)
                               : Refuse(origin, L"--batch needs FILE");
    }
    const CommandForm* const form = FindForm(word);
    if (!form) {
        return Refuse(
            origin, (word.starts_with(L"-") ? L"unknown command " : L"a command was expected, not ") + word);
    }
    Command command;
    command.kind = form->kind;
    command.origin = origin;
    if (form->argument == Argument::Count) {
        const bool digits =
            argumentFollows && arguments[next].find_first_not_of(L"0123456789") == std::wstring::npos;
        if (digits && !ReadCount(arguments[next++], command.count)) {
            return Refuse(origin, word + L" takes a count up to " + std::to_wstring(c_largestCount));
        }
    } else if (form->argument != Argument::None) {
        if (!argumentFollows || !TakeArgument(*form, arguments[next++], command)) {
            return Refuse(origin, word + L" needs " + form->shape);
        }
    }
    if (form->takesJson && next < arguments.size() && arguments[next] == L"--json") {
        command.json = true;
        ++next;
    }
    if (result.commands.size() >= c_mostCommands) {
        return Refuse(origin, L"too many commands");
    }
    result.commands.push_back(std::move(command));
    return true;
}

bool CommandParser::ParseBatch(const std::wstring& path, const std::wstring& origin, CommandLine& result) {
    if (m_batchDepth >= c_deepestBatch) {
        return Refuse(origin, L"batch files call each other too deeply: " + path);
    }
    std::wstring text;
    if (!m_readFile(path, text)) {
        return Refuse(origin, L"cannot read the batch file " + path);
    }
    ++m_batchDepth;
    bool good = true;
    std::size_t number = 0;
    for (std::size_t begin = 0; good && begin < text.size();) {
        const std::size_t end = std::min(text.find(L'\n', begin), text.size());
        const std::wstring line = text.substr(begin, end - begin);
        const std::wstring place = path + L":" + std::to_wstring(++number);
        std::vector<std::wstring> words;
        good = SplitBatchLine(line, words) ? ParseCommands(words, place, result)
                                           : Refuse(place, L"a quotation mark is not closed");
        begin = end + 1;
    }
    --m_batchDepth;
    return good;
}

bool CommandParser::Refuse(const std::wstring& origin, const std::wstring& reason) {
    m_message = origin.empty() ? reason : origin + L": " + reason;
    return false;
}

const wchar_t* CommandName(CommandKind kind) {
    const auto* const found = std::find_if(std::begin(c_forms), std::end(c_forms),
                                           [&](const auto& form) { return form.kind == kind; });
    return found == std::end(c_forms) ? L"" : found->name;
}

const wchar_t* HelpText() {
    return LR"(kvpalette [DRAWING] [COMMAND ...]

Shows a drawing (.qxf, .qdf, .geojson) with a property palette beside it.
Without a command the window opens and stays; commands run in order.

  --select WHAT        all, none, a handle list 1A,2B, class=Circle, layer=Walls; repeat to add
  --rows [--json]      print the rows: name, category, control class, text, state, read-only
  --set "ROW=TEXT"     edit the row as a user: type, or choose the entry, then commit
  --unspecify ROW      choose the unspecified value
  --list ROW [--json]  open the row's list and print its entries
  --hover "ROW=ENTRY"  open the list and rest on the entry, which the drawing previews
  --escape             leave the open row without committing
  --click "ROW:BUTTON" press a button in the row: dialog, calculator or pick
  --answer "TEXT"      prepare the answer to the next dialog
  --pick "x,y[,z]"     give a point to the waiting point input
  --undo [N] --redo [N]
  --objects [--json]   print the selected objects' properties as the database holds them
  --catalogue [--json] print the 49 control classes and the rows of this drawing that use them
  --setvar NAME=VALUE  set a host system variable
  --trace FILE         write the journal, one JSON line per call and event
  --screenshot FILE    PNG of the whole window, open lists included
  --save FILE          write the drawing (.qxf, .qdf)
  --open FILE          put another drawing in the place of this one
  --batch FILE         the same commands, one a line; # begins a remark

For pictures and guided tours:
  --edit ROW           put the row in edit and leave it there
  --type TEXT          type into the row in edit, without committing
  --tip ROW            rest the pointer over the row until its tip shows
  --zoom WHAT          extents, selection, or a factor around the middle
  --size WxH           size of the window in pixels
  --say TEXT           print a line

Exit status: 0 done, 2 bad usage, 3 a drawing can't be read or written,
4 a row refused an edit, 5 anything else.
)";
}

}  // namespace kvpalette
