#include "reg/RegFileReader.h"

#include "reg/HexData.h"
#include "reg/RegFileWriter.h"

#include <charconv>
#include <optional>

namespace {

// A text that is taken off from the front, knowing its line.
class Cursor {
public:
    explicit Cursor(std::string_view text) : text_(text) {}

    [[nodiscard]] int Line() const { return line_; }
    [[nodiscard]] bool AtEnd() const { return text_.empty(); }
    [[nodiscard]] char Next() const { return text_.empty() ? '\0' : text_.front(); }
    [[noreturn]] void Fail(const std::string& problem) const { throw RegFileError(line_, problem); }

    char Take() {
        const char c = text_.front();
        text_.remove_prefix(1);
        if (c == '\n' || (c == '\r' && Next() != '\n'))
            ++line_;
        return c;
    }

    bool TakeIf(std::string_view expected) {
        if (!text_.starts_with(expected))
            return false;
        text_.remove_prefix(expected.size());
        return true;
    }

    void SkipBlanks() {
        while (Next() == ' ' || Next() == '\t')
            Take();
    }

    // The rest of the line without its end, which stays.
    std::string_view TakeLine() {
        const auto line = text_.substr(0, text_.find_first_of("\r\n"));
        text_.remove_prefix(line.size());
        return line;
    }

    bool TakeLineEnd() {
        if (Next() != '\r' && Next() != '\n')
            return false;
        if (Take() == '\r' && Next() == '\n')
            Take();
        return true;
    }

    // A comment may stand there.
    void ExpectLineEnd() {
        SkipBlanks();
        if (Next() == ';')
            TakeLine();
        if (!AtEnd() && Next() != '\r' && Next() != '\n')
            Fail("something follows that does not belong there");
    }

    void SkipEmptyLines() {
        while (!AtEnd() && (Next() == ' ' || Next() == '\t' || Next() == '\r' || Next() == '\n' || Next() == ';')) {
            if (Next() == ';')
                TakeLine();
            else
                Take();
        }
    }

    // A text in quotes; line breaks in it belong to it.
    std::string TakeQuoted() {
        const int start = line_;
        Take();
        std::string text;
        while (!AtEnd() && Next() != '"') {
            if (TakeIf("\\\\"))
                text += '\\';
            else if (TakeIf("\\\""))
                text += '"';
            else
                text += Take();
        }
        if (AtEnd())
            throw RegFileError(start, "the closing quotation mark is missing");
        Take();
        return text;
    }

    // Up to so many hexadecimal digits; nothing where there is none or one more.
    std::optional<std::uint32_t> TakeHex(std::size_t most) {
        std::uint32_t number = 0;
        const auto parsed = std::from_chars(text_.data(), text_.data() + text_.size(), number, 16);
        const auto count = static_cast<std::size_t>(parsed.ptr - text_.data());
        if (parsed.ec != std::errc() || count > most)
            return std::nullopt;
        text_.remove_prefix(count);
        return number;
    }

private:
    std::string_view text_;
    int line_ = 1;
};

class Reader {
public:
    explicit Reader(std::string_view text) : cursor_(text) {}

    std::vector<RegFileEntry> Read() {
        cursor_.SkipEmptyLines();
        if (!cursor_.TakeIf(RegFileHeader))
            cursor_.Fail("the file does not begin with \"" + std::string(RegFileHeader) + "\"");
        cursor_.ExpectLineEnd();
        while (true) {
            cursor_.SkipEmptyLines();
            if (cursor_.AtEnd())
                return std::move(entries_);
            if (cursor_.Next() == '[')
                ReadKey();
            else if (cursor_.Next() == '"' || cursor_.Next() == '@')
                ReadValue();
            else
                cursor_.Fail("neither a key in brackets nor a value begins here");
        }
    }

private:
    void ReadKey() {
        const int line = cursor_.Line();
        cursor_.Take();
        const bool deletes = cursor_.TakeIf("-");
        // A key's name may hold a bracket: the last one of the line closes.
        const std::string_view rest = cursor_.TakeLine();
        const auto end = rest.rfind(']');
        if (end == std::string_view::npos)
            cursor_.Fail("the closing bracket is missing");
        const std::string_view behind = rest.substr(end + 1);
        const auto extra = behind.find_first_not_of(" \t");
        if (extra != std::string_view::npos && behind[extra] != ';')
            cursor_.Fail("something follows that does not belong there");
        const auto key = ParseKeyReference(rest.substr(0, end));
        if (!key)
            cursor_.Fail("\"" + std::string(rest.substr(0, end)) +
                         "\" is no key under HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER");
        entries_.push_back({line, deletes ? RegFileEntry::Kind::DeleteKey : RegFileEntry::Kind::MakeKey, *key, {}});
        inKey_ = !deletes;
        key_ = *key;
    }

