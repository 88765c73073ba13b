#pragma once

#include "platform/visa/address.h"
#include "platform/visa/link.h"

#include <filesystem>
#include <functional>

namespace qor::visa {

/// An instrument on USB through the kernel's usbtmc driver, which puts the message heads on and takes them
/// off.
class UsbtmcLink final : public Link {
public:
    /// Opens the device file of an address; negative when there is none.
    using Opener = std::function<int(const Address&)>;

    UsbtmcLink(Address address, Opener opener) : m_Address(std::move(address)), m_Opener(std::move(opener)) {}
    ~UsbtmcLink() override;

    LinkResult Open(Deadline deadline) override;
    LinkResult Write(std::string_view message, Deadline deadline) override;
    LinkResult Read(std::string& message, Deadline deadline) override;

private:
    [[nodiscard]] bool Wait(short events, Deadline deadline) const;
    void Close();

    Address m_Address;
    Opener m_Opener;
    int m_File = -1;
    bool m_Kernel = false; ///< a device file: the driver itself knows the time
};

/// `/dev/usbtmcN` of the device with these numbers, as the kernel lists it below `classes`; empty when there
/// is none.
[[nodiscard]] std::filesystem::path UsbtmcDevice(const Address& address,
                                                 const std::filesystem::path& classes = "/sys/class/usbmisc");

} // namespace qor::visa
