#pragma once

#include <optional>
#include <ostream>
#include <vector>

#include "tests/control/proofs/RandomVariant.h"
#include "tests/control/support/ClassScenario.h"

namespace kvtest {

/// The objects that random selections are made of.
struct SelectionPool {
    static constexpr DISPID c_property = 5;
    static constexpr DISPID c_unknownProperty = 77;  ///< no object has it
    static constexpr DISPID c_dynamic = -23;

    explicit SelectionPool(const ClassScenario& classScenario);

    const ClassScenario& scenario;
    fw::ComPtr<kvhost::ScriptedObject> same;                      ///< its value is the scenario's first
    fw::ComPtr<kvhost::ScriptedObject> alike;                     ///< its value counts as the same
    fw::ComPtr<kvhost::ScriptedObject> other;                     ///< has another value
    fw::ComPtr<kvhost::ScriptedDynamicProperty> dynamicProperty;  ///< the first value for all objects

    /// True when nobody but the pool holds one of them.
    [[nodiscard]] bool IsReleased() const;
};

/// Three arguments of one call, and what the call must give for them.
class InitTriple {
public:
    InitTriple(RandomEngine& random, SelectionPool& pool);

    [[nodiscard]] VARIANT* Objects() { return m_hasNull[0] ? nullptr : &m_objects.value; }
    [[nodiscard]] VARIANT* DynamicProperties() { return m_hasNull[1] ? nullptr : &m_dynamic.value; }
    [[nodiscard]] VARIANT* Dispids() { return m_hasNull[2] ? nullptr : &m_dispids.value; }

    /// From the rules of the call, by what was put in and not by looking at the VARIANTs' arrays.
    [[nodiscard]] HRESULT Expected() const;
    /// For the message of a failed test.
    friend std::ostream& operator<<(std::ostream& stream, const InitTriple& triple);

private:
    struct Entry {
        kvhost::ScriptedObject* object = nullptr;
        kvhost::ScriptedDynamicProperty* dynamicProperty = nullptr;
        DISPID dispid = 0;
    };

    void FillArrays(RandomEngine& random);
    void FillElements(RandomEngine& random);
    [[nodiscard]] bool AreArrays() const;
    [[nodiscard]] std::optional<std::vector<Entry>> Selection() const;
    [[nodiscard]] HRESULT ReadFirst(const Entry& entry) const;
    [[nodiscard]] HRESULT Read(const std::vector<Entry>& entries) const;

    SelectionPool& m_pool;
    RandomVariant m_objects;
    RandomVariant m_dynamic;
    RandomVariant m_dispids;
    std::vector<kvhost::ScriptedObject*> m_objectElements;
    std::vector<kvhost::ScriptedDynamicProperty*> m_dynamicElements;
    std::vector<DISPID> m_dispidElements;
    bool m_hasNull[3]{};
};

}  // namespace kvtest
