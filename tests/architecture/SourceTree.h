// The program's sources as text, for tests of their structure.
#pragma once

#include <map>
#include <string>
#include <vector>

struct SourceFile {
    std::string path;   // from src/, with slashes: "platform/registry/Hive.cpp"
    std::string folder; // "platform/registry"
    std::vector<std::string> lines;
    std::vector<std::string> includes; // of the program's own headers, as written: "profiles/CDevice.h"
};

// Every .h and .cpp file under src/.
[[nodiscard]] std::vector<SourceFile> ReadSources();

// The folder of a path written from src/.
[[nodiscard]] std::string FolderOf(const std::string& path);
