#include "platform/opos/SharedLine.h"

#include "opos/OposConstants.h"
#include "platform/opos/ScaleProtocol.h"

#include <utility>

namespace {

SerialSettings SettingsOf(LineWiring wiring) {
    if (wiring == LineWiring::ScannersCable)
        return {.baudRate = 9600, .dataBits = 8, .parity = SerialParity::None, .stopBits = 1};
    return {.baudRate = 9600, .dataBits = 7, .parity = SerialParity::Even, .stopBits = 1};
}

std::int32_t ResultOf(SerialFault fault) {
    switch (fault) {
    case SerialFault::NoSuchPort:
        return OposResult::NoHardware;
    case SerialFault::Busy:
        return OposResult::Claimed;
    default:
        return OposResult::Failure;
    }
}

} // namespace

SharedLine::SharedLine(asio::io_context& context, int port)
    : port_(port),
      line_(context),
      splitter_([this](const std::string& line) { OnLine(line); }, [this] { Tell(LineTrouble::Overlong); }),
      reopenTimer_(context) {}

std::int32_t SharedLine::Attach(LineUser user, LineWiring wiring, std::shared_ptr<LineListener> listener) {
    const bool used = scanner_ != nullptr || scale_ != nullptr;
    if (used && wiring != wiring_)
        return OposResult::Failure;
    wiring_ = wiring;
    if (!line_.IsOpen()) {
        try {
            line_.Open(port_, SettingsOf(wiring_));
            line_.DropUnreadInput();
        } catch (const SerialError& error) {
            return ResultOf(error.Fault());
        }
        reopenTimer_.cancel();
        StartReading();
    }
    (user == LineUser::Scanner ? scanner_ : scale_) = std::move(listener);
    return OposResult::Success;
}

void SharedLine::Detach(LineUser user) {
    (user == LineUser::Scanner ? scanner_ : scale_).reset();
    if (user == LineUser::Scale)
        answerDue_ = false;
    if (scanner_ != nullptr || scale_ != nullptr)
        return;
    reopenTimer_.cancel();
    line_.Close();
    splitter_.Reset();
}

bool SharedLine::Ask(std::string_view command) {
    if (!line_.IsOpen())
        return false;
    answerDue_ = true;
    asked_ = std::chrono::steady_clock::now();
    line_.Write(std::string(command), WriteLimit);
    return true;
}

void SharedLine::StartReading() {
    splitter_.Reset();
    const std::weak_ptr<SharedLine> self = weak_from_this();
    line_.Read(
        [self](const std::string& bytes) {
            if (const auto line = self.lock())
                line->splitter_.Feed(bytes);
        },
        [self](const SerialError&) {
            if (const auto line = self.lock())
                line->Lose();
        });
}

// Listeners may detach while they are told: they are kept alive here.
void SharedLine::OnLine(const std::string& line) {
    if (const auto scale = scale_) {
        const auto text = ScaleProtocol::ReplyText(line);
        if (text && IsForScale(*text)) {
            scale->OnText(std::string(*text));
            return;
        }
    }
    if (const auto scanner = scanner_)
        scanner->OnText(line);
}

bool SharedLine::IsForScale(std::string_view text) const {
    if (wiring_ == LineWiring::ScalesCable)
        return true;
    if (asked_ + ReplyWindow < std::chrono::steady_clock::now())
        return false;
    if (ScaleProtocol::ParseReply(text).kind != ScaleProtocol::Reply::Kind::Unreadable)
        return true;
    return answerDue_ && ScaleProtocol::ResemblesReply(text);
}

void SharedLine::Tell(LineTrouble trouble) {
    const auto scanner = scanner_;
    const auto scale = scale_;
    if (scanner)
        scanner->OnTrouble(trouble);
    if (scale)
        scale->OnTrouble(trouble);
}

void SharedLine::Lose() {
    Tell(LineTrouble::Lost);
    if (scanner_ != nullptr || scale_ != nullptr)
        ReopenSoon();
}

void SharedLine::ReopenSoon() {
    reopenTimer_.expires_after(ReopenInterval);
    reopenTimer_.async_wait([self = weak_from_this()](const std::error_code& error) {
        const auto line = self.lock();
        if (error || !line || line->line_.IsOpen() || (!line->scanner_ && !line->scale_))
            return;
        try {
            line->line_.Open(line->port_, SettingsOf(line->wiring_));
        } catch (const SerialError&) {
            line->ReopenSoon();
            return;
        }
        line->StartReading();
    });
}
