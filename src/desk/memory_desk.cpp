#include "desk/memory_desk.h"

#include "base/atomic_write.h"
#include "base/setup_store.h"
#include "base/text_format.h"
#include "desk/guards.h"
#include "desk/session.h"
#include "desk/tell.h"
#include "link/commands.h"
#include "platform/clock.h"
#include "platform/operator.h"
#include "platform/platform.h"
#include "platform/serial_control.h"

#include <algorithm>
#include <fstream>
#include <utility>

namespace qor {

namespace {

constexpr std::string_view RecordName = "memory-record.csv";
constexpr std::size_t LongestFile = 1 << 20;
/// Lines of a question that still fit a screen.
constexpr std::size_t MostLines = 24;

bool IsByte(int value) {
    return value >= 0 && value <= 255;
}

std::optional<std::string> TextIn(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::string text(LongestFile + 1, '\0');
    in.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (in.bad() || (!in.eof() && in.fail()) || in.gcount() > static_cast<std::streamsize>(LongestFile))
        return {};
    text.resize(static_cast<std::size_t>(in.gcount()));
    return text;
}

std::string FirmwareText(float firmware) {
    return Fixed(static_cast<double>(firmware), 1);
}

/// The bytes that the instrument does not hold yet, with the value that is wanted and the one that stands
/// there.
struct Difference {
    MemoryCell wanted;
    int now;
};

std::string LinesOf(const std::vector<Difference>& differences) {
    std::string text;
    for (std::size_t i = 0; i < differences.size(); ++i) {
        if (i == MostLines) {
            text += "... " + std::to_string(differences.size() - i) + '\n';
            break;
        }
        const Difference& d = differences[i];
        text += std::to_string(d.wanted.page) + ' ' + ZeroPadded(d.wanted.address, 3) + ": " +
                std::to_string(d.now) + " -> " + std::to_string(d.wanted.value) + '\n';
    }
    return text;
}

} // namespace

MemoryDesk::MemoryDesk(Session& session, const Platform& platform, SetupStore& store)
    : m_Session(session), m_Platform(platform), m_Store(store), m_Talk(session.link.queue) {}

Outcome MemoryDesk::MayBegin() const {
    if (Outcome open = PortIsOpen(m_Platform); !open)
        return open;
    return NothingRuns(m_Session);
}

// ----- one byte

Outcome MemoryDesk::Write(const MemoryCell& cell) {
    if (cell.page < 0 || cell.page > 127 || !IsByte(cell.address) || !IsByte(cell.value))
        return Outcome::Refused({});
    if (Outcome may = MayBegin(); !may)
        return may;
    BackUp({}, [this, cell] {
        FactoryMode& factory = m_Session.factory;
        if (!factory.Begin(ServiceWork::MemoryAccess))
            return;
        m_Session.response.Begin();
        CommandQueue& queue = m_Session.link.queue;
        queue.Append(command::InputBinary);
        queue.Append(command::Pause);
        m_Talk.Write({WriteByte(cell, TagMemoryEditor)}, {}, [this, cell](const Outcome& outcome) {
            Record("editor", cell, {}, outcome.IsDone());
            // shown to the operator
            m_Session.factory.Say(outcome
                                      ? "Geschrieben, Seite/Adresse: " + PlaceText(cell.page, cell.address)
                                      : outcome.Text());
            m_Session.factory.End(ServiceWork::MemoryAccess);
            Tell(outcome, m_Platform.user);
        });
        queue.Append(command::InputText);
        queue.Append(command::Pause);
    });
    return Outcome::Done();
}

Outcome MemoryDesk::Read(int page, int address) {
    if (page < 0 || page > 127 || !IsByte(address))
        return Outcome::Refused({});
    if (Outcome may = MayBegin(); !may)
        return may;
    m_Session.factory.Begin(ServiceWork::MemoryAccess);
    m_EditorValue.reset();
    ++m_ValuesRead;
    m_Session.response.Begin();
    CommandQueue& queue = m_Session.link.queue;
    queue.Append(command::InputBinary);
    queue.Append(command::Pause);
    m_Talk.Read(
        {{page, address, 0}},
        [this](std::size_t, const MemoryCell& cell) {
            m_EditorValue = cell.value;
            ++m_ValuesRead;
        },
        [this, page, address](const Outcome&) {
            // shown to the operator
            m_Session.factory.Say(
                (m_EditorValue ? "Gelesen, Seite/Adresse: " : "Keine Antwort, Seite/Adresse: ") +
                PlaceText(page, address));
            m_Session.factory.End(ServiceWork::MemoryAccess);
        });
    queue.Append(command::InputText);
    queue.Append(command::Pause);
    return Outcome::Done();
}

// ----- the copy

MemoryFile MemoryDesk::NewFile() const {
    const Identity& identity = m_Session.link.identity;
    return {identity.ModelName(),
            identity.Serial(),
            FirmwareText(identity.Firmware()),
            TimeText(m_Platform.clock.Now()),
            {}};
}

void MemoryDesk::BackUp(std::vector<MemoryCell> places, std::function<void()> then) {
    FactoryMode& factory = m_Session.factory;
    const Identity& identity = m_Session.link.identity;
    const bool canRead = m_Platform.comm.GetPortOpen() && identity.HasModel() &&
                         !m_Session.link.chain.IsUnderWay() && !factory.IsBusy() && !m_Session.run.IsOn() &&
                         !m_Session.run.IsWaiting();
    if (canRead && (m_Kept.model != identity.ModelName() || m_Kept.serial != identity.Serial())) {
        m_Kept = NewFile();
        m_KeptIn.clear();
    }
    const auto isKept = [this](const MemoryCell& cell) {
        return m_Kept.cells.contains({cell.page, cell.address});
    };
    if (m_KeptIn.empty()) {
        const auto own = OwnPlaces(OwnPage(identity.Firmware()));
        places.insert(places.begin(), own.begin(), own.end());
    }
    std::erase_if(places, isKept);
    if (!canRead || places.empty()) {
        if (then)
            then();
        return;
    }
    factory.Begin(ServiceWork::Backup);
    m_Then = std::move(then);
    const std::size_t count = places.size();
    m_Talk.Read(
        std::move(places),
        [this, count](std::size_t step, const MemoryCell& cell) {
            KeepRead(cell);
            // shown to the operator
            ShowProgress("Speicher wird gesichert: ", step + 1, count);
        },
        [this](const Outcome& outcome) {
            if (outcome)
                BackedUp();
            else
                m_Session.factory.End(ServiceWork::Backup);
        });
}

void MemoryDesk::KeepRead(const MemoryCell& cell) {
    m_Kept.cells.emplace(std::pair(cell.page, cell.address), cell.value);
}

/// A file of an earlier session stays as it is.
void MemoryDesk::BackedUp() {
    std::string told;
    if (m_Kept.cells.empty()) {
        // shown to the operator
        told = "Der Speicher des Geraets antwortet nicht.";
    } else {
        if (m_KeptIn.empty()) {
            const std::filesystem::path first = m_Store.PathOf(MemoryFileName(m_Kept));
            m_KeptIn = first;
            std::error_code ignored;
            for (int n = 2; std::filesystem::exists(m_KeptIn, ignored); ++n)
                m_KeptIn = first.parent_path() / (first.stem().string() + '-' + std::to_string(n) + ".txt");
        }
        const std::string fault = WriteAtomically(m_KeptIn, MemoryFileText(m_Kept));
        // shown to the operator
        told = fault.empty() ? "Speicher gesichert: " + m_KeptIn.filename().string()
                             : "Speicher nicht gesichert: " + fault;
        if (!fault.empty())
            m_KeptIn.clear();
    }
    m_Session.factory.End(ServiceWork::Backup);
    m_Session.factory.Say(told);
    if (const auto then = std::exchange(m_Then, nullptr))
        then();
}

void MemoryDesk::ShowProgress(std::string_view what, std::size_t step, std::size_t steps) {
    m_Session.factory.Say(std::string(what) + std::to_string(step) + " / " + std::to_string(steps));
}

// ----- and back

Outcome MemoryDesk::Restore() {
    if (Outcome may = MayBegin(); !may)
        return may;
    OrderCarriersOff(m_Session);
    const auto chosen = m_Platform.user.FilesToOpen("Restore memory", m_Store.Directory(), "*.txt");
    if (chosen.empty())
        return Outcome::Refused({});
    const auto text = TextIn(chosen.front());
    if (!text)
        return Outcome::Refused("Oeffnen file Misserfolg");
    auto file = ParseMemoryFile(*text);
    if (!file || file->cells.empty())
        return Outcome::Refused("Das ist keine Sicherung eines Speichers, oder sie ist beschaedigt.");
    if (Outcome may = MayBegin(); !may) // the choice took its time
        return may;
    m_Session.factory.Begin(ServiceWork::Restore);
    m_Wanted = std::move(*file);
    m_Found.clear();
    std::vector<MemoryCell> places;
    for (const auto& [place, value] : m_Wanted.cells)
        places.push_back({place.first, place.second, 0});
    const std::size_t count = places.size();
    m_Talk.Read(
        std::move(places),
        [this, count](std::size_t step, const MemoryCell& cell) {
            m_Found.push_back(cell);
            // shown to the operator
            ShowProgress("Speicher wird verglichen: ", step + 1, count);
        },
        [this](const Outcome& outcome) { Compare(outcome); });
    return Outcome::Done();
}

void MemoryDesk::Compare(const Outcome& read) {
    if (!read) {
        EndRestore(read);
        return;
    }
    // shown to the operator
    if (m_Found.size() < m_Wanted.cells.size()) {
        EndRestore(Outcome::Refused(
            "Das Geraet hat nicht alle Stellen der Sicherung beantwortet: " + std::to_string(m_Found.size()) +
            " / " + std::to_string(m_Wanted.cells.size())));
        return;
    }
    m_Differing.clear();
    for (const MemoryCell& cell : m_Found)
        if (const int wanted = m_Wanted.cells.at({cell.page, cell.address}); wanted != cell.value)
            m_Differing.push_back({cell.page, cell.address, wanted});
    if (m_Differing.empty())
        EndRestore(Outcome::DoneWith("Der Speicher stimmt mit der Sicherung ueberein."));
    else if (!MayRestore())
        EndRestore(Outcome::Refused({}));
    else if (m_Session.factory.Work() == ServiceWork::Restore) // not left while the question stood
        WriteDifferences();
}

bool MemoryDesk::MayRestore() {
    const Identity& identity = m_Session.link.identity;
    std::vector<Difference> differences;
    for (const MemoryCell& wanted : m_Differing) {
        const auto found = std::find_if(m_Found.begin(), m_Found.end(), [&](const MemoryCell& cell) {
            return cell.page == wanted.page && cell.address == wanted.address;
        });
        differences.push_back({wanted, found->value});
    }
    Operator& user = m_Platform.user;
    // shown to the operator
    const std::string title = "Restore memory";
    if (m_Wanted.model != identity.ModelName() || m_Wanted.serial != identity.Serial()) {
        const std::string other = "Die Sicherung ist von einem anderen Geraet:\n" + m_Wanted.model + ' ' +
                                  m_Wanted.serial + " -> " + identity.ModelName() + ' ' + identity.Serial() +
                                  "\nTrotzdem zurueckschreiben?";
        if (!user.Ask(other, title))
            return false;
    }
    // shown to the operator
    const std::string question = "Diese Stellen werden geschrieben (Seite Adresse: jetzt -> Sicherung):\n" +
                                 LinesOf(differences) + "Zurueckschreiben?";
    return user.Ask(question, title);
}

void MemoryDesk::WriteDifferences() {
    std::vector<MemoryWriteCommand> writes;
    for (const MemoryCell& cell : m_Differing)
        writes.push_back(WriteByte(cell, TagMemoryEditor));
    const std::size_t count = writes.size();
    m_Talk.Write(
        std::move(writes),
        [this, count](std::size_t step, const MemoryCell& cell) {
            Record("restore", cell, {}, true);
            // shown to the operator
            ShowProgress("Speicher wird geschrieben: ", step + 1, count);
        },
        [this](const Outcome& outcome) {
            if (outcome) {
                Verify();
                return;
            }
            RecordPending("restore");
            EndRestore(outcome);
        });
}

/// A write that went out and was not confirmed: it may stand there or not.
void MemoryDesk::RecordPending(std::string_view what) {
    if (const auto pending = m_Talk.Pending())
        Record(what, *pending, {}, false);
}

/// What was written is read once more: an echo is not yet a memory.
void MemoryDesk::Verify() {
    m_Found.clear();
    m_Talk.Read(
        m_Differing, [this](std::size_t, const MemoryCell& cell) { m_Found.push_back(cell); },
        [this](const Outcome& outcome) {
            if (!outcome) {
                EndRestore(outcome);
                return;
            }
            for (std::size_t i = 0; i < m_Differing.size(); ++i) {
                if (i < m_Found.size() && m_Found[i] == m_Differing[i])
                    continue;
                // shown to the operator
                EndRestore(Outcome::Refused("Nicht uebernommen, Seite/Adresse: " +
                                            PlaceText(m_Differing[i].page, m_Differing[i].address)));
                return;
            }
            EndRestore(
                Outcome::DoneWith("Zurueckgeschrieben und geprueft: " + std::to_string(m_Differing.size())));
        });
}

void MemoryDesk::EndRestore(const Outcome& outcome) {
    m_Session.factory.Say(outcome.Text());
    m_Session.factory.End(ServiceWork::Restore);
    Tell(outcome, m_Platform.user);
}

void MemoryDesk::Record(std::string_view what, const MemoryCell& cell, std::optional<int> before,
                        bool confirmed) {
    const std::filesystem::path path = m_Store.PathOf(RecordName);
    std::error_code ignored;
    const bool isNew = !std::filesystem::exists(path, ignored);
    std::ofstream out(path, std::ios::app | std::ios::binary);
    if (isNew)
        out << "time;model;serial;what;page;address;before;value;confirmed\n";
    const Identity& identity = m_Session.link.identity;
    out << TimeText(m_Platform.clock.Now()) << ';' << identity.ModelName() << ';' << identity.Serial() << ';'
        << what << ';' << cell.page << ';' << cell.address << ';'
        << (before ? std::to_string(*before) : std::string()) << ';' << cell.value << ';'
        << (confirmed ? "yes" : "no") << '\n';
}

void MemoryDesk::Stop() {
    if (m_Talk.IsOn())
        RecordPending(m_Session.factory.Work() == ServiceWork::Restore ? "restore" : "editor");
    m_Talk.Drop();
    m_Then = nullptr;
}

void MemoryDesk::ContactIsLost() {
    FactoryMode& factory = m_Session.factory;
    const bool wasOn = m_Talk.IsOn();
    Stop();
    for (const ServiceWork work : {ServiceWork::MemoryAccess, ServiceWork::Backup, ServiceWork::Restore})
        factory.End(work);
    if (wasOn) // shown to the operator
        factory.Say("Kontakt zum Geraet verloren, der Vorgang ist abgebrochen.");
}

} // namespace qor
