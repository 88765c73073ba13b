#include "platform/process.h"

#include <fstream>
#include <iterator>
#include <unistd.h>

namespace qor {

namespace {

std::string FirstLine(const std::string& path) {
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

/// "pid start boot": the start time in ticks behind the last boot, which a later process of this number
/// cannot have.
std::string NameOf(const std::string& pid) {
    const std::string stat = FirstLine("/proc/" + pid + "/stat");
    std::size_t at = stat.rfind(')'); // the name of the program may hold anything
    constexpr int StartField = 20;    // fields behind the name
    for (int field = 0; field < StartField && at != std::string::npos; ++field)
        at = stat.find(' ', at + 1);
    if (at == std::string::npos)
        return {};
    const std::string start = stat.substr(at + 1, stat.find(' ', at + 1) - at - 1);
    return pid + " " + start + " " + FirstLine("/proc/sys/kernel/random/boot_id");
}

} // namespace

std::string ThisProcess() {
    return NameOf(std::to_string(getpid()));
}

bool ProcessRuns(std::string_view name) {
    const std::string pid(name.substr(0, name.find(' ')));
    if (pid.empty() || pid.find_first_not_of("0123456789") != std::string::npos)
        return false;
    const std::string now = NameOf(pid);
    return !now.empty() && now == name;
}

} // namespace qor
