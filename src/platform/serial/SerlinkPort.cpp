#include "platform/serial/SerlinkPort.h"

#include "platform/serial/LineCharacters.h"
#include "platform/serial/SerialPorts.h"

#include <algorithm>
#include <utility>

using namespace LineCharacters;

namespace {

using std::chrono::milliseconds;

// A limit that runs from its making.
class Deadline {
public:
    explicit Deadline(milliseconds limit) : end_(std::chrono::steady_clock::now() + limit) {}
    [[nodiscard]] milliseconds Left() const {
        const auto left = std::chrono::ceil<milliseconds>(end_ - std::chrono::steady_clock::now());
        return std::max(left, milliseconds::zero());
    }

private:
    std::chrono::steady_clock::time_point end_;
};

// The bytes of an entry mode, high byte first, a zero high byte left out; none for 0.
std::string AnnouncementOf(std::int16_t mode) {
    const auto bits = static_cast<std::uint16_t>(mode);
    std::string bytes;
    if (bits > 0xFF) {
        bytes += static_cast<char>(bits >> 8);
    }
    if (bits != 0) {
        bytes += static_cast<char>(bits & 0xFF);
    }
    return bytes;
}

// Where in received the announcement ends; npos when it has not come.
std::size_t EndOfAnnouncement(const std::string& received, const std::string& announcement) {
    for (std::size_t start = 0; (start = received.find(announcement, start)) != std::string::npos; ++start) {
        const std::size_t end = start + announcement.size();
        if (end == received.size() || received[end] == Stx) {
            return end;
        }
    }
    return std::string::npos;
}

SerlinkFailure FailureOf(SerialFault fault) {
    switch (fault) {
    case SerialFault::NoSuchPort:
        return SerlinkFailure::PortMissing;
    case SerialFault::Busy:
        return SerlinkFailure::PortBusy;
    case SerialFault::NotPermitted:
        return SerlinkFailure::PortNotPermitted;
    case SerialFault::Lost:
        return SerlinkFailure::Unplugged;
    case SerialFault::TimedOut:
    case SerialFault::Other:
        break;
    }
    return SerlinkFailure::PortFailed;
}

std::string TextOf(SerlinkFailure failure, int port) {
    const std::string name = SerialPortName(port);
    switch (failure) {
    case SerlinkFailure::NoAnnouncement:
        return "The scanner at " + name +
               " did not enter programming mode. Check the port, the cable and that the scanner is switched on.";
    case SerlinkFailure::NoReply:
        return "The scanner at " + name + " did not send its configuration. Check the model number and try again.";
    case SerlinkFailure::Refused:
        return "The scanner at " + name + " refused the command. Check the model number and try again.";
    case SerlinkFailure::MalformedReply:
        return "The scanner at " + name +
               " sent something that is not a configuration. Check the model number and the cable, then try again.";
    case SerlinkFailure::NotAcknowledged:
        return "The scanner at " + name +
               " did not confirm its configuration. Switch it off and on, then program it again.";
    default:
        return {};
    }
}

} // namespace

SerlinkPort::SerlinkPort(BlockingSerialLine::IdleFunction idle, ProgressObserver observer, const SerlinkLimits& limits)
    : line_(std::move(idle)), observer_(std::move(observer)), limits_(limits) {}

void SerlinkPort::PortNumber(std::int16_t port) {
    if (port != portNumber_) {
        line_.Close();
        entered_ = false;
    }
    portNumber_ = port;
}

void SerlinkPort::SendCommand() {
    Fail(SerlinkFailure::None);
    try {
        if (!line_.IsOpen()) {
            OpenLine();
        }
        if (entered_) {
            unread_.clear();
            line_.DropUnreadInput();
            Send(commandData_);
            return;
        }
        entered_ = EnterProgrammingMode();
        if (!entered_) {
            Fail(SerlinkFailure::NoAnnouncement);
        } else if (!commandData_.empty()) {
            Send(commandData_);
        }
    } catch (const SerialError& error) {
        Fail(error);
        throw;
    }
}

bool SerlinkPort::ReceiveReply() {
    if (!HasEntered()) {
        return false;
    }
    Fail(SerlinkFailure::None);
    try {
        return Receive();
    } catch (const SerialError& error) {
        Fail(error);
        return false;
    }
}

