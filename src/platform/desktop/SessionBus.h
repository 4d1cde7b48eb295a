#pragma once

#include <QString>

#include <chrono>

namespace platform {

enum class BusState {
    Answers,
    /** Somebody is there and says nothing. */
    Silent,
    Absent
};

/**
 * Greets the daemon of a message bus as a client does, and waits for its answer no longer than that. Opening
 * a bus whose daemon hangs would wait for half a minute, and block all other buses of the program meanwhile.
 */
BusState greetBus(const QString &address, std::chrono::milliseconds patience);

/**
 * From now on this process, and what it starts, goes without a session bus if that one's daemon hangs: its
 * windows would come minutes later. To be called before anybody opens the bus.
 */
void leaveSilentSessionBus();

} // namespace platform
