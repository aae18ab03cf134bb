// What a scanner's line may deliver, in whatever bytes and pieces: however it is cut, the labels are the same, and each
// has the promised form. The first byte of the input says how the rest is cut.
#include "opos/OposConstants.h"
#include "platform/opos/LabelParser.h"
#include "platform/opos/LineSplitter.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

void Require(bool condition) {
    if (!condition)
        std::abort();
}

struct Split {
    std::vector<std::string> lines;
    std::size_t overlong = 0;
    bool operator==(const Split&) const = default;
};

Split SplitInPieces(std::string_view bytes, std::size_t piece) {
    Split result;
    LineSplitter splitter([&](const std::string& line) { result.lines.push_back(line); }, [&] { ++result.overlong; });
    for (std::size_t start = 0; start < bytes.size(); start += piece)
        splitter.Feed(bytes.substr(start, piece));
    return result;
}

bool IsRetail(std::int32_t symbology) {
    return (symbology >= OposSymbology::UpcA && symbology <= OposSymbology::Ean13) ||
           symbology == OposSymbology::UpcAWithSupplement || symbology == OposSymbology::UpcEWithSupplement ||
           symbology == OposSymbology::Ean8WithSupplement || symbology == OposSymbology::Ean13WithSupplement;
}

void CheckLabel(const std::string& line) {
    const Label label = ParseLabel(line);
    Require(line.find(label.data) != std::string::npos);
    Require(label.label.size() <= label.data.size() + 2 && label.label.size() + 1 >= label.data.size());
    if (IsRetail(label.symbology)) {
        const auto isDigit = [](char character) { return character >= '0' && character <= '9'; };
        Require(label.label.size() >= 8 && std::ranges::all_of(label.label, isDigit));
    } else {
        Require(label.label == label.data);
    }
    Require(ParseLabel('\x02' + line + '\x03').symbology == label.symbology || line.starts_with('\x02'));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1)
        return 0;
    const std::size_t piece = std::size_t{data[0]} + 1;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const Split whole = SplitInPieces(bytes, std::max<std::size_t>(bytes.size(), 1));
    Require(whole == SplitInPieces(bytes, piece));
    std::size_t total = 0;
    for (const std::string& line : whole.lines) {
        Require(!line.empty() && line.size() <= LineSplitter::LongestLine && line.find('\r') == std::string::npos);
        total += line.size() + 1;
        CheckLabel(line);
    }
    Require(total + whole.overlong * LineSplitter::LongestLine <= bytes.size());
    return 0;
}
