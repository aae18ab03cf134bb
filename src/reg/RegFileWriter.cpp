#include "reg/RegFileWriter.h"

#include "reg/CommandLine.h"
#include "reg/HexData.h"

namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr std::size_t LongestLine = 80;

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

// The bytes behind what the line holds already, going on in further lines as needed.
std::string HexLines(std::string line, std::string_view bytes) {
    std::string lines;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        line += HexByte(bytes[i]);
        const bool last = i + 1 == bytes.size();
        if (!last)
            line += ',';
        // Room for another byte, its comma and the backslash.
        if (!last && line.size() + 4 > LongestLine) {
            lines += line + '\\' + std::string(LineEnd);
            line = "  ";
        }
    }
    return lines + line;
}

std::string HexPrefix(std::uint32_t type) {
    return type == RegistryType::Binary ? "hex:" : "hex(" + HexNumber(type) + "):";
}

std::string ValueLines(const RegistryValue& value) {
    const std::string name = (value.name.empty() ? "@" : Quoted(value.name)) + '=';
    const bool plain = value.data.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos;
    if (value.type == RegistryType::String && plain)
        return name + Quoted(value.data);
    const auto number = NumberOf(value);
    if (value.type == RegistryType::Number32 && number)
        return name + "dword:" + HexNumber(*number, 8);
    return HexLines(name + HexPrefix(value.type), WindowsBytes(value));
}

void WriteKey(std::string& text, RegistryTree& tree, const KeyReference& key) {
    if (key.path.find_first_of("\r\n") != std::string::npos)
        throw CommandError("The name of a key under " + key.FullName().substr(0, key.FullName().find_first_of("\r\n")) +
                           " has a line break, which a registry file cannot hold.");
    text += LineEnd;
    text += '[' + key.FullName() + ']';
    text += LineEnd;
    for (const RegistryValue& value : tree.Values(key.root, key.path)) {
        text += ValueLines(value);
        text += LineEnd;
    }
    for (const std::string& name : tree.SubKeys(key.root, key.path))
        WriteKey(text, tree, key.Below(name));
}

} // namespace

std::string WriteRegFile(RegistryTree& tree, const KeyReference& key) {
    std::string text(RegFileHeader);
    text += LineEnd;
    WriteKey(text, tree, key);
    text += LineEnd;
    return text;
}
