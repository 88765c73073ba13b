#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace qor {

/// What a serial control reports to its owner.
enum class CommEvent {
    None = 0,
    Receive = 2, ///< at least one byte has come; read it with GetInput
    Lost = 100,  ///< the device went away; the port is closed by now, and this comes once per opening
};

enum class CommInputMode { Text = 0, Binary = 1 };

/// The one serial port of the program.
///
/// How to add a line (a real port, a simulator, a test double): implement the operations below, call
/// Report(CommEvent::Receive) once per arrival of bytes from the program's own thread and never from
/// inside SetOutput, and on a broken line close first and then Report(CommEvent::Lost), once.
/// Operations on a closed port do nothing; a failed open shows as GetPortOpen() == false.
class CMSComm {
public:
    CMSComm() = default;
    CMSComm(const CMSComm&) = delete;
    CMSComm& operator=(const CMSComm&) = delete;
    virtual ~CMSComm() = default;

    /// Port number 1 to 16, as PortList gives it. Takes effect at the next opening.
    virtual void SetCommPort(int number) = 0;
    /// "9600,n,8,1" or "115200,n,8,1". Takes effect at the next opening.
    virtual void SetSettings(std::string_view settings) = 0;
    virtual void SetInputMode(CommInputMode /*mode*/) {}
    /// 0: GetInput gives everything that has come. No other value is used.
    virtual void SetInputLen(int /*length*/) {}
    /// 1: an event on each arrival. No other value is used.
    virtual void SetRThreshold(int /*count*/) {}
    virtual void SetSThreshold(int /*count*/) {}
    /// Opening drops whatever the line held from before.
    virtual void SetPortOpen(bool open) = 0;
    [[nodiscard]] virtual bool GetPortOpen() const = 0;
    /// One write. Written whole and in order, without waiting for the line.
    virtual void SetOutput(std::string_view bytes) = 0;
    /// Replaces `bytes` by all that has come so far; empties it when nothing has. The caller's buffer is
    /// reused, so that a long run allocates nothing.
    virtual void GetInput(std::string& bytes) = 0;
    /// The event being reported; valid inside the handler.
    [[nodiscard]] CommEvent GetCommEvent() const { return m_Event; }

    /// While it is held nothing is reported: a handler waits inside a call. What has come is reported once it
    /// is let go.
    void Hold(bool held) {
        m_Held = held;
        if (!held && m_Kept != CommEvent::None)
            Report(std::exchange(m_Kept, CommEvent::None));
    }
    /// The owner's handler. It may call every operation above, also SetPortOpen.
    void SetHandler(std::function<void()> handler) { m_Handler = std::move(handler); }

protected:
    void Report(CommEvent event) {
        if (m_Held) {
            if (m_Kept != CommEvent::Lost)
                m_Kept = event;
            return;
        }
        m_Event = event;
        if (m_Handler)
            m_Handler();
        m_Event = CommEvent::None;
    }

private:
    std::function<void()> m_Handler;
    CommEvent m_Event = CommEvent::None;
    bool m_Held = false;
    CommEvent m_Kept = CommEvent::None; ///< came while it was held
};

} // namespace qor
