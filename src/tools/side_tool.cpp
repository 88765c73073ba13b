#include "tools/side_tool.h"

#include "base/setup_store.h"
#include "platform/launcher.h"

#include <filesystem>
#include <string>

namespace qor {

namespace {

constexpr std::string_view ToolStore = "QorTool.ccz";
constexpr std::string_view ToolProgram = "QorTool.exe";

} // namespace

Outcome StartSideTool(const SetupStore& store, Launcher* launcher) {
    namespace fs = std::filesystem;
    const auto failed = [](const std::string& why) { return Outcome::Refused("Misserfolg\n" + why); };
    const fs::path packed = store.PathOf(ToolStore);
    const fs::path program = store.PathOf(ToolProgram);
    std::error_code error;
    if (!fs::is_regular_file(packed, error))
        return failed("QorTool ist nicht installiert: " + packed.string());
    fs::copy_file(packed, program, fs::copy_options::overwrite_existing, error);
    if (!error)
        fs::permissions(program, fs::perms::owner_exec, fs::perm_options::add, error);
    if (error)
        return failed(program.string() + ": " + error.message());
    if (!launcher || !launcher->Start(program))
        return failed(program.string());
    return Outcome::Done();
}

void RemoveSideTool(SetupStore& store) {
    store.Remove(ToolProgram);
}

} // namespace qor
