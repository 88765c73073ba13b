#include "platform/visa/bounded_visa.h"

namespace qor::visa {

namespace {

constexpr int CloseMs = 500;

} // namespace

BoundedVisa::Answer BoundedVisa::Do(std::function<Answer(VisaLibrary&)> job, int limitMs) {
    const auto answer = std::make_shared<Answer>();
    switch (m_Calls.Do([answer, job = std::move(job)](VisaLibrary& visa) { *answer = job(visa); }, limitMs)) {
    case CallThread<VisaLibrary>::Call::Done:
        return std::move(*answer);
    case CallThread<VisaLibrary>::Call::GivenUp:
        return {ErrorTimeout, 0, {}};
    case CallThread<VisaLibrary>::Call::NoLibrary:
        break;
    }
    return {};
}

std::optional<bool> BoundedVisa::IsLoaded() {
    m_Calls.Start();
    const auto call = m_Calls.Do([](VisaLibrary&) {}, UsualOpenMs);
    return call == CallThread<VisaLibrary>::Call::GivenUp
               ? std::nullopt
               : std::optional(call == CallThread<VisaLibrary>::Call::Done);
}

bool BoundedVisa::IsInstalled() {
    m_Calls.Start();
    return Do(
               [](VisaLibrary& visa) {
                   return Answer{visa.IsInstalled() ? 1 : 0, 0, {}};
               },
               UsualOpenMs)
               .status == 1;
}

VisaStatus BoundedVisa::OpenDefaultRM(VisaSession& manager) {
    m_Calls.Start();
    m_TimeoutMs = UsualTimeoutMs;
    const Answer answer = Do(
        [](VisaLibrary& visa) {
            Answer a{};
            a.status = visa.OpenDefaultRM(a.session);
            return a;
        },
        UsualOpenMs);
    manager = answer.session;
    return answer.status;
}

VisaStatus BoundedVisa::Open(VisaSession manager, std::string_view address, VisaSession& session) {
    const Answer answer = Do(
        [manager, ms = m_OpenMs, text = std::string(address)](VisaLibrary& visa) {
            Answer a{};
            visa.LimitOpen(ms);
            a.status = visa.Open(manager, text, a.session);
            return a;
        },
        m_OpenMs > 0 ? m_OpenMs : UsualOpenMs);
    session = answer.session;
    return answer.status;
}

VisaStatus BoundedVisa::Close(VisaSession session) {
    return Do([session](VisaLibrary& visa) { return Answer{visa.Close(session), 0, {}}; }, CloseMs).status;
}

VisaStatus BoundedVisa::SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) {
    if (attribute == VisaAttribute::TimeoutMs)
        m_TimeoutMs = std::max(m_TimeoutMs, static_cast<int>(std::min<std::uint32_t>(value, 60000)));
    return Do(
               [=](VisaLibrary& visa) {
                   return Answer{visa.SetAttribute(session, attribute, value), 0, {}};
               },
               CloseMs)
        .status;
}

VisaStatus BoundedVisa::SetBuf(VisaSession session, std::uint32_t bytes) {
    return Do([=](VisaLibrary& visa) { return Answer{visa.SetBuf(session, bytes), 0, {}}; }, CloseMs).status;
}

VisaStatus BoundedVisa::Write(VisaSession session, std::string_view text) {
    return Do(
               [session, copy = std::string(text)](VisaLibrary& visa) {
                   return Answer{visa.Write(session, copy), 0, {}};
               },
               TransferMs())
        .status;
}

VisaStatus BoundedVisa::Read(VisaSession session, std::size_t limit, std::string& reply) {
    Answer answer = Do(
        [session, limit](VisaLibrary& visa) {
            Answer a{};
            a.status = visa.Read(session, limit, a.reply);
            return a;
        },
        TransferMs());
    reply = std::move(answer.reply);
    return answer.status;
}

} // namespace qor::visa
