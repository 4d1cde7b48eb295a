#pragma once

#include "platform/SharedObject.h"

#include <memory>

/** Owns an object that the whole program shares, and keeps it registered as long as it lives. */
template <typename Type> class Registered
{
public:
    explicit Registered(std::unique_ptr<Type> object)
        : m_object(std::move(object))
    {
        platform::SharedObject<Type>::registerObject(m_object.get());
    }
    ~Registered() { platform::SharedObject<Type>::registerObject(nullptr); }
    Registered(const Registered &) = delete;
    Registered &operator=(const Registered &) = delete;

private:
    std::unique_ptr<Type> m_object;
};
