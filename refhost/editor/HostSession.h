#pragma once

#include "refhost/editor/Host.h"

namespace kvhost {

/// Runs the host for a scope. A second one at the same time is a bug and ends the process.
class KVHOST_API HostSession {
public:
    HostSession();
    HostSession(const HostSession&) = delete;
    HostSession& operator=(const HostSession&) = delete;
    ~HostSession();

    Host* operator->() const { return m_host; }
    Host& operator*() const { return *m_host; }

private:
    friend class Host;
    static Host* s_current;

    Host* m_host;  // Owned; its destructor is open to the session only.
};

}  // namespace kvhost
