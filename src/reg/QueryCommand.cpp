#include "reg/Commands.h"
#include "reg/HexData.h"

#include <array>
#include <ostream>

namespace {

constexpr std::array<std::string_view, 12> TypeNames = {
    "REG_NONE",
    "REG_SZ",
    "REG_EXPAND_SZ",
    "REG_BINARY",
    "REG_DWORD",
    "REG_DWORD_BIG_ENDIAN",
    "REG_LINK",
    "REG_MULTI_SZ",
    "REG_RESOURCE_LIST",
    "REG_FULL_RESOURCE_DESCRIPTOR",
    "REG_RESOURCE_REQUIREMENTS_LIST",
    "REG_QWORD",
};

std::string TypeName(std::uint32_t type) {
    return type < TypeNames.size() ? std::string(TypeNames.at(type)) : "REG_TYPE_0x" + HexNumber(type);
}

std::string Bytes(std::string_view data) {
    std::string text;
    for (const char byte : data)
        for (const char digit : HexByte(byte))
            text += digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
    return text;
}

// Several strings on one line, "\0" between them.
std::optional<std::string> Strings(std::string_view data) {
    auto texts = Utf8OfUtf16Le(data);
    if (!texts)
        return std::nullopt;
    while (texts->ends_with('\0'))
        texts->pop_back();
    std::string line;
    for (const char c : *texts)
        line += c == '\0' ? std::string("\\0") : std::string(1, c);
    return line;
}

std::string Shown(const RegistryValue& value) {
    if (RegistryType::IsText(value.type))
        return value.data;
    if (const auto number = NumberOf(value))
        return "0x" + HexNumber(*number);
    if (value.type == RegistryType::MultiString)
        return Strings(value.data).value_or(Bytes(value.data));
    return Bytes(value.data);
}

class Query {
public:
    Query(const Command& command, RegistryTree& tree, std::ostream& out) : command_(command), tree_(tree), out_(out) {}

    void Run() {
        if (command_.valueName)
            return Find();
        out_ << '\n';
        const auto& key = command_.key;
        const auto values = tree_.Values(key.root, key.path);
        if (!values.empty())
            Show(key, values);
        for (const std::string& name : tree_.SubKeys(key.root, key.path)) {
            if (command_.recursive)
                ShowAll(key.Below(name));
            else
                out_ << key.Below(name).FullName() << '\n';
        }
    }

private:
    void Show(const RegistryValue& value) {
        out_ << "    " << (value.name.empty() ? "(Default)" : value.name) << "    " << TypeName(value.type) << "    "
             << Shown(value) << '\n';
    }

    void Show(const KeyReference& key, const std::vector<RegistryValue>& values) {
        out_ << key.FullName() << '\n';
        for (const RegistryValue& value : values)
            Show(value);
        out_ << '\n';
    }

    void ShowAll(const KeyReference& key) {
        Show(key, tree_.Values(key.root, key.path));
        for (const std::string& name : tree_.SubKeys(key.root, key.path))
            ShowAll(key.Below(name));
    }

    void Find() {
        const std::string& name = *command_.valueName;
        if (command_.recursive) {
            int matches = 0;
            FindAll(command_.key, matches);
            if (matches == 0)
                throw CommandError("There is no value " + (name.empty() ? "(Default)" : name) + " in or below " +
                                   command_.key.FullName() + ".");
            out_ << "End of search: " << matches << " match(es) found.\n";
            return;
        }
        const auto value = tree_.Value(command_.key.root, command_.key.path, name);
        if (value) {
            out_ << '\n';
            Show(command_.key, {*value});
        } else if (name.empty()) {
            out_ << '\n' << command_.key.FullName() << "\n    (Default)    REG_SZ    (value not set)\n\n";
        } else {
            throw CommandError("There is no value " + name + " in " + command_.key.FullName() + ".");
        }
    }

    void FindAll(const KeyReference& key, int& matches) {
        if (const auto value = tree_.Value(key.root, key.path, *command_.valueName)) {
            if (++matches == 1)
                out_ << '\n';
            Show(key, {*value});
        }
        for (const std::string& name : tree_.SubKeys(key.root, key.path))
            FindAll(key.Below(name), matches);
    }

    const Command& command_;
    RegistryTree& tree_;
    std::ostream& out_;
};

} // namespace

void RunQuery(const Command& command, RegistryTree& tree, std::ostream& out) {
    ExpectKey(command.key, tree);
    Query(command, tree, out).Run();
}
