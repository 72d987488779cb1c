#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host_sdk/KvDbUndoController.h"
#include "refhost/db/ChangeSet.h"
#include "refhost/db/PreviewRecord.h"

namespace kvhost {

class Object;

/// Undo record of one database. Steps are groups, or single opens for write outside any group.
class KVHOST_API UndoController final : public KvDbUndoController {
public:
    UndoController();
    UndoController(const UndoController&) = delete;
    UndoController& operator=(const UndoController&) = delete;
    ~UndoController();

    // KvDbUndoController, with journal and faults.
    Tolm::ErrorStatus undo(int count) override;
    Tolm::ErrorStatus undoGroup(int code, const wchar_t* text) override;

    // The same for the host itself. A group without changes is a step like any other, so that who opened it
    // can take back exactly this one.
    Tolm::ErrorStatus BeginGroup(const wchar_t* text);
    Tolm::ErrorStatus EndGroup();
    Tolm::ErrorStatus Undo(int count);
    Tolm::ErrorStatus Redo(int count);

    /// The user's undo and redo: groups without changes are passed over. eInvalidInput when there are fewer
    /// steps than `count` or a group is open, and nothing is changed.
    Tolm::ErrorStatus UndoByUser(int count);
    Tolm::ErrorStatus RedoByUser(int count);
    /// Text of the step that the user's undo or redo takes next, empty when there is none.
    [[nodiscard]] std::wstring UndoText() const;
    [[nodiscard]] std::wstring RedoText() const;
    /// Number of steps with changes.
    [[nodiscard]] int UndoCount() const;
    [[nodiscard]] int RedoCount() const;

    [[nodiscard]] int OpenGroups() const { return m_depth; }
    /// Names the drawing's present state: equal values mean equal states as far as undo knows.
    [[nodiscard]] std::uint64_t StateStamp() const;
    /// Forgets all steps.
    void Clear();

    /// Changes that are shown and not made. While it records there are no steps: groups are let through
    /// without effect and undo is refused. A group, an undo, an open for write and a new object from
    /// elsewhere take it back first, so that they begin with the drawing's true state.
    [[nodiscard]] PreviewRecord& Preview() { return m_preview; }

private:
    friend class Database;
    struct Step {
        std::wstring text;
        ChangeSet changes;
        std::uint64_t stamp = 0;
    };

    void NoteBefore(Object& object);
    void NoteCreated(Object& object);
    void NoteAfter(const Object& object);
    /// Where changes are noted now.
    [[nodiscard]] ChangeSet& Recorder();
    /// Ends the step of a single open; nothing within a group.
    void EndLooseStep();
    void FinishStep(bool keepEmpty);
    Tolm::ErrorStatus Move(std::vector<Step>& from, std::vector<Step>& to, int count, bool passOverEmpty);

    std::vector<Step> m_undo;
    std::vector<Step> m_redo;
    Step m_open;
    PreviewRecord m_preview;
    int m_depth = 0;
    std::uint64_t m_lastStamp = 0;
    std::uint64_t m_firstStamp = 0;
};

}  // namespace kvhost
