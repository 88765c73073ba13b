#include "results/sheet/compound_file.h"

#include "results/sheet/little_endian.h"

#include <algorithm>
#include <vector>

namespace qor {

namespace {

constexpr std::string_view Signature = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr std::size_t SectorSize = 512;
constexpr std::size_t NumbersInSector = SectorSize / 4;
constexpr std::size_t NumbersInHeader = 109; ///< sector numbers of the allocation table in the header itself
constexpr std::size_t SmallStream = 4096;    ///< a shorter stream lies in sectors of 64 bytes
constexpr std::size_t SmallSectorSize = 64;
constexpr std::size_t EntrySize = 128;

constexpr std::uint32_t FreeSector = 0xFFFFFFFF;
constexpr std::uint32_t EndOfChain = 0xFFFFFFFE;
constexpr std::uint32_t TableSector = 0xFFFFFFFD;
constexpr std::uint32_t TableListSector = 0xFFFFFFFC;

std::size_t SectorsFor(std::size_t bytes) {
    return (bytes + SectorSize - 1) / SectorSize;
}

void FillSector(std::string& out, char with) {
    out.resize((out.size() + SectorSize - 1) / SectorSize * SectorSize, with);
}

struct Entry {
    std::string name;
    unsigned type = 0; ///< 5 the root, 2 a stream
    std::uint32_t child = FreeSector;
    std::uint32_t start = EndOfChain;
    std::size_t size = 0;
};

void PutEntry(std::string& out, const Entry& entry) {
    const std::size_t begin = out.size();
    for (const char c : entry.name)
        Put16(out, static_cast<unsigned char>(c));
    out.resize(begin + 64, '\0');
    Put16(out, entry.name.empty() ? 0 : 2 * static_cast<unsigned>(entry.name.size()) + 2);
    out += static_cast<char>(entry.type);
    out += '\1'; // black, in the tree of names
    Put32(out, FreeSector);
    Put32(out, FreeSector);
    Put32(out, entry.child);
    out.append(36, '\0'); // no class, no times
    Put32(out, entry.start);
    Put32(out, static_cast<std::uint32_t>(entry.size));
    Put32(out, 0);
}

} // namespace

std::string PackCompoundFile(std::string_view name, std::string_view stream) {
    // The stream, the folder, the allocation table, and the list of the table's sectors beyond the header's.
    const std::size_t size = std::max(stream.size(), SmallStream);
    const std::size_t dataSectors = SectorsFor(size);
    std::size_t tableSectors = 1;
    std::size_t listSectors = 0;
    const auto total = [&] { return dataSectors + 1 + tableSectors + listSectors; };
    while (tableSectors * NumbersInSector < total()) {
        ++tableSectors;
        if (tableSectors > NumbersInHeader)
            listSectors = (tableSectors - NumbersInHeader + NumbersInSector - 2) / (NumbersInSector - 1);
    }
    const auto folder = static_cast<std::uint32_t>(dataSectors);
    const std::uint32_t table = folder + 1;
    const auto list = static_cast<std::uint32_t>(table + tableSectors);

    std::string out;
    out.reserve((total() + 1) * SectorSize);
    out += Signature;
    out.append(16, '\0');
    Put16(out, 0x3E);
    Put16(out, 3);      // version of the form
    Put16(out, 0xFFFE); // low byte first
    Put16(out, 9);      // sectors of 2^9 bytes
    Put16(out, 6);      // small ones of 2^6
    out.append(10, '\0');
    Put32(out, static_cast<std::uint32_t>(tableSectors));
    Put32(out, folder);
    Put32(out, 0);
    Put32(out, SmallStream);
    Put32(out, EndOfChain); // no small sectors
    Put32(out, 0);
    Put32(out, listSectors > 0 ? list : EndOfChain);
    Put32(out, static_cast<std::uint32_t>(listSectors));
    for (std::size_t i = 0; i < NumbersInHeader; ++i)
        Put32(out, i < tableSectors ? table + static_cast<std::uint32_t>(i) : FreeSector);

    out += stream;
    out.resize((dataSectors + 1) * SectorSize, '\0');

    PutEntry(out, {"Root Entry", 5, 1, EndOfChain, 0});
    PutEntry(out, {std::string(name), 2, FreeSector, 0, size});
    PutEntry(out, {});
    PutEntry(out, {});

    for (std::uint32_t i = 0; i < dataSectors; ++i)
        Put32(out, i + 1 < dataSectors ? i + 1 : EndOfChain);
    Put32(out, EndOfChain);
    for (std::size_t i = 0; i < tableSectors; ++i)
        Put32(out, TableSector);
    for (std::size_t i = 0; i < listSectors; ++i)
        Put32(out, TableListSector);
    FillSector(out, '\xFF');

    std::size_t listed = NumbersInHeader;
    for (std::size_t i = 0; i < listSectors; ++i) {
        for (std::size_t k = 0; k + 1 < NumbersInSector; ++k, ++listed)
            Put32(out, listed < tableSectors ? table + static_cast<std::uint32_t>(listed) : FreeSector);
        Put32(out, i + 1 < listSectors ? list + static_cast<std::uint32_t>(i) + 1 : EndOfChain);
    }
    return out;
}

namespace {

class Reader {
public:
    explicit Reader(std::string_view file) : m_File(file) {}

