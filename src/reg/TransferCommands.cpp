#include "reg/Commands.h"
#include "reg/RegFileEncoding.h"
#include "reg/RegFileReader.h"
#include "reg/RegFileWriter.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

[[noreturn]] void RefuseFile(const std::string& file, const std::string& problem) {
    throw CommandError("The file \"" + file + "\" could not be " + problem + ".");
}

std::string Reason() {
    return std::strerror(errno); // NOLINT(concurrency-mt-unsafe): one thread
}

std::string ReadFile(const std::string& file) {
    std::error_code error;
    if (std::filesystem::is_directory(file, error))
        RefuseFile(file, "read: it is a directory");
    std::ifstream stream(file, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    if (!stream.is_open() || stream.bad())
        RefuseFile(file, "read: " + Reason());
    return bytes;
}

void WriteStream(const std::string& file, const std::string& bytes) {
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream)
        throw std::filesystem::filesystem_error(file, std::error_code(errno, std::generic_category()));
}

// A file that was there before is the old one or the new one, never half of it.
void WriteFile(const std::string& file, const std::string& bytes) {
    namespace fs = std::filesystem;
    std::error_code ignored;
    const bool replaceable = !fs::exists(file, ignored) || fs::is_regular_file(fs::symlink_status(file, ignored));
    const std::string target = replaceable ? file + ".new" : file;
    try {
        WriteStream(target, bytes);
        if (replaceable)
            fs::rename(target, file);
    } catch (const fs::filesystem_error& error) {
        if (replaceable)
            fs::remove(target, ignored);
        RefuseFile(file, "written: " + error.code().message());
    }
}

void Apply(const RegFileEntry& entry, RegistryTree& tree) {
    const auto& key = entry.key;
    switch (entry.kind) {
    case RegFileEntry::Kind::MakeKey:
        return tree.CreateKey(key.root, key.path);
    case RegFileEntry::Kind::SetValue:
        return tree.SetValue(key.root, key.path, entry.value);
    // Nothing to delete is as good as deleted.
    case RegFileEntry::Kind::DeleteKey:
        tree.DeleteKey(key.root, key.path);
        return;
    case RegFileEntry::Kind::DeleteValue:
        tree.DeleteValue(key.root, key.path, entry.value.name);
        return;
    }
}

} // namespace

void RunExport(const Command& command, RegistryTree& tree, const CommandConsole& console) {
    ExpectKey(command.key, tree);
    std::error_code error;
    if (!command.force && std::filesystem::exists(command.file, error))
        ExpectConsent(console, "File " + command.file + " exists, overwrite (Yes/No)? ", "/y");
    WriteFile(command.file, EncodeRegFile(WriteRegFile(tree, command.key)));
}

void RunImport(const Command& command, RegistryTree& tree) {
    std::string text;
    try {
        text = DecodeRegFile(ReadFile(command.file));
    } catch (const std::invalid_argument& error) {
        RefuseFile(command.file, std::string("imported: ") + error.what());
    }
    const auto refuseLine = [&](int line, const std::string& problem) {
        throw CommandError(command.file + ":" + std::to_string(line) + ": " + problem + "; nothing was imported.");
    };
    std::vector<RegFileEntry> entries;
    try {
        entries = ReadRegFile(text);
    } catch (const RegFileError& error) {
        refuseLine(error.Line(), error.what());
    }
    for (const RegFileEntry& entry : entries) {
        try {
            Apply(entry, tree);
        } catch (const RegistryError& error) {
            refuseLine(entry.line, error.what());
        }
    }
}
