#pragma once

#include <functional>

#include "refhost/automation/PropertyRows.h"
#include "refhost/db/UndoController.h"
#include "tests/control/proofs/SweptRow.h"
#include "tests/control/support/RowContainer.h"

namespace kvtest {

/// Rows over real objects of a drawing: one host service after the other fails in the middle of what a user
/// does, and at last none.
class FaultSweep : public RowContainer, public ::testing::WithParamInterface<SweptRow> {
protected:
    /// What a user does in one life of a row. A step that cannot be done any more is left out.
    using Lead = std::function<void()>;

    FaultSweep();
    ~FaultSweep() override;

    /// Leads the row with one failing call after the other, until a run meets no failure, and then once
    /// without: there each step must be reached. The calls of `beginning`, with which `lead` begins, are left
    /// to the sweep of that one.
    void Sweep(const Lead& lead, const Lead& beginning = nullptr);

    // The steps that all begin with. False when the row has come to an end.

    bool Begin();
    bool BeginActive();

    /// The lead has done all its steps.
    void Complete() { isComplete = true; }
    /// Somebody knows of the failure: what to ask of the row has become void.
    void NoteTold() { isToldOfFailure = true; }
    /// Each object has the new value, or somebody was told that one has not: the user by a message or by the
    /// row's text, the host by the mark of a locked object. Where nothing fails, each has it.
    void ExpectWrittenOrReported();
    [[nodiscard]] bool AreAll(const ScenarioValue& value) const;

    kvhost::UndoController& Undo() { return *undo; }

    const ClassScenario scenario = ScenarioOf(GetParam());
    bool isFaultFree = false;    ///< no call is let fail in this run
    bool wasFocusTaken = false;  ///< by another program, in the middle of the run

private:
    /// The calls of a lead in which none fails, without those of the row's end.
    std::size_t CountCalls(const Lead& lead);
    /// The calls of the run, once that no other program has spoilt. `failing` 0 lets none fail.
    std::size_t Run(const Lead& lead, std::size_t failing);
    void RunOnce(const Lead& lead, std::size_t failing);
    void SetBack();
    void ExpectComplete();
    void ExpectBalanced();
    bool FillRow();
    bool FindEntry(std::size_t index, kvhost::PropertyRowEntry& entry) const;
    /// Null when the value stands in the class's property.
    static const wchar_t* AttributeOf(std::size_t index) { return GetParam().property.attributes[index]; }

    KvDbObjectId ids[c_sweptObjects];
    kvhost::UndoController* undo = nullptr;
    int looseEnds = 0;
    bool isToldOfFailure = false;
    bool isComplete = false;
};

}  // namespace kvtest
