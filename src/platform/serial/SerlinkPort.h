// Serlink over a serial port: 9600 baud, 8 data bits, no parity, 1 stop bit. One object is one session: the port is
// opened by the first SendCommand and closed with the object, or when PortNumber changes or the line is lost; the next
// SendCommand opens it again and enters programming mode anew.
//
// Entering: EntryCommand and CR are sent, unless it is empty, and the bytes of EntryMode awaited, unless it is 0; with
// neither set, CommandData is sent at once. The announcement may come in pieces and with noise before it: it counts
// where it ends what was received, or where STX follows it. Without an announcement nothing more is sent, and
// ReceiveReply and CommandSucceeded are false at once.
#pragma once

#include "platform/serial/BlockingSerialLine.h"
#include "platform/serial/ReplyParser.h"
#include "programming/Serlink.h"

#include <chrono>
#include <functional>
#include <string>

// How long the line may take. The defaults are the protocol's; tests shorten them.
struct SerlinkLimits {
    std::chrono::milliseconds commandEntry{2000};  // for the announcement after an entry command
    std::chrono::milliseconds powerUpEntry{15000}; // for the announcement of a scanner that is switched on by hand
    std::chrono::milliseconds replyByte{5000};     // from byte to byte of a reply
    std::chrono::milliseconds reply{90000};        // for a whole reply, so that a babbling device ends too
    std::chrono::milliseconds acknowledge{10000};
    std::chrono::milliseconds write{5000}; // for each piece that is sent
    std::size_t replySize = ReplyParser::DefaultLimit;
};

enum class SerlinkStep { Opening, Entering, AwaitingPowerUp, Sending, Receiving, AwaitingAcknowledgement };

// What the line is doing. done and expected count bytes; expected is 0 where nobody knows.
struct SerlinkProgress {
    SerlinkStep step;
    std::size_t done = 0;
    std::size_t expected = 0;
};

enum class SerlinkFailure {
    None,
    PortMissing,
    PortBusy,
    PortNotPermitted,
    PortFailed,
    Unplugged,
    NoAnnouncement,
    NoReply,
    Refused,
    MalformedReply,
    NotAcknowledged, // neither ACK nor NAK in time
};

class SerlinkPort final : public Serlink {
public:
    using ProgressObserver = std::function<void(const SerlinkProgress&)>;

    // idle is called at least every 20 ms while the line waits, observer when a step begins or bytes have passed; both
    // on the calling thread. Neither may call back into this object or destroy it. Their exceptions pass to the caller.
    explicit SerlinkPort(BlockingSerialLine::IdleFunction idle = {}, ProgressObserver observer = {},
                         const SerlinkLimits& limits = {});

    [[nodiscard]] std::string EntryCommand() const override { return entryCommand_; }
    void EntryCommand(const std::string& command) override { entryCommand_ = command; }
    [[nodiscard]] std::int16_t EntryMode() const override { return entryMode_; }
    void EntryMode(std::int16_t mode) override { entryMode_ = mode; }
    [[nodiscard]] std::string CommandData() const override { return commandData_; }
    void CommandData(const std::string& data) override { commandData_ = data; }
    [[nodiscard]] std::int16_t PortNumber() const override { return portNumber_; }
    void PortNumber(std::int16_t port) override;

    // False, with Failure saying why, also when the line is lost.
    bool ReceiveReply() override;
    // Errors: SerialError, with Failure saying the same.
    void SendCommand() override;
    // False, with Failure saying why, also when the line is lost.
    bool CommandSucceeded() override;

    // Why the last call did not lead to what was wanted.
    [[nodiscard]] SerlinkFailure Failure() const noexcept { return failure_; }
    // The same for the user: UTF-8, what happened and what to do; empty for None.
    [[nodiscard]] const std::string& FailureText() const noexcept override { return failureText_; }

private:
    void OpenLine();
    [[nodiscard]] bool HasEntered();
    [[nodiscard]] bool EnterProgrammingMode();
    void Send(const std::string& text);
    void Report(SerlinkStep step, std::size_t done = 0, std::size_t expected = 0) const;
    void Fail(SerlinkFailure failure);
    void Fail(const SerialError& error);
    [[nodiscard]] bool Receive();
    [[nodiscard]] bool AwaitAcknowledgement();

    std::string entryCommand_;
    std::int16_t entryMode_ = 0;
    std::string commandData_;
    std::int16_t portNumber_ = 0;

    BlockingSerialLine line_;
    ProgressObserver observer_;
    SerlinkLimits limits_;
    bool entered_ = false;
    std::string unread_; // what came behind the announcement
    SerlinkFailure failure_ = SerlinkFailure::None;
    std::string failureText_;
};
