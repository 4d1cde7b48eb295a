#pragma once

#include <functional>

/** Lets an action of several steps, each of which asks for an update, cause one update at its end. */
class UpdateGate
{
public:
    explicit UpdateGate(std::function<void()> update)
        : m_update(std::move(update))
    {
    }

    /** Updates, or notes that it is wanted while there is a hold. */
    void request()
    {
        m_isWanted = true;
        updateIfWanted();
    }

    class Hold
    {
    public:
        explicit Hold(UpdateGate &gate)
            : m_gate(gate)
        {
            ++m_gate.m_holds;
        }
        ~Hold()
        {
            --m_gate.m_holds;
            m_gate.updateIfWanted();
        }
        Hold(const Hold &) = delete;
        Hold &operator=(const Hold &) = delete;

    private:
        UpdateGate &m_gate;
    };

private:
    void updateIfWanted()
    {
        if (m_holds > 0 || !m_isWanted)
            return;
        m_isWanted = false;
        m_update();
    }

    std::function<void()> m_update;
    int m_holds = 0;
    bool m_isWanted = false;
};
