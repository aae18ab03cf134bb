// What a scale's line may deliver: whatever the bytes, an answer has the promised form, and a weight is the decimal
// text that stood there.
#include "platform/opos/LineSplitter.h"
#include "platform/opos/ScaleProtocol.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using ScaleProtocol::Reply;

void Require(bool condition) {
    if (!condition)
        std::abort();
}

// The weight written with as many digits as the text has.
std::string Rendered(std::int32_t weight, std::size_t whole, std::size_t decimals) {
    char text[64];
    const int fraction = decimals == 2 ? weight % 1000 / 10 : weight % 1000;
    std::snprintf(text, sizeof text, "%0*d.%0*d", static_cast<int>(whole), weight / 1000, static_cast<int>(decimals),
                  fraction);
    return text;
}

void CheckReply(std::string_view text) {
    const Reply reply = ScaleProtocol::ParseReply(text);
    switch (reply.kind) {
    case Reply::Kind::Weight:
        Require(reply.weight >= 0 && reply.weight <= 999999 && reply.status == 0);
        Require(Rendered(reply.weight, text.find('.'), text.size() - text.find('.') - 1) == text);
        Require(ScaleProtocol::ResemblesReply(text));
        break;
    case Reply::Kind::Status:
        Require(text.size() == 2 && reply.status <= ScaleProtocol::StatusBits && reply.weight == 0);
        Require(ScaleProtocol::ResemblesReply(text));
        break;
    case Reply::Kind::Unreadable:
        Require(reply == Reply{});
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CheckReply(bytes);
    LineSplitter splitter(
        [](const std::string& line) {
            if (const auto text = ScaleProtocol::ReplyText(line)) {
                Require(text->size() < line.size());
                CheckReply(*text);
            }
        },
        [] {});
    splitter.Feed(bytes);
    return 0;
}
