#pragma once

#include <cstddef>
#include <vector>

// Raised by arrays for an index that they do not have: a defect of the caller.
struct CInvalidArgException {};

// A growing array of pointers, which it does not own.
class CPtrArray {
public:
    int GetSize() const { return static_cast<int>(m_pointers.size()); }
    bool IsEmpty() const { return m_pointers.empty(); }
    void RemoveAll() { m_pointers.clear(); }

protected:
    void* PointerAt(int index) const {
        if (index < 0 || index >= GetSize()) {
            throw CInvalidArgException();
        }
        return m_pointers[static_cast<std::size_t>(index)];
    }
    int AddPointer(void* pointer) {
        m_pointers.push_back(pointer);
        return GetSize() - 1;
    }

private:
    std::vector<void*> m_pointers;
};

// The same for pointers of one type.
template <class Base, class Pointer>
class CTypedPtrArray : public Base {
public:
    Pointer GetAt(int index) const { return static_cast<Pointer>(this->PointerAt(index)); }
    Pointer operator[](int index) const { return GetAt(index); }
    // Returns the index of the new element.
    int Add(Pointer pointer) { return this->AddPointer(pointer); }
};
