#include "palette/commands/BatchLine.h"

#include <algorithm>
#include <utility>

namespace kvpalette {

namespace {

bool IsBlank(wchar_t character) {
    return character == L' ' || character == L'\t' || character == L'\r' || character == 0xFEFF;
}

}  // namespace

bool SplitBatchLine(std::wstring_view line, std::vector<std::wstring>& words) {
    std::wstring word;
    bool inWord = false;
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const wchar_t character = line[i];
        if (!quoted && IsBlank(character)) {
            if (inWord) {
                words.push_back(std::exchange(word, {}));
                inWord = false;
            }
            continue;
        }
        if (!inWord && character == L'#') {
            return true;
        }
        inWord = true;
        if (character == L'\\') {
            const std::size_t last = std::min(line.find_first_not_of(L'\\', i), line.size());
            const std::size_t count = last - i;
            const bool beforeQuote = last < line.size() && line[last] == L'"';
            word.append(beforeQuote ? count / 2 : count, L'\\');
            i = last - 1;
            if (beforeQuote && count % 2 == 1) {
                word += L'"';
                i = last;
            }
        } else if (character == L'"') {
            quoted = !quoted;
        } else {
            word += character;
        }
    }
    if (inWord) {
        words.push_back(std::move(word));
    }
    return !quoted;
}

}  // namespace kvpalette
