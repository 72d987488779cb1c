#pragma once

class KvApDocument;
class KvDbDatabase;
class KvDbUndoController;

// The host's current document and what belongs to it; all owned by the host, null when there is none.

[[nodiscard]] KvApDocument* CurrentHostDocument();
[[nodiscard]] KvDbDatabase* DatabaseOf(const KvApDocument* document);
[[nodiscard]] KvDbUndoController* UndoControllerOf(const KvDbDatabase* database);

/// The host's working database and the current document's are there and the same: what a control asks of the
/// drawing then concerns the drawing that its user sees.
[[nodiscard]] bool IsCurrentDocumentActive();

/// Gives the focus back to the application; nothing while the thread has no main window.
void FocusMainWindow();
