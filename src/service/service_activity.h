#pragma once

namespace qor {

/// Something that goes on on a service page for a while. Whoever has one joins it to the ServiceDesk, which
/// ends all of them when the page is left, contact is lost or the program ends, and sees to the carriers
/// then.
class ServiceActivity {
public:
    ServiceActivity() = default;
    ServiceActivity(const ServiceActivity&) = delete;
    ServiceActivity& operator=(const ServiceActivity&) = delete;
    virtual ~ServiceActivity() = default;

    /// The page is left, or the program ends. Nothing more is begun; the queue is emptied behind this.
    virtual void Stop() = 0;
    /// The instrument is gone, the queue empty: no answer comes any more. What is known stays.
    virtual void ContactIsLost() { Stop(); }
};

} // namespace qor
