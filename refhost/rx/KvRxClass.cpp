#include "host_sdk/KvRxClass.h"
#include "host_sdk/KvRxDynamicLinker.h"

bool KvRxObject::isKindOf(const KvRxClass* runtimeClass) const {
    return isA()->isDerivedFrom(runtimeClass);
}

KvRxClass* KvRxObject::desc() {
    static KvRxClass s_class(L"KvRxObject", nullptr);
    return &s_class;
}

KvRxClass::KvRxClass(const wchar_t* name, const KvRxClass* parent) : m_name(name), m_parent(parent) {
}

KvRxClass* KvRxClass::isA() const {
    return desc();
}

const wchar_t* KvRxClass::name() const {
    return m_name;
}

const KvRxClass* KvRxClass::parent() const {
    return m_parent;
}

bool KvRxClass::isDerivedFrom(const KvRxClass* other) const {
    for (const KvRxClass* candidate = this; candidate != nullptr; candidate = candidate->m_parent) {
        if (candidate == other) {
            return true;
        }
    }
    return false;
}

KvRxClass* KvRxClass::desc() {
    static KvRxClass s_class(L"KvRxClass", KvRxObject::desc());
    return &s_class;
}

KvRxClass* KvRxDynamicLinker::desc() {
    static KvRxClass s_class(L"KvRxDynamicLinker", KvRxObject::desc());
    return &s_class;
}
