#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>

#include "framework/base/WindowsApi.h"
#include "host_sdk/Export.h"

namespace kvhost {

/// What scripted objects do at each call of an operation: write the journal, count, fail when told to.
class KVHOST_API CallScript {
public:
    explicit CallScript(std::wstring name);

    [[nodiscard]] const std::wstring& Name() const { return m_name; }

    /// The `occurrence`-th call of `operation` from now gives `result` and does nothing else; 0: every call.
    void FailCall(const wchar_t* operation, std::size_t occurrence, HRESULT result);
    /// Calls of the operation since the object was made.
    [[nodiscard]] std::size_t Calls(const wchar_t* operation) const;
    /// Runs at the begin of each call, with the operation's name.
    std::function<void(const std::wstring& operation)> onCall;

    /// Begins a call: journal line `operation name arguments`. The result that the call must fail with, else
    /// S_OK.
    [[nodiscard]] HRESULT Begin(const wchar_t* operation, const std::wstring& arguments = {});

private:
    struct Switch {
        std::size_t occurrence = 0;
        std::size_t calls = 0;
        HRESULT result = S_OK;
    };

    std::wstring m_name;
    std::map<std::wstring, Switch, std::less<>> m_switches;
    std::map<std::wstring, std::size_t, std::less<>> m_calls;
};

}  // namespace kvhost
