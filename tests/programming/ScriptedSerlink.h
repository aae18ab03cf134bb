// A line that answers as a test tells it to and writes down every use of its members, in order.
#pragma once

#include "programming/Serlink.h"

#include <functional>
#include <string>
#include <vector>

class ScriptedSerlink final : public Serlink {
public:
    // What the scanner does. A function may throw.
    struct Script {
        std::function<void()> sendCommand = [] {};
        std::function<bool()> receiveReply = [] { return true; };
        std::function<bool()> commandSucceeded = [] { return true; };
        std::string reply = {};
        std::string failureText = {};
    };

    // The log outlives the line.
    ScriptedSerlink(Script script, std::vector<std::string>& log) : script_(std::move(script)), log_(log) {}

    [[nodiscard]] std::string EntryCommand() const override { return entryCommand_; }
    void EntryCommand(const std::string& command) override {
        entryCommand_ = command;
        log_.push_back("EntryCommand = \"" + command + '"');
    }
    [[nodiscard]] std::int16_t EntryMode() const override { return entryMode_; }
    void EntryMode(std::int16_t mode) override {
        entryMode_ = mode;
        log_.push_back("EntryMode = " + std::to_string(mode));
    }
    [[nodiscard]] std::string CommandData() const override {
        log_.emplace_back("CommandData read");
        return commandData_;
    }
    void CommandData(const std::string& data) override {
        commandData_ = data;
        log_.push_back("CommandData = \"" + data + '"');
    }
    [[nodiscard]] std::int16_t PortNumber() const override { return portNumber_; }
    void PortNumber(std::int16_t port) override {
        portNumber_ = port;
        log_.push_back("PortNumber = " + std::to_string(port));
    }

    bool ReceiveReply() override {
        log_.emplace_back("ReceiveReply");
        const bool received = script_.receiveReply();
        if (received)
            commandData_ = script_.reply;
        return received;
    }
    void SendCommand() override {
        log_.push_back("SendCommand \"" + commandData_ + '"');
        script_.sendCommand();
    }
    bool CommandSucceeded() override {
        log_.emplace_back("CommandSucceeded");
        return script_.commandSucceeded();
    }
    [[nodiscard]] const std::string& FailureText() const noexcept override { return script_.failureText; }

private:
    Script script_;
    std::vector<std::string>& log_;
    std::string entryCommand_;
    std::string commandData_;
    std::int16_t entryMode_ = 0;
    std::int16_t portNumber_ = 0;
};
