#include "refhost/testing/CallScript.h"

#include <utility>

#include "refhost/testing/ServiceCall.h"

namespace kvhost {

CallScript::CallScript(std::wstring name) : m_name(std::move(name)) {
}

void CallScript::FailCall(const wchar_t* operation, std::size_t occurrence, HRESULT result) {
    m_switches[operation] = Switch{occurrence, 0, result};
}

std::size_t CallScript::Calls(const wchar_t* operation) const {
    const auto found = m_calls.find(std::wstring_view(operation));
    return found == m_calls.end() ? 0 : found->second;
}

HRESULT CallScript::Begin(const wchar_t* operation, const std::wstring& arguments) {
    const ServiceCall call(operation, arguments.empty() ? m_name : m_name + L' ' + arguments);
    ++m_calls[operation];
    if (onCall) {
        onCall(operation);
    }
    const auto found = m_switches.find(std::wstring_view(operation));
    if (found != m_switches.end()) {
        Switch& failing = found->second;
        ++failing.calls;
        if (failing.occurrence == 0 || failing.occurrence == failing.calls) {
            return failing.result;
        }
    }
    return call.Fails() ? E_FAIL : S_OK;
}

}  // namespace kvhost
