#include "tests/control/proofs/InitTriple.h"

namespace kvtest {
namespace {

bool IsParallelArray(const RandomVariant& argument, VARTYPE type) {
    return argument.value.vt == (VT_ARRAY | type) && argument.array != nullptr && argument.element == type &&
           argument.dimensions == 1 && argument.lower >= 0;
}

// The element at an index of the array's own, null outside it.
template <class Element>
const Element* ElementAt(const RandomVariant& argument, const std::vector<Element>& elements, LONG index) {
    const LONG position = index - argument.lower;
    const bool isInside = position >= 0 && static_cast<std::size_t>(position) < elements.size();
    return isInside ? &elements[static_cast<std::size_t>(position)] : nullptr;
}

}  // namespace

SelectionPool::SelectionPool(const ClassScenario& classScenario)
    : scenario(classScenario),
      same(kvhost::ScriptedObject::Make(L"A")),
      alike(kvhost::ScriptedObject::Make(L"B")),
      other(kvhost::ScriptedObject::Make(L"C")),
      dynamicProperty(
          kvhost::ScriptedDynamicProperty::Make(L"P", kvhost::OffersByObject | kvhost::OffersById)) {
    scenario.Give(*same, c_property, scenario.before);
    scenario.Give(*alike, c_property, scenario.alike);
    scenario.Give(*other, c_property, scenario.after);
    scenario.Give(*dynamicProperty, scenario.before);
}

bool SelectionPool::IsReleased() const {
    return same->References() == 1 && alike->References() == 1 && other->References() == 1 &&
           dynamicProperty->References() == 1;
}

InitTriple::InitTriple(RandomEngine& random, SelectionPool& pool) : m_pool(pool) {
    FillArrays(random);
    // Most arguments stay as they should be, so that each rule is met alone.
    RandomVariant* const arguments[] = {&m_objects, &m_dynamic, &m_dispids};
    for (std::size_t index = 0; index < 3; ++index) {
        if (arguments[index]->array == nullptr && arguments[index]->value.vt == VT_EMPTY) {
            arguments[index]->Fill(random, pool.dynamicProperty->Identity(), pool.same.Get());
        }
        m_hasNull[index] = PickOnceIn(random, 50);
    }
    // An array of any kind that happens to have the right type has null elements.
    m_objectElements.resize(m_objects.count);
    m_dynamicElements.resize(m_dynamic.count);
    const bool isUsable = m_dispids.element == VT_I4 && m_dispids.dimensions == 1;
    while (isUsable && m_dispidElements.size() < m_dispids.count) {
        const auto index = static_cast<LONG>(m_dispidElements.size());
        m_dispidElements.push_back(SelectionPool::c_unknownProperty);
        m_dispids.PutLong(m_dispids.lower + index, m_dispidElements.back());
    }
}

void InitTriple::FillArrays(RandomEngine& random) {
    const ULONG count = PickBelow(random, 5);
    const LONG lower = PickOnceIn(random, 8) ? static_cast<LONG>(PickBelow(random, 4)) - 1 : 0;
    const auto fill = [&](RandomVariant& argument, VARTYPE type) {
        if (PickOnceIn(random, 5)) {
            return;
        }
        const ULONG ownCount = PickOnceIn(random, 15) ? PickBelow(random, 5) : count;
        const LONG ownLower = PickOnceIn(random, 15) ? static_cast<LONG>(PickBelow(random, 4)) - 1 : lower;
        argument.FillArray(type, type, 1, ownLower, ownCount);
    };
    fill(m_objects, VT_DISPATCH);
    fill(m_dynamic, VT_UNKNOWN);
    fill(m_dispids, VT_I4);
    FillElements(random);
}

void InitTriple::FillElements(RandomEngine& random) {
    kvhost::ScriptedObject* const objects[] = {m_pool.same.Get(),  m_pool.same.Get(),  m_pool.same.Get(),
                                               m_pool.alike.Get(), m_pool.other.Get(), nullptr};
    for (ULONG index = 0; index < m_objects.count; ++index) {
        m_objectElements.push_back(objects[PickBelow(random, 6)]);
        m_objects.PutObject(m_objects.lower + static_cast<LONG>(index),
                            static_cast<IDispatch*>(m_objectElements.back()));
    }
    for (ULONG index = 0; index < m_dynamic.count; ++index) {
        m_dynamicElements.push_back(PickOnceIn(random, 3) ? nullptr : m_pool.dynamicProperty.Get());
        m_dynamic.PutObject(m_dynamic.lower + static_cast<LONG>(index),
                            m_dynamicElements.back() ? m_dynamicElements.back()->Identity() : nullptr);
    }
    constexpr DISPID dispids[] = {SelectionPool::c_property, SelectionPool::c_property,
                                  SelectionPool::c_property, SelectionPool::c_dynamic,
                                  SelectionPool::c_unknownProperty};
    for (ULONG index = 0; index < m_dispids.count; ++index) {
        m_dispidElements.push_back(dispids[PickBelow(random, 5)]);
        m_dispids.PutLong(m_dispids.lower + static_cast<LONG>(index), m_dispidElements.back());
    }
}

bool InitTriple::AreArrays() const {
    return !m_hasNull[0] && !m_hasNull[1] && !m_hasNull[2] && IsParallelArray(m_objects, VT_DISPATCH) &&
           IsParallelArray(m_dynamic, VT_UNKNOWN) && IsParallelArray(m_dispids, VT_I4);
}

std::optional<std::vector<InitTriple::Entry>> InitTriple::Selection() const {
    // Entries below the lower bound are there, with nothing in them.
    std::vector<Entry> entries(static_cast<std::size_t>(m_objects.lower));
    const LONG end = m_objects.lower + static_cast<LONG>(m_objectElements.size());
    for (LONG index = m_objects.lower; index < end; ++index) {
        const DISPID* const dispid = ElementAt(m_dispids, m_dispidElements, index);
        if (!dispid) {
            return std::nullopt;
        }
        Entry entry{*ElementAt(m_objects, m_objectElements, index), nullptr, *dispid};
        if (*dispid == SelectionPool::c_dynamic) {
            const auto* const dynamicProperty = ElementAt(m_dynamic, m_dynamicElements, index);
            if (!dynamicProperty) {
                return std::nullopt;
            }
            entry.dynamicProperty = *dynamicProperty;
        }
        entries.push_back(entry);
    }
    return entries;
}

HRESULT InitTriple::ReadFirst(const Entry& entry) const {
    if (!entry.object) {
        return E_FAIL;
    }
    if (entry.dispid == SelectionPool::c_dynamic) {
        return entry.dynamicProperty ? S_OK : E_FAIL;
    }
    return entry.dispid == SelectionPool::c_property ? S_OK : DISP_E_MEMBERNOTFOUND;
}

HRESULT InitTriple::Read(const std::vector<Entry>& entries) const {
    if (entries.empty()) {
        return E_FAIL;
    }
    const HRESULT first = ReadFirst(entries[0]);
    if (FAILED(first)) {
        return first;
    }
    const auto isOther = [&](const Entry& entry) {
        return entry.dispid != SelectionPool::c_dynamic && entry.object == m_pool.other.Get();
    };
    for (std::size_t index = 1; index < entries.size(); ++index) {
        const Entry& entry = entries[index];
        const bool isSkipped =
            !entry.object || (entry.dispid == SelectionPool::c_dynamic && !entry.dynamicProperty);
        if (isSkipped) {
            continue;
        }
        if (entry.dispid == SelectionPool::c_unknownProperty) {
            return DISP_E_MEMBERNOTFOUND;
        }
        if (isOther(entry) != isOther(entries[0])) {
            return S_OK;  // the first difference ends the read
        }
    }
    return S_OK;
}

std::ostream& operator<<(std::ostream& stream, const InitTriple& triple) {
    for (const RandomVariant* argument : {&triple.m_objects, &triple.m_dynamic, &triple.m_dispids}) {
        stream << "; type " << argument->value.vt << " of " << argument->element << ", "
               << argument->dimensions << " dimensions from " << argument->lower << ", " << argument->count;
    }
    stream << "; entries";
    for (const auto* object : triple.m_objectElements) {
        stream << ' ' << (object ? static_cast<char>(object->script.Name()[0]) : '-');
    }
    for (const auto* dynamicProperty : triple.m_dynamicElements) {
        stream << ' ' << (dynamicProperty ? 'P' : '-');
    }
    for (const DISPID dispid : triple.m_dispidElements) {
        stream << ' ' << dispid;
    }
    return stream;
}

HRESULT InitTriple::Expected() const {
    if (!AreArrays()) {
        return E_FAIL;
    }
    const auto entries = Selection();
    return entries ? m_pool.scenario.AnswerToInit(Read(*entries)) : E_FAIL;
}

}  // namespace kvtest
