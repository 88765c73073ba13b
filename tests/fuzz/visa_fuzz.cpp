// Resource names, and what a peer on the network may answer: records of remote calls, heads of HiSLIP.
#include "platform/visa/address.h"
#include "platform/visa/hislip_link.h"
#include "platform/visa/rpc_client.h"
#include "platform/visa/xdr.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace qor::visa;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (const auto address = ParseAddress(bytes)) {
        const bool network = address->kind != Address::Kind::Usbtmc && address->kind != Address::Kind::Other;
        if (network == address->host.empty())
            std::abort();
    }
    if (const auto reply = ParseReply(bytes); reply && reply->accepted) {
        XdrReader reader(reply->results);
        const auto error = reader.Word();
        const auto bytesRead = reader.Bytes();
        if (bytesRead && (!error || bytesRead->size() > size))
            std::abort();
    }
    if (const auto head = ParseHislipHead(bytes); head && HislipBytes(*head) != bytes.substr(0, HislipHeadSize))
        std::abort();
    return 0;
}
