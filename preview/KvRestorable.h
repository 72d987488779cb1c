#pragma once

#include "preview/KvRestorableBase.h"

/// A copy of type T of a variable of type U. The variable must outlive it.
template <class T, class U = T>
class KvRestorable final : public KvRestorableBase {
public:
    explicit KvRestorable(U& variable) : m_value(variable), m_pVariable(&variable) {}

    // IKvRestorable
    [[nodiscard]] bool IsUnchanged() const override { return m_value == *m_pVariable; }
    [[nodiscard]] bool RefersTo(const void* variable) const override { return variable == m_pVariable; }

protected:
    // KvRestorableBase
    void DoRestore() override { *m_pVariable = m_value; }

private:
    T m_value;
    U* m_pVariable;  // the control's
};
