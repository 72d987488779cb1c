#include <utility>

#include "core/CKvPeCtrlBase.h"
#include "core/ModelessMarks.h"
#include "host_sdk/KvDbEntity.h"
#include "host_sdk/KvDbUndoController.h"
#include "host_sdk/KvEdSelection.h"
#include "host_sdk/KvEdServices.h"
#include "host_sdk/KvEdVariables.h"

namespace {

constexpr const wchar_t* c_grips = L"GRIPS";
constexpr const wchar_t* c_gripObjectLimit = L"GRIPOBJLIMIT";

// Owns a selection set of the editor.
class SelectionSet {
public:
    SelectionSet() = default;
    // Takes the set that the chain names over; a null chain is the empty set.
    explicit SelectionSet(resbuf* chain) {
        if (chain != nullptr) {
            m_name[0] = chain->resval.rlname[0];
            m_name[1] = chain->resval.rlname[1];
            kvutRelRb(chain);
        }
    }
    SelectionSet(const SelectionSet&) = delete;
    SelectionSet& operator=(const SelectionSet&) = delete;
    ~SelectionSet() { Free(); }

    void Free() {
        if (m_name[0] != 0 || m_name[1] != 0) {
            kvedSSFree(m_name);
            m_name[0] = m_name[1] = 0;
        }
    }

    [[nodiscard]] kved_name& Name() { return m_name; }

private:
    kved_name m_name = {0, 0};
};

// Adds the object of that name unless the undo has erased it.
void AddIfLiving(SelectionSet& living, const kved_name name) {
    KvDbObjectId id;
    if (kvdbGetObjectId(id, name) != Tolm::eOk) {
        return;
    }
    KvDbEntity* entity = nullptr;
    const Tolm::ErrorStatus opened = kvdbOpenKvDbEntity(entity, id, KvDb::kForRead);
    if (opened != Tolm::eWasErased) {
        kvedSSAdd(name, living.Name(), living.Name());
    }
    if (opened == Tolm::eOk) {
        // A read open ends whatever the status says.
        fw::Ignore(entity->close());
    }
}

void AddLiving(SelectionSet& living, SelectionSet& all, long count) {
    for (long index = 0; index < count; ++index) {
        kved_name name = {0, 0};
        if (kvedSSName(all.Name(), index, name) == KVED_RTNORM) {
            AddIfLiving(living, name);
        }
    }
}

void SetGrips(short value) {
    resbuf variable{};
    variable.restype = KVED_RTSHORT;
    variable.resval.rint = value;
    kvedSetVar(c_grips, &variable);
}

// Keeps the host from computing grips for a selection above its limit while that is put back.
class GripSuppression {
public:
    explicit GripSuppression(SelectionSet& selection) {
        if (!IsAboveLimit(selection)) {
            return;
        }
        resbuf grips{};
        if (kvedGetVar(c_grips, &grips) == KVED_RTNORM) {
            m_rememberedValue = grips.resval.rint;
            m_suppressed = true;
            SetGrips(0);
        }
    }
    GripSuppression(const GripSuppression&) = delete;
    GripSuppression& operator=(const GripSuppression&) = delete;
    ~GripSuppression() {
        if (m_suppressed) {
            SetGrips(m_rememberedValue);
        }
    }

private:
    static bool IsAboveLimit(SelectionSet& selection) {
        resbuf limit{};
        long length = 0;
        const int limitRead = kvedGetVar(c_gripObjectLimit, &limit);
        const int lengthRead = kvedSSLength(selection.Name(), &length);
        return limitRead == KVED_RTNORM && lengthRead == KVED_RTNORM && length > limit.resval.rint;
    }

    short m_rememberedValue = 0;
    bool m_suppressed = false;
};

}  // namespace

Tolm::ErrorStatus CKvPeCtrlBase::undoSSRetain(KvDbUndoController* controller, int) {
    if (controller == nullptr) {
        return Tolm::eInvalidInput;
    }
    resbuf* gripChain = nullptr;
    resbuf* pickFirstChain = nullptr;
    if (kvedSSGetFirst(&gripChain, &pickFirstChain) != KVED_RTNORM) {
        // What cannot be undone stays; the write has been told to have failed.
        fw::Ignore(controller->undo(1));
        return Tolm::eOk;
    }
    SelectionSet gripSet(gripChain);
    SelectionSet pickFirstSet(pickFirstChain);
    kvedSendModelessOperationStart(KVPE_MARK_ERROR_CONDITION);
    long length = 0;
    kvedSSLength(pickFirstSet.Name(), &length);
    fw::Ignore(controller->undo(1));

    SelectionSet living;
    kvedSSAdd(nullptr, nullptr, living.Name());
    AddLiving(living, pickFirstSet, length);
    {
        const GripSuppression suppression(living);
        kvedSSSetFirst(living.Name(), nullptr);
    }
    living.Free();
    kvedSendModelessOperationEnded(KVPE_MARK_ERROR_CONDITION);
    gripSet.Free();
    pickFirstSet.Free();
    return Tolm::eOk;
}
