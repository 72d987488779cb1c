#pragma once

#include <memory>

#include "host_sdk/Export.h"

struct IUnknown;

namespace kvhost {

class Database;
class DocumentManager;
class EditorState;
class HostServices;
class LivePreview;
class LivePreviewContexts;
class SelectionSets;
class SystemVariables;

/// The running host, at most one of a process. It owns documents, selection sets, variables and the editor's
/// state; nothing of them is left after its end.
class KVHOST_API Host {
public:
    /// Null while none runs.
    [[nodiscard]] static Host* Current();

    [[nodiscard]] DocumentManager& Documents() { return *m_documents; }
    [[nodiscard]] EditorState& Editor() { return *m_editor; }
    [[nodiscard]] const EditorState& Editor() const { return *m_editor; }
    [[nodiscard]] LivePreview& Preview() { return *m_preview; }
    [[nodiscard]] LivePreviewContexts& PreviewContexts() { return *m_previewContexts; }
    [[nodiscard]] SelectionSets& Sets() { return *m_sets; }
    [[nodiscard]] SystemVariables& Variables() { return *m_variables; }

    /// The database that new objects and settings go to: the one set here, else that of the current document;
    /// null when there is neither.
    [[nodiscard]] Database* WorkingDatabase() const;
    void SetWorkingDatabase(Database* database) { m_workingDatabase = database; }

    /// What kvedGetApplicationObject hands out. Not owned: clear it before the object dies.
    [[nodiscard]] IUnknown* ApplicationObject() const { return m_applicationObject; }
    void SetApplicationObject(IUnknown* object) { m_applicationObject = object; }

private:
    friend class HostSession;
    friend class DocumentManager;

    Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    ~Host();

    /// Dialogs, message boxes, automation object and plug-in modules: from after the start of the host to
    /// before its documents close.
    void StartServices();
    void StopServices();

    std::unique_ptr<EditorState> m_editor;
    std::unique_ptr<LivePreview> m_preview;
    std::unique_ptr<LivePreviewContexts> m_previewContexts;
    std::unique_ptr<DocumentManager> m_documents;
    std::unique_ptr<SelectionSets> m_sets;
    std::unique_ptr<SystemVariables> m_variables;
    std::unique_ptr<HostServices> m_services;
    Database* m_workingDatabase = nullptr;
    IUnknown* m_applicationObject = nullptr;
};

}  // namespace kvhost
