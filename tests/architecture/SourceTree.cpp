#include "SourceTree.h"

#include <filesystem>
#include <fstream>
#include <regex>

std::string FolderOf(const std::string& path) {
    return path.substr(0, path.rfind('/'));
}

std::vector<SourceFile> ReadSources() {
    const std::filesystem::path root = std::filesystem::path(RAVLIN_SOURCE_DIR) / "src";
    const std::regex include(R"re(^\s*#\s*include\s*"([^"]+/[^"]+)")re");
    std::vector<SourceFile> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp")
            continue;
        SourceFile file;
        file.path = entry.path().lexically_relative(root).generic_string();
        file.folder = FolderOf(file.path);
        std::ifstream stream(entry.path());
        for (std::string line; std::getline(stream, line);) {
            std::smatch match;
            if (std::regex_search(line, match, include))
                file.includes.push_back(match[1]);
            file.lines.push_back(std::move(line));
        }
        files.push_back(std::move(file));
    }
    return files;
}
