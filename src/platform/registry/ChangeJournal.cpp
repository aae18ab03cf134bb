#include "platform/registry/ChangeJournal.h"

namespace {

constexpr std::string_view Format = "RVL1";

void AppendNumber(std::string& bytes, std::uint32_t number) {
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(number >> shift & 0xFF);
}

void AppendText(std::string& bytes, const std::string& text) {
    AppendNumber(bytes, static_cast<std::uint32_t>(text.size()));
    bytes += text;
}

// Takes what was appended off the front; a reader that has failed gives nothing any more.
class Reader {
public:
    explicit Reader(std::string_view bytes) : bytes_(bytes) {}

    [[nodiscard]] bool Failed() const { return failed_; }
    [[nodiscard]] bool AtEnd() const { return bytes_.empty(); }
    std::string_view Take(std::size_t count) {
        failed_ = failed_ || bytes_.size() < count;
        if (failed_)
            return {};
        const std::string_view taken = bytes_.substr(0, count);
        bytes_.remove_prefix(count);
        return taken;
    }
    std::uint32_t Number() {
        std::uint32_t number = 0;
        int shift = 0;
        for (const char byte : Take(4)) {
            number |= static_cast<std::uint32_t>(static_cast<unsigned char>(byte)) << shift;
            shift += 8;
        }
        return number;
    }
    std::string Text() { return std::string(Take(Number())); }

private:
    std::string_view bytes_;
    bool failed_ = false;
};

} // namespace

std::string EncodeChanges(const RegistryChanges& changes) {
    std::string bytes(Format);
    for (const RegistryChange& change : changes) {
        AppendNumber(bytes, static_cast<std::uint32_t>(change.kind));
        AppendText(bytes, change.path);
        AppendText(bytes, change.value.name);
        AppendNumber(bytes, change.value.type);
        AppendText(bytes, change.value.data);
    }
    return bytes;
}

std::optional<RegistryChanges> DecodeChanges(std::string_view bytes) {
    Reader reader(bytes);
    if (reader.Take(Format.size()) != Format)
        return std::nullopt;
    RegistryChanges changes;
    while (!reader.AtEnd() && !reader.Failed()) {
        const std::uint32_t kind = reader.Number();
        if (kind > static_cast<std::uint32_t>(RegistryChange::Kind::DropValue))
            return std::nullopt;
        RegistryChange change{static_cast<RegistryChange::Kind>(kind), reader.Text(), {}};
        change.value.name = reader.Text();
        change.value.type = reader.Number();
        change.value.data = reader.Text();
        changes.push_back(std::move(change));
    }
    return reader.Failed() ? std::nullopt : std::optional(std::move(changes));
}
