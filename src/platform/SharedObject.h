#pragma once

#include <atomic>

namespace platform {

/**
 * Serves the one object of a class that the whole program shares, under whatever name the class gives it. As
 * long as none is registered, that is an idle object of the class itself, so that every caller can ask
 * freely. Ask each time: who keeps the pointer may keep the idle one.
 *
 * Registered on the main thread, asked for on any.
 */
template <typename Type> class SharedObject
{
public:
    /** Never null. */
    static Type *get()
    {
        Type *registered = s_registered.load();
        return registered ? registered : &idle();
    }
    /** Not owned; null brings the idle one back. */
    static void registerObject(Type *object) { s_registered = object; }

private:
    static Type &idle()
    {
        static Type object;
        return object;
    }
    static inline std::atomic<Type *> s_registered = nullptr;
};

} // namespace platform
