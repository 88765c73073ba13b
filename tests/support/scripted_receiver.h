#pragma once

#include "platform/visa.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace qor::test {

/// Writes down every call and fails those that the test names. Questions are answered by `answer`.
class ScriptedVisa : public VisaLibrary {
public:
    std::vector<std::string> calls;
    std::string failing; ///< calls that begin with this fail
    bool installed = false;
    VisaSession nextSession = 10;
    std::function<std::string(const std::string& question)> answer = [](const std::string&) { return ""; };
    std::function<VisaStatus(const std::string& address)> opens = [](const std::string&) { return 0; };

    [[nodiscard]] bool IsInstalled() override { return installed; }
    VisaStatus OpenDefaultRM(VisaSession& manager) override {
        manager = nextSession++;
        return Note("rm");
    }
    VisaStatus Open(VisaSession manager, std::string_view address, VisaSession& session) override {
        session = 0;
        const VisaStatus noted = Note("open " + std::to_string(manager) + " " + std::string(address));
        const VisaStatus opened = opens(std::string(address));
        if (opened >= 0)
            session = m_Open = nextSession++;
        return noted < 0 ? noted : opened;
    }
    VisaStatus Close(VisaSession session) override { return Note("close " + std::to_string(session)); }
    VisaStatus SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) override {
        static constexpr const char* Names[] = {"timeout ", "read mode ", "write mode "};
        return Note(Names[static_cast<int>(attribute)] + std::to_string(session) + " " +
                    std::to_string(value));
    }
    VisaStatus SetBuf(VisaSession session, std::uint32_t bytes) override {
        return Note("buffers " + std::to_string(session) + " " + std::to_string(bytes));
    }
    VisaStatus Write(VisaSession session, std::string_view text) override {
        m_Asked = text;
        const VisaStatus noted = Note("write " + m_Asked);
        return session == 0 ? -1 : noted;
    }
    VisaStatus Read(VisaSession, std::size_t limit, std::string& reply) override {
        reply = answer(m_Asked);
        reply.resize(std::min(reply.size(), limit));
        return Note("read");
    }
    /// Texts written since the last call, "<" for a read.
    std::vector<std::string> Texts() {
        std::vector<std::string> texts;
        for (const std::string& call : std::exchange(calls, {})) {
            if (call.starts_with("write ") && !call.starts_with("write mode"))
                texts.push_back(call.substr(6));
            else if (call == "read")
                texts.emplace_back("<");
        }
        return texts;
    }

private:
    VisaStatus Note(const std::string& call) {
        calls.push_back(call);
        return !failing.empty() && call.starts_with(failing) ? -1 : 0;
    }
    VisaSession m_Open = 0;
    std::string m_Asked;
};

class ScriptedSensor : public PowerSensorLibrary {
public:
    std::vector<std::string> calls;
    std::deque<double> watts; ///< none left: no result within the time
    std::function<void(int timeoutMs)> whileReading;
    bool there = true;
    int reads = 0;

    std::int32_t Init(std::string_view resource, bool idQuery, bool reset, std::uint32_t& session) override {
        calls.push_back("init " + std::string(resource) + (idQuery && reset ? " id reset" : ""));
        session = 3;
        return there ? 0 : -1;
    }
    void SetContAvAperture(std::uint32_t session, int channel, double seconds) override {
        Note("aperture", session, channel, std::to_string(seconds));
    }
    void SetContAvSmoothingEnabled(std::uint32_t session, int channel, bool on) override {
        Note("smoothing", session, channel, on ? "on" : "off");
    }
    void ConfigureAvgNSRatio(std::uint32_t session, int channel, double noiseRatio, double seconds) override {
        Note("averaging", session, channel, std::to_string(noiseRatio) + " " + std::to_string(seconds));
    }
    void Initiate(std::uint32_t session) override { Note("initiate", session, 0, ""); }
    void ReadMeasurement(std::uint32_t, int, int timeoutMs, double& result) override {
        ++reads;
        if (whileReading)
            whileReading(timeoutMs);
        if (watts.empty())
            return;
        result = watts.front();
        watts.pop_front();
    }
    void Close(std::uint32_t session) override { Note("close", session, 0, ""); }

private:
    void Note(const std::string& what, std::uint32_t session, int channel, const std::string& value) {
        calls.push_back(what + " " + std::to_string(session) + " " + std::to_string(channel) + " " + value);
    }
};

} // namespace qor::test
