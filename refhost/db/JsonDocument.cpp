#include "refhost/db/JsonDocument.h"

#include <algorithm>

#include "refhost/db/NameRules.h"

namespace kvhost {

namespace {

constexpr std::string_view c_byteOrderMark = "\xEF\xBB\xBF";
/// Far beyond what drawings and maps need. A file that nests without end would be held in memory whole before
/// it is refused.
constexpr int c_greatestDepth = 200;

/// "line 3, column 7" of a byte offset.
std::wstring PlaceOf(std::string_view content, std::size_t offset) {
    const std::string_view before = content.substr(0, std::min(offset, content.size()));
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    const std::size_t lineStart = before.rfind('\n') + 1;  // npos + 1 is 0.
    const std::size_t column = before.size() - lineStart + 1;
    return L"line " + std::to_wstring(line) + L", column " + std::to_wstring(column);
}

/// Offset of the bracket that nests too deeply; npos when none does.
std::size_t OffsetOfExcessiveDepth(std::string_view content) {
    int depth = 0;
    bool inText = false;
    for (std::size_t offset = 0; offset < content.size(); ++offset) {
        const char unit = content[offset];
        if (unit == '"') {
            inText = !inText;
        } else if (inText) {
            offset += unit == '\\' ? 1 : 0;
        } else if (unit == '[' || unit == '{') {
            if (++depth > c_greatestDepth) {
                return offset;
            }
        } else if (unit == ']' || unit == '}') {
            --depth;
        }
    }
    return std::string_view::npos;
}

/// What the parser says of the error, without its own name and place.
std::wstring ReasonOf(const char* message) {
    const std::string text(message);
    const std::size_t place = text.find("column ");
    const std::size_t start = place == std::string::npos ? text.find("] ") : text.find(": ", place);
    const std::string reason = start == std::string::npos ? text : text.substr(start + 2);
    // The message may quote bytes of the file, which need not be text.
    std::wstring shown;
    for (const char unit : reason) {
        shown += unit >= ' ' && unit <= '~' ? static_cast<wchar_t>(unit) : L'?';
    }
    return shown;
}

/// Offset of the number that was too large: the parser names it instead of its place.
std::size_t OffsetOfNumber(std::string_view content, const std::string& message) {
    const std::size_t start = message.find('\'');
    const std::size_t end = message.rfind('\'');
    return start < end ? content.find(message.substr(start + 1, end - start - 1)) : 0;
}

}  // namespace

std::wstring JsonPath::Text() const {
    if (parent == nullptr) {
        return L"/";
    }
    const std::wstring before = parent->parent != nullptr ? parent->Text() : std::wstring();
    return before + L'/' + (member != nullptr ? FromUtf8(member) : std::to_wstring(index));
}

bool ParseJson(std::string_view content, Json& document, std::wstring& error) {
    const std::string_view text =
        content.starts_with(c_byteOrderMark) ? content.substr(c_byteOrderMark.size()) : content;
    const std::size_t tooDeep = OffsetOfExcessiveDepth(text);
    if (tooDeep != std::string_view::npos) {
        error = PlaceOf(text, tooDeep) + L": nested too deeply";
        return false;
    }
    try {
        document = Json::parse(text);
        return true;
    } catch (const Json::parse_error& failure) {
        error = PlaceOf(text, failure.byte > 0 ? failure.byte - 1 : 0) + L": " + ReasonOf(failure.what());
    } catch (const Json::exception& failure) {
        error = PlaceOf(text, OffsetOfNumber(text, failure.what())) + L": " + ReasonOf(failure.what());
    }
    return false;
}

const Json* FindMember(const Json& object, const char* name) {
    const auto found = object.find(name);
    return found != object.end() ? &*found : nullptr;
}

}  // namespace kvhost
