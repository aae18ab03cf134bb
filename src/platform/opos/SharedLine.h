// A serial line with what hangs on it: a scanner, a scale, or both on a single cable.
#pragma once

#include "platform/opos/LineSplitter.h"
#include "platform/serial/SerialLine.h"

#include <asio/steady_timer.hpp>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

enum class LineTrouble {
    Lost,     // unplugged, or failed otherwise; the line tries to come back
    Overlong, // a line without an end was dropped
};

class LineListener {
public:
    virtual ~LineListener() = default;
    LineListener(const LineListener&) = delete;
    LineListener& operator=(const LineListener&) = delete;

    // To the scanner's: a line without its end; to the scale's: what stands between STX and CR.
    virtual void OnText(const std::string& text) = 0;
    virtual void OnTrouble(LineTrouble trouble) = 0;

protected:
    LineListener() = default;
};

enum class LineUser { Scanner, Scale };

// Whose cable it is. A scale on the scanner's cable speaks at the scanner's settings.
enum class LineWiring {
    ScannersCable, // 9600 baud, 8 data bits, no parity, 1 stop bit
    ScalesCable,   // 9600 baud, 7 data bits, even parity, 1 stop bit
};

// The device is open while somebody listens. On a scanner's cable a line is the scale's when it begins with STX, the
// scale was asked less than ReplyWindow ago and it reads as an answer, or nearly so while an answer is still due;
// everything else is a label. A lost line is opened again, every ReopenInterval, until that succeeds.
//
// Used on the line thread only.
class SharedLine : public std::enable_shared_from_this<SharedLine> {
public:
    static constexpr std::chrono::seconds ReplyWindow{2};
    static constexpr std::chrono::milliseconds ReopenInterval{500};
    static constexpr std::chrono::seconds WriteLimit{1};

    SharedLine(asio::io_context& context, int port);

    // Begins to listen; at most one per user. Gives Success, NoHardware (no such device), Claimed (another program
    // holds the port) or Failure (it cannot be opened, or is open with the other wiring).
    [[nodiscard]] std::int32_t Attach(LineUser user, LineWiring wiring, std::shared_ptr<LineListener> listener);
    void Detach(LineUser user);

    [[nodiscard]] bool IsOpen() const { return line_.IsOpen(); }
    // Asks the scale. False when the line is lost.
    [[nodiscard]] bool Ask(std::string_view command);
    // No answer is due any more.
    void AnswerArrived() { answerDue_ = false; }

private:
    void StartReading();
    void OnLine(const std::string& line);
    [[nodiscard]] bool IsForScale(std::string_view text) const;
    void Tell(LineTrouble trouble);
    void Lose();
    void ReopenSoon();

    int port_;
    LineWiring wiring_ = LineWiring::ScannersCable;
    SerialLine line_;
    LineSplitter splitter_;
    asio::steady_timer reopenTimer_;
    std::shared_ptr<LineListener> scanner_;
    std::shared_ptr<LineListener> scale_;
    bool answerDue_ = false;
    std::chrono::steady_clock::time_point asked_{};
};
