#include "refhost/db/UndoController.h"

#include <algorithm>
#include <limits>

#include "refhost/db/SwapNotice.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

/// The stamp of a state amid a step, equal to no other.
constexpr std::uint64_t c_unfinished = std::numeric_limits<std::uint64_t>::max();

}  // namespace

UndoController::UndoController() = default;
UndoController::~UndoController() = default;

Tolm::ErrorStatus UndoController::undo(int count) {
    ServiceCall call(L"undo", count);
    return call.Returns(call.Fails() ? Tolm::eInvalidInput : Undo(count));
}

Tolm::ErrorStatus UndoController::undoGroup(int code, const wchar_t* text) {
    ServiceCall call(L"undoGroup", code, text);
    if (code == KVDB_UNDO_GROUP_BEGIN) {
        return call.Returns(call.Fails() ? Tolm::eInvalidInput : BeginGroup(text));
    }
    if (code == KVDB_UNDO_GROUP_END) {
        // An end is carried out even when it is told to fail: nobody could end the group otherwise.
        const Tolm::ErrorStatus status = EndGroup();
        return call.Returns(call.Fails() ? Tolm::eInvalidInput : status);
    }
    return call.Returns(Tolm::eInvalidInput);
}

Tolm::ErrorStatus UndoController::BeginGroup(const wchar_t* text) {
    if (m_preview.IsRecording()) {
        return Tolm::eOk;
    }
    m_preview.TakeBack();
    if (m_depth == 0) {
        EndLooseStep();
        m_open.text = text != nullptr ? text : L"";
    }
    ++m_depth;
    return Tolm::eOk;
}

Tolm::ErrorStatus UndoController::EndGroup() {
    if (m_preview.IsRecording()) {
        return Tolm::eOk;
    }
    if (m_depth == 0) {
        return Tolm::eInvalidInput;
    }
    if (--m_depth == 0) {
        FinishStep(true);
    }
    return Tolm::eOk;
}

void UndoController::NoteBefore(Object& object) {
    Recorder().NoteBefore(object);
}

void UndoController::NoteCreated(Object& object) {
    Recorder().NoteCreated(object);
}

void UndoController::NoteAfter(const Object& object) {
    Recorder().NoteAfter(object);
}

ChangeSet& UndoController::Recorder() {
    return m_preview.IsRecording() ? m_preview.m_changes : m_open.changes;
}

void UndoController::EndLooseStep() {
    if (m_depth == 0 && !m_preview.IsRecording()) {
        FinishStep(false);
    }
}

void UndoController::FinishStep(bool keepEmpty) {
    Step step = std::move(m_open);
    m_open = Step();
    step.changes.DropUnchanged();
    if (step.changes.IsEmpty()) {
        if (keepEmpty) {
            m_undo.push_back(std::move(step));
        }
        return;
    }
    step.stamp = ++m_lastStamp;
    m_undo.push_back(std::move(step));
    m_redo.clear();
}

Tolm::ErrorStatus UndoController::Undo(int count) {
    return Move(m_undo, m_redo, count, false);
}

Tolm::ErrorStatus UndoController::Redo(int count) {
    return Move(m_redo, m_undo, count, false);
}

Tolm::ErrorStatus UndoController::UndoByUser(int count) {
    return Move(m_undo, m_redo, count, true);
}

Tolm::ErrorStatus UndoController::RedoByUser(int count) {
    return Move(m_redo, m_undo, count, true);
}

Tolm::ErrorStatus UndoController::Move(std::vector<Step>& from, std::vector<Step>& to, int count,
                                       bool passOverEmpty) {
    if (m_depth > 0 || count < 1 || m_preview.IsRecording()) {
        return Tolm::eInvalidInput;
    }
    m_preview.TakeBack();
    EndLooseStep();
    std::size_t steps = 0;
    for (int counted = 0; counted < count; ++steps) {
        if (steps == from.size()) {
            return Tolm::eInvalidInput;
        }
        const Step& step = from[from.size() - 1 - steps];
        const Tolm::ErrorStatus status = step.changes.CanSwap();
        if (status != Tolm::eOk) {
            return status;
        }
        counted += passOverEmpty && step.changes.IsEmpty() ? 0 : 1;
    }
    SwapNotice notice;
    for (; steps > 0; --steps) {
        Step step = std::move(from.back());
        from.pop_back();
        notice.Add(step.changes);
        step.changes.Swap();
        to.push_back(std::move(step));
    }
    notice.Send();
    return Tolm::eOk;
}

std::wstring UndoController::UndoText() const {
    const auto step = std::find_if(m_undo.rbegin(), m_undo.rend(),
                                   [](const Step& candidate) { return !candidate.changes.IsEmpty(); });
    return step != m_undo.rend() ? step->text : std::wstring();
}

std::wstring UndoController::RedoText() const {
    const auto step = std::find_if(m_redo.rbegin(), m_redo.rend(),
                                   [](const Step& candidate) { return !candidate.changes.IsEmpty(); });
    return step != m_redo.rend() ? step->text : std::wstring();
}

int UndoController::UndoCount() const {
    return static_cast<int>(std::count_if(m_undo.begin(), m_undo.end(),
                                          [](const Step& step) { return !step.changes.IsEmpty(); }));
}

int UndoController::RedoCount() const {
    return static_cast<int>(std::count_if(m_redo.begin(), m_redo.end(),
                                          [](const Step& step) { return !step.changes.IsEmpty(); }));
}

std::uint64_t UndoController::StateStamp() const {
    if (!m_open.changes.IsEmpty()) {
        return c_unfinished;
    }
    const auto step = std::find_if(m_undo.rbegin(), m_undo.rend(),
                                   [](const Step& candidate) { return !candidate.changes.IsEmpty(); });
    return step != m_undo.rend() ? step->stamp : m_firstStamp;
}

void UndoController::Clear() {
    m_firstStamp = StateStamp() == c_unfinished ? ++m_lastStamp : StateStamp();
    m_undo.clear();
    m_redo.clear();
    m_open.changes = ChangeSet();
}

}  // namespace kvhost
