#pragma once

#include <cstddef>
#include <string>

#include "host_sdk/Export.h"
#include "refhost/testing/JournalText.h"

namespace kvhost {

class Journal;

/// Brackets the body of one host service: writes its journal line and asks the fault switches.
/// Use: `ServiceCall call(L"kvedGetVar", name); if (call.Fails()) return call.Returns(KVED_RTERROR); ...`
/// Costs one test of a flag while neither a journal nor a fault is in force.
class KVHOST_API ServiceCall {
public:
    template <class... Arguments>
    explicit ServiceCall(const wchar_t* name, const Arguments&... arguments) {
        if (IsWatched()) {
            Begin(name, JoinAsText(arguments...));
        }
    }
    ServiceCall(const ServiceCall&) = delete;
    ServiceCall& operator=(const ServiceCall&) = delete;

    /// True when a fault switch tells this call to fail.
    [[nodiscard]] bool Fails() const { return m_fails; }

    /// Notes the result in the journal and hands it on.
    template <class Result>
    Result Returns(Result result) {
        if (m_entry != c_noEntry) {
            End(AsText(result));
        }
        return result;
    }
    /// The same for a result code, which the journal shows in hexadecimal.
    HRESULT ReturnsCode(HRESULT result) {
        if (m_entry != c_noEntry) {
            End(AsText(ResultCode{result}));
        }
        return result;
    }

private:
    static constexpr std::size_t c_noEntry = static_cast<std::size_t>(-1);

    [[nodiscard]] static bool IsWatched();
    void Begin(const wchar_t* name, const std::wstring& arguments);
    void End(const std::wstring& result);

    Journal* m_journal = nullptr;  // not owned; the one attached when the call began
    std::size_t m_entry = c_noEntry;
    bool m_fails = false;
};

}  // namespace kvhost
