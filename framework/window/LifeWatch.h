#pragma once

namespace fw {

class LifeWatch;

// Base of objects that may be deleted while one of their own operations runs. One thread uses an object.
class Watchable {
public:
    Watchable() = default;
    Watchable(const Watchable&) = delete;
    Watchable& operator=(const Watchable&) = delete;
    inline ~Watchable();

private:
    friend class LifeWatch;
    LifeWatch* m_watches = nullptr;  // on the stack of the operations that run
};

// Tells, after a call that may have deleted the object, whether it is still there:
//   fw::LifeWatch alive(*this); CallHandler(); if (!alive) return;
class LifeWatch {
public:
#pragma GCC diagnostic push
#ifndef __clang__                                    // the linter does not know this warning
#pragma GCC diagnostic ignored "-Wdangling-pointer"  // the destructor takes the pointer back
#endif
    explicit LifeWatch(Watchable& object) : m_object(&object), m_outer(object.m_watches) {
        object.m_watches = this;
    }
#pragma GCC diagnostic pop
    ~LifeWatch() {
        if (m_object) {
            m_object->m_watches = m_outer;
        }
    }
    LifeWatch(const LifeWatch&) = delete;
    LifeWatch& operator=(const LifeWatch&) = delete;

    explicit operator bool() const {
        return m_object != nullptr;
    }

private:
    friend class Watchable;
    Watchable* m_object;
    LifeWatch* m_outer;
};

Watchable::~Watchable() {
    for (LifeWatch* watch = m_watches; watch; watch = watch->m_outer) {
        watch->m_object = nullptr;
    }
}

}  // namespace fw
