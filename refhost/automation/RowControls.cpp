#include "refhost/automation/RowControls.h"

#include "refhost/editor/Host.h"
#include "refhost/editor/SystemVariables.h"

namespace kvhost {

namespace {

constexpr wchar_t c_variable[] = L"ROWCONTROLS";

// The part up to the separator, which is taken out of the text with it.
std::wstring_view TakeUntil(std::wstring_view& text, wchar_t separator) {
    const std::size_t end = text.find(separator);
    const std::wstring_view part = text.substr(0, end);
    text = end == std::wstring_view::npos ? std::wstring_view() : text.substr(end + 1);
    return part;
}

}  // namespace

std::wstring WantedControlOf(std::wstring_view row) {
    Host* const host = Host::Current();
    VariableValue value;
    if (host == nullptr || host->Variables().Get(c_variable, value) != SystemVariables::Outcome::Done) {
        return {};
    }
    std::wstring_view rest = std::get<std::wstring>(value);
    while (!rest.empty()) {
        std::wstring_view control = TakeUntil(rest, L';');
        if (TakeUntil(control, L'=') == row) {
            return std::wstring(control);
        }
    }
    return {};
}

}  // namespace kvhost
