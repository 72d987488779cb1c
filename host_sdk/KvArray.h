#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <vector>

/// Growing array of the host. Room grows in steps of at least the growth length; elements are destroyed with
/// the array.
template <class T>
class KvArray {
public:
    explicit KvArray(int initialRoom = 0, int growLength = 8) : m_growLength(growLength) {
        m_items.reserve(static_cast<std::size_t>(initialRoom));
    }

    [[nodiscard]] int length() const { return static_cast<int>(m_items.size()); }
    [[nodiscard]] bool isEmpty() const { return m_items.empty(); }
    [[nodiscard]] int growLength() const { return m_growLength; }

    /// Cuts or default-fills the array to `count` elements.
    void setLogicalLength(int count) { m_items.resize(static_cast<std::size_t>(count)); }

    /// Appends a copy and returns its index.
    int append(const T& item) {
        makeRoom();
        m_items.push_back(item);
        return length() - 1;
    }

    [[nodiscard]] bool contains(const T& item) const {
        return std::find(m_items.begin(), m_items.end(), item) != m_items.end();
    }

    T& operator[](int index) { return at(index); }
    const T& operator[](int index) const { return const_cast<KvArray*>(this)->at(index); }

    auto begin() { return m_items.begin(); }
    auto end() { return m_items.end(); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

private:
    T& at(int index) {
        assert(index >= 0 && index < length());
        return m_items[static_cast<std::size_t>(index)];
    }

    // Large arrays grow by their size so that appending stays linear; small ones by the fixed step.
    void makeRoom() {
        if (m_items.size() == m_items.capacity()) {
            m_items.reserve(m_items.size() +
                            std::max(m_items.size(), static_cast<std::size_t>(m_growLength)));
        }
    }

    std::vector<T> m_items;
    int m_growLength;
};