    void ReadValue() {
        if (!inKey_)
            cursor_.Fail("a value stands here without a key before it");
        RegFileEntry entry{cursor_.Line(), RegFileEntry::Kind::SetValue, key_, {}};
        if (!cursor_.TakeIf("@"))
            entry.value.name = cursor_.TakeQuoted();
        cursor_.SkipBlanks();
        if (!cursor_.TakeIf("="))
            cursor_.Fail("the equals sign is missing");
        cursor_.SkipBlanks();
        if (cursor_.TakeIf("-"))
            entry.kind = RegFileEntry::Kind::DeleteValue;
        else
            ReadData(entry.value);
        cursor_.ExpectLineEnd();
        entries_.push_back(std::move(entry));
    }

    void ReadData(RegistryValue& value) {
        if (cursor_.Next() == '"') {
            value.data = cursor_.TakeQuoted();
        } else if (cursor_.TakeIf("dword:")) {
            cursor_.SkipBlanks();
            const auto number = cursor_.TakeHex(8);
            if (!number)
                cursor_.Fail("after \"dword:\" up to eight hexadecimal digits are wanted");
            value.type = RegistryType::Number32;
            for (int shift = 0; shift < 32; shift += 8)
                value.data += static_cast<char>(*number >> shift & 0xFF);
        } else if (cursor_.TakeIf("hex")) {
            ReadHex(value);
        } else {
            cursor_.Fail("the data is neither a text in quotation marks nor dword: nor hex:");
        }
    }

    void ReadHex(RegistryValue& value) {
        const int line = cursor_.Line();
        value.type = RegistryType::Binary;
        if (cursor_.TakeIf("(")) {
            const auto type = cursor_.TakeHex(8);
            if (!type || !cursor_.TakeIf(")"))
                cursor_.Fail("the type in brackets after \"hex\" is not a hexadecimal number");
            value.type = *type;
        }
        if (!cursor_.TakeIf(":"))
            cursor_.Fail("the colon after \"hex\" is missing");
        const auto data = DataOfWindowsBytes(value.type, ReadBytes());
        if (!data)
            throw RegFileError(line, "the bytes are not well-formed UTF-16LE text");
        value.data = *data;
    }

    // Pairs of digits between commas; a backslash at a line's end goes on in the next.
    std::string ReadBytes() {
        std::string bytes;
        while (true) {
            SkipContinuation();
            const char next = cursor_.Next();
            if (cursor_.AtEnd() || next == '\r' || next == '\n' || next == ';')
                return bytes;
            const auto byte = cursor_.TakeHex(2);
            if (!byte)
                cursor_.Fail("two hexadecimal digits are wanted for each byte");
            bytes += static_cast<char>(*byte);
            SkipContinuation();
            if (!cursor_.TakeIf(","))
                return bytes;
        }
    }

    void SkipContinuation() {
        cursor_.SkipBlanks();
        while (cursor_.TakeIf("\\")) {
            cursor_.SkipBlanks();
            if (!cursor_.TakeLineEnd())
                cursor_.Fail("a backslash among bytes must stand at the end of the line");
            cursor_.SkipBlanks();
        }
    }

    Cursor cursor_;
    KeyReference key_;
    bool inKey_ = false;
    std::vector<RegFileEntry> entries_;
};

} // namespace

std::vector<RegFileEntry> ReadRegFile(std::string_view text) {
    return Reader(text).Read();
}
