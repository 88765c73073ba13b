#pragma once

#include "base/outcome.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

class SetupStore;
struct Platform;

// A saved configuration is a folder of copies of all stores, named by the time of saving, beside the stores,
// and a small pointer file that the operator names. The pointer holds one line, `:\QOR\20260307090512\`, as
// every station writes it. The folder's contents.txt says what belongs to it, one file a line: its size in
// bytes, a blank, its name with "/" between folders. Folders that other stations have saved are without it.

/// One file of a saved configuration.
struct ConfigurationFile {
    std::string name; ///< relative, "unit.ccz" or "20260101120000/unit.ccz"
    std::uintmax_t size = 0;
};

/// Asks for the name and saves. Folders of earlier saves are saved along, but not those inside them. Refused
/// when nothing was saved, as over a store, without words where the operator changed his mind.
Outcome SaveConfiguration(const SetupStore& store, const Platform& platform);

/// Asks for a pointer file and puts the stores it stands for back, all of them or none. The folder is looked
/// for among the stores, then beside the pointer file. Stores that it does not know stay, and are named.
/// `restart` becomes true when the program has to be started anew with its session kept, so that it reads the
/// stores; also when the folder is gone.
Outcome LoadConfiguration(const SetupStore& store, const Platform& platform, bool& restart);

/// Name of the folder that a pointer file's text stands for, fourteen digits; nothing for any other text.
[[nodiscard]] std::optional<std::string> ConfigurationFolder(std::string_view pointer);
/// The files of a contents.txt; nothing when a line is spoilt, stands there twice or names a place outside
/// the folder.
[[nodiscard]] std::optional<std::vector<ConfigurationFile>> ParseContents(std::string_view text);

} // namespace qor
