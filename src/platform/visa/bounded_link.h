#pragma once

#include "platform/visa/call_thread.h"
#include "platform/visa/link.h"

namespace qor::visa {

/// A link whose calls the kernel may hold: they run on a thread of their own and come back by their deadline.
/// Behind one that is given up the link is made anew.
class BoundedLink final : public Link {
public:
    explicit BoundedLink(CallThread<Link>::Factory factory) : m_Calls(std::move(factory)) {}

    LinkResult Open(Deadline deadline) override {
        return Do([](Link& link, Deadline inside, std::string&) { return link.Open(inside); }, deadline)
            .result;
    }
    LinkResult Write(std::string_view message, Deadline deadline) override {
        return Do([text = std::string(message)](Link& link, Deadline inside,
                                                std::string&) { return link.Write(text, inside); },
                  deadline)
            .result;
    }
    LinkResult Read(std::string& message, Deadline deadline) override {
        Answer answer = Do(
            [](Link& link, Deadline inside, std::string& text) { return link.Read(text, inside); }, deadline);
        message = std::move(answer.message);
        return answer.result;
    }

private:
    struct Answer {
        LinkResult result = LinkResult::TimedOut;
        std::string message;
    };
    using Job = std::function<LinkResult(Link&, Deadline, std::string&)>;

    [[nodiscard]] Answer Do(Job job, Deadline deadline) {
        constexpr int Grace = 100; // the link's own word about the time comes first
        const auto answer = std::make_shared<Answer>();
        const int ms = deadline.LeftMs();
        m_Calls.SetWhileWaiting([this, deadline] {
            deadline.Live();
            if (deadline.IsGivenUp())
                m_Calls.Abandon();
        });
        m_Calls.Start();
        const auto call =
            m_Calls.Do([answer, job = std::move(job),
                        ms](Link& link) { answer->result = job(link, Deadline::In(ms), answer->message); },
                       ms + Grace);
        return call == CallThread<Link>::Call::Done ? std::move(*answer) : Answer{};
    }

    CallThread<Link> m_Calls;
};

} // namespace qor::visa
