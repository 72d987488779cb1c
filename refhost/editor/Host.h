#pragma once

#include <memory>

#include "host_sdk/Export.h"

struct IUnknown;

namespace kvhost {

class Database;
class DocumentManager;
class EditorState;
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

    std::unique_ptr<EditorState> m_editor;
    std::unique_ptr<DocumentManager> m_documents;
    std::unique_ptr<SelectionSets> m_sets;
    std::unique_ptr<SystemVariables> m_variables;
    Database* m_workingDatabase = nullptr;
    IUnknown* m_applicationObject = nullptr;
};

}  // namespace kvhost