    CompoundStream Read(std::string_view name) {
        if (!IsCompoundFile(m_File))
            return {{}, CompoundProblem::NotCompound};
        const unsigned shift = Get16(m_File, 30);
        if ((shift != 9 && shift != 12) || m_File.size() < 2 * SectorSize || !ReadTable(shift))
            return {{}, CompoundProblem::Damaged};
        std::string folder;
        if (!Chain(Get32(m_File, 48), m_File.size(), folder))
            return {{}, CompoundProblem::Damaged};
        const std::string_view root = std::string_view(folder).substr(0, EntrySize);
        for (std::size_t at = 0; at + EntrySize <= folder.size(); at += EntrySize) {
            const std::string_view entry = std::string_view(folder).substr(at, EntrySize);
            if (Get8(entry, 66) == 2 && HasName(entry, name))
                return Stream(root, entry);
        }
        return {{}, CompoundProblem::NoSuchStream};
    }

private:
    static bool HasName(std::string_view entry, std::string_view name) {
        if (Get16(entry, 64) != 2 * name.size() + 2)
            return false;
        for (std::size_t i = 0; i < name.size(); ++i) {
            if (Get16(entry, 2 * i) != static_cast<unsigned char>(name[i]))
                return false;
        }
        return true;
    }

    /// The bytes of a sector; shorter at the end of a file that is cut, empty behind it.
    [[nodiscard]] std::string_view Sector(std::uint32_t number) const {
        const std::size_t at = (static_cast<std::size_t>(number) + 1) * m_Size;
        return at < m_File.size() ? m_File.substr(at, m_Size) : std::string_view();
    }

    /// The allocation table: for each sector the one behind it in its chain.
    bool ReadTable(unsigned shift) {
        m_Size = std::size_t{1} << shift;
        const std::size_t most = m_File.size() / m_Size; // sectors there can be
        const auto add = [&](std::uint32_t number) {
            if (number >= most || m_Table.size() > most)
                return;
            const std::string_view sector = Sector(number);
            for (std::size_t i = 0; i + 4 <= sector.size(); i += 4)
                m_Table.push_back(Get32(sector, i));
        };
        for (std::size_t i = 0; i < NumbersInHeader; ++i)
            add(Get32(m_File, 76 + 4 * i));
        std::uint32_t list = Get32(m_File, 68);
        for (std::size_t count = 0; list < most; ++count) {
            if (count > most)
                return false;
            const std::string_view sector = Sector(list);
            for (std::size_t i = 0; i + 8 <= sector.size(); i += 4)
                add(Get32(sector, i));
            list = Get32(sector, m_Size - 4);
        }
        return !m_Table.empty();
    }

    /// Adds the sectors of a chain to `out` until there are `size` bytes or the chain ends. False when it
    /// leaves the file or runs in a loop.
    bool Chain(std::uint32_t first, std::size_t size, std::string& out) const {
        std::vector<bool> seen(m_Table.size());
        for (std::uint32_t sector = first; sector != EndOfChain && out.size() < size;) {
            const std::string_view bytes = Sector(sector);
            if (bytes.empty() || sector >= m_Table.size() || seen[sector])
                return false;
            out += bytes;
            seen[sector] = true;
            sector = m_Table[sector];
        }
        return true;
    }

    [[nodiscard]] CompoundStream Stream(std::string_view root, std::string_view entry) const {
        const std::size_t size = Get32(entry, 120);
        const std::uint32_t first = Get32(entry, 116);
        CompoundStream stream;
        bool good = size <= m_File.size();
        if (good && size >= SmallStream)
            good = Chain(first, size, stream.bytes);
        else if (good)
            good = SmallChain(root, first, size, stream.bytes);
        if (!good || stream.bytes.size() < size)
            return {{}, CompoundProblem::Damaged};
        stream.bytes.resize(size);
        return stream;
    }

    /// A short stream lies in sectors of 64 bytes inside the root's own stream, with a table of its own.
    bool SmallChain(std::string_view root, std::uint32_t first, std::size_t size, std::string& out) const {
        std::string store;
        std::string table;
        if (!Chain(Get32(root, 116), Get32(root, 120), store) ||
            !Chain(Get32(m_File, 60), m_File.size(), table))
            return false;
        for (std::uint32_t sector = first; out.size() < size;) {
            const std::size_t at = static_cast<std::size_t>(sector) * SmallSectorSize;
            if (at >= store.size() || static_cast<std::size_t>(sector) * 4 + 4 > table.size())
                return false;
            out += std::string_view(store).substr(at, SmallSectorSize);
            sector = Get32(table, static_cast<std::size_t>(sector) * 4);
        }
        return true;
    }

    std::string_view m_File;
    std::size_t m_Size = SectorSize;
    std::vector<std::uint32_t> m_Table;
};

} // namespace

bool IsCompoundFile(std::string_view file) {
    return file.starts_with(Signature);
}

CompoundStream ReadCompoundStream(std::string_view file, std::string_view name) {
    return Reader(file).Read(name);
}

} // namespace qor
