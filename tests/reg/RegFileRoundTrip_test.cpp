#include "reg/Commands.h"
#include "support/TemporaryDirectory.h"
#include "support/TemporaryRegistry.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <sstream>

namespace {

constexpr auto Machine = RegistryRoot::LocalMachine;
using Keys = std::map<std::string, std::vector<RegistryValue>>;

void CollectKeys(RegistryTree& tree, const std::string& path, Keys& keys) {
    keys[path] = tree.Values(Machine, path);
    for (const std::string& name : tree.SubKeys(Machine, path))
        CollectKeys(tree, path + '\\' + name, keys);
}

Keys KeysBelow(const TemporaryRegistry& registry, const std::string& path) {
    Keys keys;
    CollectKeys(*registry.Tree(), path, keys);
    return keys;
}

void RunReg(TemporaryRegistry& registry, const std::vector<std::string>& arguments) {
    std::ostringstream out;
    RunCommand(ParseCommandLine(arguments), *registry.Tree(), {out, [](const std::string&) { return std::nullopt; }});
}

std::string Bytes(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// What makes trouble in names and texts.
const std::vector<std::string> Pieces = {
    "a",        "\\", "\"",   "]",  "[", ";",  "=", "@",      "-", "\r\n", "\n",     "\xC3\xBC",
    "\xE2\x82", " ",  "hex:", "\t", "%", "\r", "'", "dword:", "#", "\\n",  "\\\"\\", "\xF0\x9F\x98\x80"};

std::string RandomText(std::mt19937& random, bool name) {
    std::string text;
    for (auto left = random() % 6; left > 0; --left) {
        const std::string& piece = Pieces[random() % Pieces.size()];
        if (piece == "\xE2\x82")
            text += "\xE2\x82\xAC";
        else if (!name || piece.find_first_of("\r\n\\") == std::string::npos)
            text += piece;
    }
    return text;
}

RegistryValue RandomValue(std::mt19937& random, int number) {
    RegistryValue value;
    value.name = RandomText(random, false) + (number == 0 ? "" : std::to_string(number));
    constexpr std::uint32_t Types[] = {0, 1, 1, 1, 2, 3, 4, 7, 11, 42, 0xFFFFFFFF};
    value.type = Types[random() % std::size(Types)];
    if (RegistryType::IsText(value.type)) {
        value.data = RandomText(random, false);
    } else {
        for (auto left = random() % 70; left > 0; --left)
            value.data += static_cast<char>(random());
    }
    return value;
}

} // namespace

TEST(RegFileRoundTrip, AnImportBringsBackWhatAnExportWrote) {
    std::mt19937 random(20261121);
    for (int round = 0; round < 20; ++round) {
        TemporaryRegistry registry;
        const auto tree = registry.Tree();
        for (int key = 0; key < 10; ++key) {
            std::string path = "Lane";
            for (auto depth = random() % 3; depth > 0; --depth)
                path += "\\k" + RandomText(random, true);
            tree->CreateKey(Machine, path);
            for (int number = 0; number < 8; ++number)
                tree->SetValue(Machine, path, RandomValue(random, number));
        }
        tree->Commit();

        TemporaryDirectory directory;
        const std::string file = (directory.Path() / "lane.reg").string();
        RunReg(registry, {"export", "HKLM\\Lane", file});
        TemporaryRegistry other;
        RunReg(other, {"import", file});
        ASSERT_EQ(KeysBelow(other, "Lane"), KeysBelow(registry, "Lane")) << "round " << round;
        const std::string again = (directory.Path() / "again.reg").string();
        RunReg(other, {"export", "HKLM\\Lane", again});
        ASSERT_EQ(Bytes(again), Bytes(file)) << "round " << round;
    }
}
