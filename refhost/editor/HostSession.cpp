#include "refhost/editor/HostSession.h"

#include <cstdio>
#include <cstdlib>

#include "refhost/db/Database.h"
#include "refhost/editor/DocumentManager.h"

namespace kvhost {

Host* HostSession::s_current = nullptr;

HostSession::HostSession() {
    if (s_current != nullptr) {
        std::fputs("A host runs already in this process.\n", stderr);
        std::abort();
    }
    Database::KeepRetiredIds(true);
    m_host = new Host();
    s_current = m_host;
    m_host->StartServices();
}

HostSession::~HostSession() {
    m_host->StopServices();
    // Reactors that fire while documents close may still ask for the host.
    m_host->Documents().CloseAll();
    s_current = nullptr;
    delete m_host;
    Database::KeepRetiredIds(false);
}

}  // namespace kvhost