bool SerlinkPort::CommandSucceeded() {
    if (!HasEntered()) {
        return false;
    }
    Fail(SerlinkFailure::None);
    try {
        return AwaitAcknowledgement();
    } catch (const SerialError& error) {
        Fail(error);
        return false;
    }
}

void SerlinkPort::OpenLine() {
    entered_ = false;
    unread_.clear();
    Report(SerlinkStep::Opening);
    line_.Open(portNumber_);
}

bool SerlinkPort::HasEntered() {
    // What went wrong while entering is still the reason.
    if (!entered_ && failure_ == SerlinkFailure::None) {
        Fail(SerlinkFailure::NoAnnouncement);
    }
    return entered_;
}

bool SerlinkPort::EnterProgrammingMode() {
    const bool byHand = entryCommand_.empty();
    if (!byHand) {
        line_.DropUnreadInput();
        Send(entryCommand_);
    }
    const std::string announcement = AnnouncementOf(entryMode_);
    if (announcement.empty()) {
        return true;
    }
    const SerlinkStep step = byHand ? SerlinkStep::AwaitingPowerUp : SerlinkStep::Entering;
    const Deadline deadline(byHand ? limits_.powerUpEntry : limits_.commandEntry);
    std::string received;
    Report(step, 0, announcement.size());
    while (deadline.Left() > milliseconds::zero()) {
        received += line_.Read(deadline.Left());
        if (const std::size_t end = EndOfAnnouncement(received, announcement); end != std::string::npos) {
            unread_ = received.substr(end);
            Report(step, announcement.size(), announcement.size());
            return true;
        }
        // Only the tail can still become an announcement.
        received.erase(0, received.size() - std::min(received.size(), announcement.size()));
    }
    return false;
}

void SerlinkPort::Send(const std::string& text) {
    constexpr std::size_t Piece = 128;
    const std::string bytes = text + Cr;
    Report(SerlinkStep::Sending, 0, bytes.size());
    for (std::size_t sent = 0; sent < bytes.size();) {
        const std::string piece = bytes.substr(sent, Piece);
        line_.Write(piece, limits_.write);
        sent += piece.size();
        Report(SerlinkStep::Sending, sent, bytes.size());
    }
}

bool SerlinkPort::Receive() {
    ReplyParser parser(limits_.replySize);
    const Deadline deadline(limits_.reply);
    std::string bytes = std::exchange(unread_, {});
    Report(SerlinkStep::Receiving);
    for (;;) {
        unread_ = bytes.substr(parser.Take(bytes));
        Report(SerlinkStep::Receiving, parser.Text().size());
        switch (parser.Progress()) {
        case ReplyParser::State::Complete:
            commandData_ = parser.Text();
            return true;
        case ReplyParser::State::Refused:
            Fail(SerlinkFailure::Refused);
            return false;
        case ReplyParser::State::Malformed:
            Fail(SerlinkFailure::MalformedReply);
            return false;
        case ReplyParser::State::Waiting:
        case ReplyParser::State::Receiving:
            break;
        }
        bytes = line_.Read(std::min(limits_.replyByte, deadline.Left()));
        if (bytes.empty()) {
            Fail(SerlinkFailure::NoReply);
            return false;
        }
    }
}

bool SerlinkPort::AwaitAcknowledgement() {
    const Deadline deadline(limits_.acknowledge);
    std::string bytes = std::exchange(unread_, {});
    Report(SerlinkStep::AwaitingAcknowledgement, 0, 1);
    for (;;) {
        for (const char byte : bytes) {
            if (byte == Ack || byte == Nak) {
                Report(SerlinkStep::AwaitingAcknowledgement, 1, 1);
                Fail(byte == Ack ? SerlinkFailure::None : SerlinkFailure::Refused);
                return byte == Ack;
            }
        }
        if (deadline.Left() == milliseconds::zero()) {
            Fail(SerlinkFailure::NotAcknowledged);
            return false;
        }
        bytes = line_.Read(deadline.Left());
    }
}

void SerlinkPort::Report(SerlinkStep step, std::size_t done, std::size_t expected) const {
    if (observer_) {
        observer_({step, done, expected});
    }
}

void SerlinkPort::Fail(SerlinkFailure failure) {
    failure_ = failure;
    failureText_ = TextOf(failure, portNumber_);
}

void SerlinkPort::Fail(const SerialError& error) {
    entered_ = false;
    failure_ = FailureOf(error.Fault());
    failureText_ = error.Description();
}
