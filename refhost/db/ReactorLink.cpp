#include "refhost/db/ReactorLink.h"

#include <vector>

#include "host_sdk/KvDbObjectReactor.h"
#include "refhost/db/Object.h"

namespace kvhost {

namespace {

/// Plug-ins only look, though the host's way to the face is that of writers.
const KvDbObject* FaceOf(const Object& object) {
    return const_cast<Object&>(object).DbObject();
}

/// Host calls come on one thread only, so that a plain list does.
std::vector<ReactorLink*>& LivingLinks() {
    static std::vector<ReactorLink*> s_links;
    return s_links;
}

}  // namespace

ReactorLink::ReactorLink(const Object& object, KvDbObjectReactor& reactor)
    : m_object(object), m_reactor(reactor) {
    LivingLinks().push_back(this);
}

ReactorLink::~ReactorLink() {
    std::erase(LivingLinks(), this);
}

void ReactorLink::EndAllTo(const KvDbObjectReactor* reactor) {
    const std::vector<ReactorLink*> links = LivingLinks();
    for (const ReactorLink* const link : links) {
        if (link->Leads(reactor)) {
            link->m_object.EndLink(reactor);
        }
    }
}

void ReactorLink::OpenedForModify(const Object& object) {
    m_reactor.openedForModify(FaceOf(object));
}

void ReactorLink::Modified(const Object& object) {
    m_reactor.onWatchedObjectModified(FaceOf(object));
}

void ReactorLink::PartModified(const Object& object, const Object& part) {
    KvDbObjectReactor& reactor = m_reactor;  // the reactor may end this link in the first call
    reactor.subObjModified(FaceOf(object), FaceOf(part));
    if (object.IsWatchedBy(&reactor)) {
        reactor.onWatchedObjectModified(FaceOf(object));
    }
}

void ReactorLink::Undone(const Object& object) {
    m_reactor.modifyUndone(FaceOf(object));
}

void ReactorLink::Erased(const Object& object, bool erased) {
    m_reactor.erased(FaceOf(object), erased);
}

void ReactorLink::Gone(const Object& object) {
    m_reactor.onWatchedObjectGone(FaceOf(object));
}

}  // namespace kvhost
