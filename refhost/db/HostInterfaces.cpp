// Operations of the host's interfaces that have a body of their own.
#include "host_sdk/KvDbObjectReactor.h"
#include "host_sdk/KvDbSymbolTable.h"
#include "refhost/db/ReactorLink.h"

KvDbSymbolTableIterator::~KvDbSymbolTableIterator() = default;

KvDbObjectReactor::KvDbObjectReactor() = default;

KvDbObjectReactor::~KvDbObjectReactor() {
    kvhost::ReactorLink::EndAllTo(this);
}

KvRxClass* KvDbObjectReactor::isA() const {
    return desc();
}

void KvDbObjectReactor::cancelled(const KvDbObject*) {
}

void KvDbObjectReactor::copied(const KvDbObject*, const KvDbObject*) {
}

void KvDbObjectReactor::erased(const KvDbObject*, bool) {
}

void KvDbObjectReactor::onWatchedObjectGone(const KvDbObject*) {
}

void KvDbObjectReactor::openedForModify(const KvDbObject*) {
}

void KvDbObjectReactor::onWatchedObjectModified(const KvDbObject*) {
}

void KvDbObjectReactor::subObjModified(const KvDbObject*, const KvDbObject*) {
}

void KvDbObjectReactor::modifyUndone(const KvDbObject*) {
}

void KvDbObjectReactor::modifiedXData(const KvDbObject*) {
}

void KvDbObjectReactor::unappended(const KvDbObject*) {
}

void KvDbObjectReactor::reappended(const KvDbObject*) {
}

void KvDbObjectReactor::objectClosed(KvDbObjectId) {
}
