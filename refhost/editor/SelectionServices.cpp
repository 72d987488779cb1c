#include "host_sdk/KvEdSelection.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/Host.h"
#include "refhost/editor/SelectionSets.h"
#include "refhost/testing/ServiceCall.h"

#include <algorithm>

using kvhost::Host;
using kvhost::SelectionSets;
using kvhost::ServiceCall;

namespace {

/// Text of a name in the journal.
std::wstring NameText(const kved_name name) {
    return name == nullptr ? L"null" : std::to_wstring(name[0]) + L':' + std::to_wstring(name[1]);
}

/// Null when the call is told to fail or no host runs.
SelectionSets* Sets(const ServiceCall& call) {
    Host* const host = call.Fails() ? nullptr : Host::Current();
    return host != nullptr ? &host->Sets() : nullptr;
}

kvhost::Document* CurrentDocument(const ServiceCall& call) {
    Host* const host = call.Fails() ? nullptr : Host::Current();
    return host != nullptr ? host->Documents().Current() : nullptr;
}

/// A buffer with a new set of the ids; null for no ids.
resbuf* BufferWithSet(SelectionSets& sets, std::vector<KvDbObjectId> ids) {
    if (ids.empty()) {
        return nullptr;
    }
    resbuf* const buffer = new resbuf{};
    buffer->restype = KVED_RTPICKS;
    sets.Make(std::move(ids), buffer->resval.rlname);
    return buffer;
}

}  // namespace

int kvedSSGetFirst(resbuf** gripSet, resbuf** pickFirstSet) {
    ServiceCall call(L"kvedSSGetFirst");
    SelectionSets* const sets = Sets(call);
    kvhost::Document* const document = CurrentDocument(call);
    if (sets == nullptr || document == nullptr) {
        return call.Returns(KVED_RTERROR);
    }
    std::vector<KvDbObjectId> gripped = document->GetSelection().Gripped();
    std::vector<KvDbObjectId> picked = document->GetSelection().PickFirst();
    if (gripped.empty() && picked.empty()) {
        return call.Returns(KVED_RTERROR);
    }
    if (gripSet != nullptr) {
        *gripSet = BufferWithSet(*sets, std::move(gripped));
    }
    if (pickFirstSet != nullptr) {
        *pickFirstSet = BufferWithSet(*sets, std::move(picked));
    }
    return call.Returns(KVED_RTNORM);
}

int kvedSSSetFirst(const kved_name gripSet, const kved_name pickFirstSet) {
    ServiceCall call(L"kvedSSSetFirst", NameText(gripSet), NameText(pickFirstSet));
    SelectionSets* const sets = Sets(call);
    kvhost::Document* const document = CurrentDocument(call);
    if (sets == nullptr || document == nullptr) {
        return call.Returns(KVED_RTERROR);
    }
    const std::vector<KvDbObjectId>* const gripped = sets->Find(gripSet);
    const std::vector<KvDbObjectId>* const picked = sets->Find(pickFirstSet);
    if ((gripSet != nullptr && gripped == nullptr) || (pickFirstSet != nullptr && picked == nullptr)) {
        return call.Returns(KVED_RTERROR);
    }
    const std::vector<KvDbObjectId> none;
    const std::vector<KvDbObjectId>& grips = gripped != nullptr ? *gripped : none;
    document->GetSelection().Set(grips, picked != nullptr ? *picked : grips);
    return call.Returns(KVED_RTNORM);
}

int kvedSSLength(const kved_name set, long* length) {
    ServiceCall call(L"kvedSSLength", NameText(set));
    SelectionSets* const sets = Sets(call);
    const std::vector<KvDbObjectId>* const members = sets != nullptr ? sets->Find(set) : nullptr;
    if (members == nullptr || length == nullptr) {
        return call.Returns(KVED_RTERROR);
    }
    *length = static_cast<long>(members->size());
    return call.Returns(KVED_RTNORM);
}

int kvedSSName(const kved_name set, long index, kved_name entity) {
    ServiceCall call(L"kvedSSName", NameText(set), index);
    SelectionSets* const sets = Sets(call);
    const std::vector<KvDbObjectId>* const members = sets != nullptr ? sets->Find(set) : nullptr;
    if (members == nullptr || entity == nullptr || index < 0 ||
        static_cast<std::size_t>(index) >= members->size()) {
        return call.Returns(KVED_RTERROR);
    }
    SelectionSets::NameOf((*members)[static_cast<std::size_t>(index)], entity);
    return call.Returns(KVED_RTNORM);
}

int kvedSSAdd(const kved_name entity, const kved_name set, kved_name result) {
    ServiceCall call(L"kvedSSAdd", NameText(entity), NameText(set));
    SelectionSets* const sets = Sets(call);
    const KvDbObjectId id = SelectionSets::EntityOf(entity);
    if (sets == nullptr || (entity != nullptr && id.isNull())) {
        return call.Returns(KVED_RTERROR);
    }
    if (set == nullptr) {
        if (result == nullptr) {
            return call.Returns(KVED_RTERROR);
        }
        sets->Make(entity != nullptr ? std::vector{id} : std::vector<KvDbObjectId>(), result);
        return call.Returns(KVED_RTNORM);
    }
    std::vector<KvDbObjectId>* const members = sets->Find(set);
    if (members == nullptr) {
        return call.Returns(KVED_RTERROR);
    }
    if (entity != nullptr && std::find(members->begin(), members->end(), id) == members->end()) {
        members->push_back(id);
    }
    if (result != nullptr && result != set) {
        std::copy_n(set, 2, result);
    }
    return call.Returns(KVED_RTNORM);
}

int kvedSSFree(const kved_name set) {
    ServiceCall call(L"kvedSSFree", NameText(set));
    // A release is done even when it is told to fail: nothing could free the set otherwise.
    Host* const host = Host::Current();
    const bool freed = host != nullptr && host->Sets().Free(set);
    return call.Returns(freed && !call.Fails() ? KVED_RTNORM : KVED_RTERROR);
}

Tolm::ErrorStatus kvdbGetObjectId(KvDbObjectId& id, const kved_name entity) {
    ServiceCall call(L"kvdbGetObjectId", NameText(entity));
    const KvDbObjectId found = call.Fails() ? KvDbObjectId() : SelectionSets::EntityOf(entity);
    if (found.isNull()) {
        return call.Returns(Tolm::eUnknownHandle);
    }
    id = found;
    return call.Returns(Tolm::eOk);
}

int kvutRelRb(resbuf* chain) {
    ServiceCall call(L"kvutRelRb");
    while (chain != nullptr) {
        resbuf* const next = chain->rbnext;
        if (chain->restype == KVED_RTSTR) {
            delete[] chain->resval.rstring;
        }
        delete chain;
        chain = next;
    }
    return call.Returns(call.Fails() ? KVED_RTERROR : KVED_RTNORM);
}
