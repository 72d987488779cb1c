#include "core/EndedSelection.h"

#include <utility>

namespace {

template <class Interface>
void ReleaseAll(Interface* const* references, int count) {
    for (int index = 0; references != nullptr && index < count; ++index) {
        if (references[index] != nullptr) {
            references[index]->Release();
        }
    }
}

}  // namespace

EndedSelection::EndedSelection(std::unique_ptr<IDispatch*[]> objects,
                               std::unique_ptr<IUnknown*[]> dynamicProperties, int count)
    : m_objects(std::move(objects)), m_dynamicProperties(std::move(dynamicProperties)), m_count(count) {
}

EndedSelection::~EndedSelection() {
    ReleaseAll(m_dynamicProperties.get(), m_count);
    ReleaseAll(m_objects.get(), m_count);
}
