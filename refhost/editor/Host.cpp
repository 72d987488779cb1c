#include "refhost/editor/Host.h"

#include "refhost/automation/HostServices.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/EditorState.h"
#include "refhost/editor/HostSession.h"
#include "refhost/editor/LivePreview.h"
#include "refhost/editor/LivePreviewContexts.h"
#include "refhost/editor/SelectionSets.h"
#include "refhost/editor/SystemVariables.h"

namespace kvhost {

Host::Host()
    : m_editor(std::make_unique<EditorState>()),
      m_preview(std::make_unique<LivePreview>(*m_editor)),
      m_previewContexts(std::make_unique<LivePreviewContexts>()),
      m_documents(std::make_unique<DocumentManager>()),
      m_sets(std::make_unique<SelectionSets>()),
      m_variables(std::make_unique<SystemVariables>()) {
}

Host::~Host() = default;

void Host::StartServices() {
    m_services = std::make_unique<HostServices>();
    m_applicationObject = m_services->Application();
}

void Host::StopServices() {
    m_applicationObject = nullptr;
    m_services.reset();
}

Host* Host::Current() {
    return HostSession::s_current;
}

Database* Host::WorkingDatabase() const {
    if (m_workingDatabase != nullptr) {
        return m_workingDatabase;
    }
    Document* const current = m_documents->Current();
    return current != nullptr ? &current->GetDatabase() : nullptr;
}

}  // namespace kvhost
