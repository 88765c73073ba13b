#pragma once

#include "desk/dialogs.h"
#include "platform/launcher.h"
#include "platform/operator.h"
#include "platform/port_list.h"
#include "platform/serial_control.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

/// The outside world of a program under test. What one test alone wants of it stands there.
namespace qor::test {

/// An operator who notes what is said and answers as told.
class ScriptedOperator final : public Operator {
public:
    void Message(std::string_view text, std::string_view) override { messages.emplace_back(text); }
    [[nodiscard]] bool Ask(std::string_view text, std::string_view) override {
        questions.emplace_back(text);
        if (whileAsked)
            whileAsked();
        return answer;
    }
    [[nodiscard]] Answer AskOrCancel(std::string_view text, std::string_view) override {
        questions.emplace_back(text);
        return choice;
    }
    [[nodiscard]] Answer AskOrElse(std::string_view text, std::string_view, std::string_view) override {
        questions.emplace_back(text);
        if (whileAsked)
            whileAsked();
        return choice;
    }
    [[nodiscard]] std::vector<std::filesystem::path>
    FilesToOpen(std::string_view, const std::filesystem::path&, std::string_view) override {
        return filesToOpen;
    }
    [[nodiscard]] std::filesystem::path FileToSave(std::string_view, const std::filesystem::path& suggestion,
                                                   std::string_view offered) override {
        suggestions.push_back(suggestion);
        endings = offered;
        return fileToSave;
    }
    [[nodiscard]] std::filesystem::path Folder(std::string_view, const std::filesystem::path&) override {
        return folder;
    }
    bool Progress(std::string_view, int done, int) override { return done < cancelAt; }
    void LetLive() override {
        if (whileLiving)
            whileLiving();
    }
    [[nodiscard]] bool WasTold(std::string_view part) const {
        return std::any_of(messages.begin(), messages.end(),
                           [part](const std::string& m) { return m.find(part) != std::string::npos; });
    }

    std::vector<std::string> messages;
    std::vector<std::string> questions;
    bool answer = true;
    std::function<void()> whileAsked;  ///< what happens while a question is open
    std::function<void()> whileLiving; ///< what happens while a call waits
    Answer choice = Answer::Yes;
    std::vector<std::filesystem::path> filesToOpen;
    std::filesystem::path fileToSave;
    std::string endings; ///< offered last
    std::vector<std::filesystem::path> suggestions;
    std::filesystem::path folder;
    int cancelAt = 1 << 30; ///< step at which a long work is given up
};

/// An operator who does not listen and says Yes.
class SilentOperator final : public Operator {
public:
    void Message(std::string_view, std::string_view) override {}
    [[nodiscard]] bool Ask(std::string_view, std::string_view) override { return true; }
};

/// Dialogs that are noted, and stay open for as long as `whileOpen` takes.
class NotedDialogs final : public Dialogs {
public:
    bool Open(std::string_view dialog, int argument) override {
        opened.emplace_back(dialog, argument);
        if (whileOpen)
            whileOpen();
        return opens;
    }

    std::vector<std::pair<std::string, int>> opened;
    bool opens = true;
    std::function<void()> whileOpen;
};

/// Notes what was to be shown or started.
class NotedLauncher final : public Launcher {
public:
    bool Show(const std::string& addressOrPath) override {
        shown.push_back(addressOrPath);
        return works;
    }
    bool Start(const std::filesystem::path& program) override {
        started.push_back(program);
        return works;
    }
    void CloseStarted() override { closed = started.size(); }
    void RestartAfterEnd(bool keepSession) override { restarts.push_back(keepSession); }

    std::vector<std::string> shown;
    std::vector<std::filesystem::path> started;
    std::size_t closed = 0;     ///< how many of them were told to end
    std::vector<bool> restarts; ///< whether each was to keep the session
    bool works = true;
};

/// A machine with one port, or with none.
class OnePort final : public PortList {
public:
    [[nodiscard]] std::vector<SerialDevice> List() override {
        return there ? std::vector<SerialDevice>{{number, device}} : std::vector<SerialDevice>{};
    }
    [[nodiscard]] std::string DeviceOf(int) const override { return device; }

    int number = 1;
    std::string device = "/dev/ttyS0";
    bool there = true;
};

/// A port with nothing at its other end. Those who answer derive from it.
class DeadLine : public CMSComm {
public:
    void SetCommPort(int) override {}
    void SetSettings(std::string_view) override {}
    void SetPortOpen(bool open) override { m_Open = open; }
    [[nodiscard]] bool GetPortOpen() const override { return m_Open; }
    void SetOutput(std::string_view) override {}
    void GetInput(std::string& bytes) override { bytes.clear(); }

protected:
    bool m_Open = false;
};

} // namespace qor::test
