#include "service/memory_talk.h"

#include "link/commands.h"

#include <utility>

namespace qor {

std::string PlaceText(int page, int address) {
    return std::to_string(page) + '/' + std::to_string(address);
}

MemoryWriteCommand WriteByte(const MemoryCell& cell, int tag) {
    return {WriteMemoryByte(cell.page, cell.address), std::string(1, static_cast<char>(cell.value)), tag,
            cell};
}

MemoryWriteCommand WriteTableByte(const MemoryCell& cell, int tag) {
    const char payload[] = {static_cast<char>(cell.page), static_cast<char>(cell.address),
                            static_cast<char>(cell.value)};
    return {"$KVTWE", std::string(payload, sizeof payload), tag, cell};
}

void MemoryTalk::Read(std::vector<MemoryCell> places, OnStep onStep, OnEnd onEnd, std::string_view filler) {
    m_Reads = std::move(places);
    m_Filler = filler;
    m_Writes.clear();
    Begin(std::move(onStep), std::move(onEnd));
}

void MemoryTalk::Write(std::vector<MemoryWriteCommand> writes, OnStep onStep, OnEnd onEnd) {
    m_Reads.clear();
    m_Writes = std::move(writes);
    Begin(std::move(onStep), std::move(onEnd));
}

void MemoryTalk::Begin(OnStep onStep, OnEnd onEnd) {
    m_OnStep = std::move(onStep);
    m_OnEnd = std::move(onEnd);
    m_Step = 0;
    m_SilentPage.reset();
    m_IsOn = true;
    m_Stopped = false;
    Next();
}

void MemoryTalk::Drop() {
    m_IsOn = false;
    m_OnStep = nullptr;
    m_OnEnd = nullptr;
}

void MemoryTalk::Next() {
    if (m_Stopped) {
        End(Outcome::Refused({}));
        return;
    }
    while (m_Step < m_Reads.size() && m_Reads[m_Step].page == m_SilentPage)
        ++m_Step;
    if (m_Step < m_Reads.size())
        m_Queue.Ask(ReadMemoryByteOf(m_Reads[m_Step].page, m_Reads[m_Step].address) + m_Filler,
                    TagMemoryEditor, *this);
    else if (m_Step < m_Writes.size())
        m_Queue.AskEcho(m_Writes[m_Step].text, m_Writes[m_Step].tag, *this, m_Writes[m_Step].payload);
    else
        End(Outcome::Done());
}

void MemoryTalk::Answered(int /*tag*/, std::string_view reply) {
    if (!m_IsOn)
        return;
    if (m_Reads.empty())
        TakeEcho(reply);
    else
        TakeRead(reply);
}

void MemoryTalk::TakeRead(std::string_view reply) {
    MemoryCell& place = m_Reads[m_Step];
    if (const auto value = MemoryByte(reply, place.page, place.address)) {
        place.value = *value;
        if (m_OnStep)
            m_OnStep(m_Step, place);
    } else {
        m_SilentPage = place.page;
    }
    ++m_Step;
    Next();
}

void MemoryTalk::TakeEcho(std::string_view reply) {
    const MemoryWriteCommand& write = m_Writes[m_Step];
    if (reply.empty()) { // shown to the operator
        End(Outcome::Refused(write.cell ? "Nicht bestaetigt, Seite/Adresse: " +
                                              PlaceText(write.cell->page, write.cell->address)
                                        : "Nicht bestaetigt: " + write.text));
        return;
    }
    if (m_OnStep)
        m_OnStep(m_Step, write.cell.value_or(MemoryCell{}));
    ++m_Step;
    Next();
}

void MemoryTalk::End(const Outcome& outcome) {
    m_IsOn = false;
    m_OnStep = nullptr;
    if (const OnEnd end = std::exchange(m_OnEnd, nullptr))
        end(outcome);
}

} // namespace qor
