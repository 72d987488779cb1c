#pragma once

#include "host_sdk/Export.h"
#include "refhost/db/ChangeSet.h"

namespace kvhost {

/// What a preview shows on the drawing: changes that are kept apart from the steps of undo and are taken back
/// byte for byte. Part of the undo controller.
class KVHOST_API PreviewRecord {
public:
    /// Changes from here to EndRecording are the preview's. They add to those that are shown already.
    void BeginRecording() { m_recording = true; }
    void EndRecording() { m_recording = false; }
    [[nodiscard]] bool IsRecording() const { return m_recording; }
    [[nodiscard]] bool IsShown() const { return !m_changes.IsEmpty(); }
    /// Gives the drawing its true state back and tells reactors. Whoever reads an object meanwhile sees it
    /// change. Nothing while the preview records.
    void TakeBack();

private:
    friend class UndoController;

    ChangeSet m_changes{ChangeSet::Kind::Preview};
    bool m_recording = false;
};

}  // namespace kvhost
