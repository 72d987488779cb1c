#pragma once

#include <random>

#include "framework/com/ComPtr.h"

namespace kvtest {

using RandomEngine = std::mt19937;

/// A number from 0 to below `count`.
[[nodiscard]] inline unsigned PickBelow(RandomEngine& random, unsigned count) {
    return static_cast<unsigned>(random() % count);
}
/// True once in `count` times.
[[nodiscard]] inline bool PickOnceIn(RandomEngine& random, unsigned count) {
    return PickBelow(random, count) == 0;
}

/// A VARIANT of any type that a client can hand over, well formed or not, with the truth about it on record.
/// What it points to is owned here; the VARIANT itself owns nothing.
class RandomVariant {
public:
    RandomVariant();
    RandomVariant(const RandomVariant&) = delete;
    RandomVariant& operator=(const RandomVariant&) = delete;
    ~RandomVariant();

    /// Any type, with an object of its own where the type is one.
    void Fill(RandomEngine& random, IUnknown* object, IDispatch* dispatch);
    /// An array, empty as made: `label` is the type that the VARIANT tells, `element` that of the array.
    void FillArray(VARTYPE label, VARTYPE element, UINT dimensions, LONG lower, ULONG count);
    /// Tells an array type without an array.
    void FillNullArray(VARTYPE label);

    /// Puts an element into an array of one dimension, with a reference of its own.
    void PutObject(LONG index, IUnknown* object);
    void PutLong(LONG index, LONG number);

    VARIANT value;
    SAFEARRAY* array = nullptr;  ///< null unless the value has one
    VARTYPE element = VT_EMPTY;
    UINT dimensions = 0;
    LONG lower = 0;
    ULONG count = 0;

private:
    void FillScalar(RandomEngine& random, VARTYPE type, IUnknown* object, IDispatch* dispatch);
    void FillElements(RandomEngine& random);
    void FillReference(RandomEngine& random, VARTYPE type);
    // What scripts hand over.
    void FillVariants(RandomEngine& random, IDispatch* dispatch);
    void FillReferenceToVariant(RandomEngine& random);
    void ReferToArray();

    VARIANT m_inner;  // of a reference to a VARIANT
    SAFEARRAY* m_referred = nullptr;
    BSTR m_text = nullptr;
    LONGLONG m_target[2]{};  // of references
};

}  // namespace kvtest
