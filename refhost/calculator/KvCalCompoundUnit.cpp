#include "host_sdk/KvCalCompoundUnit.h"

#include "refhost/testing/ServiceCall.h"

KvCalCompoundUnit::KvCalCompoundUnit() : KvCalCompoundUnit(0, 0) {
    const kvhost::ServiceCall call(L"KvCalCompoundUnit");
}

KvCalCompoundUnit::KvCalCompoundUnit(int lengthPower, int anglePower)
    : m_lengthPower(lengthPower), m_anglePower(anglePower) {
}

bool KvCalCompoundUnit::IsUnitless() const {
    return m_lengthPower == 0 && m_anglePower == 0;
}

bool KvCalCompoundUnit::IsLength() const {
    return m_lengthPower == 1 && m_anglePower == 0;
}

bool KvCalCompoundUnit::IsArea() const {
    return m_lengthPower == 2 && m_anglePower == 0;
}

bool KvCalCompoundUnit::IsAngle() const {
    return m_lengthPower == 0 && m_anglePower == 1;
}
