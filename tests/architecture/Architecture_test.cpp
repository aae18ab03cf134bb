// The rules of the house that a compiler does not keep.
#include "SourceTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <regex>
#include <set>

namespace {

const std::vector<SourceFile>& Sources() {
    static const std::vector<SourceFile> sources = ReadSources();
    return sources;
}

bool IsUnder(const std::string& folder, const std::string& parent) {
    return folder == parent || folder.starts_with(parent + '/');
}

// Which folders each folder includes from. A program's main.cpp wires what stands above its folder too.
std::map<std::string, std::set<std::string>> FolderGraph() {
    std::map<std::string, std::set<std::string>> graph;
    for (const SourceFile& file : Sources()) {
        if (file.path.ends_with("/main.cpp"))
            continue;
        for (const std::string& include : file.includes)
            if (FolderOf(include) != file.folder)
                graph[file.folder].insert(FolderOf(include));
    }
    return graph;
}

std::string LinesMatching(const std::string& pattern, const std::function<bool(const SourceFile&)>& allowed) {
    const std::regex expression(pattern);
    std::string found;
    for (const SourceFile& file : Sources()) {
        if (allowed(file))
            continue;
        for (std::size_t i = 0; i < file.lines.size(); ++i)
            if (std::regex_search(file.lines[i], expression))
                found += file.path + ':' + std::to_string(i + 1) + ": " + file.lines[i] + '\n';
    }
    return found;
}

bool IsPlain(const SourceFile& file) {
    // The exchange and the patching are plain C++; the window around them is not.
    const bool window = file.path.find("frm") != std::string::npos || file.path.find("InputBlock") != std::string::npos;
    return IsUnder(file.folder, "profiles") || IsUnder(file.folder, "opos") || IsUnder(file.folder, "reg") ||
           IsUnder(file.folder, "platform/registry") || IsUnder(file.folder, "platform/serial") ||
           IsUnder(file.folder, "platform/opos") || (IsUnder(file.folder, "programming") && !window) ||
           file.path.find("StatisticsText") != std::string::npos;
}

} // namespace

TEST(Architecture, SourcesAreFound) {
    EXPECT_GT(Sources().size(), 50U);
}

TEST(Architecture, FoldersIncludeInOneDirectionOnly) {
    const auto graph = FolderGraph();
    std::set<std::string> done;
    std::vector<std::string> path;
    const std::function<void(const std::string&)> visit = [&](const std::string& folder) {
        if (const auto loop = std::ranges::find(path, folder); loop != path.end()) {
            std::string cycle;
            for (auto step = loop; step != path.end(); ++step)
                cycle += *step + " -> ";
            ADD_FAILURE() << "a cycle: " << cycle << folder;
            return;
        }
        if (!done.insert(folder).second)
            return;
        path.push_back(folder);
        if (const auto next = graph.find(folder); next != graph.end())
            std::ranges::for_each(next->second, visit);
        path.pop_back();
    };
    for (const auto& [folder, included] : graph)
        visit(folder);
}

TEST(Architecture, LowerFoldersDoNotKnowHigherOnes) {
    // What a folder may include from, besides itself.
    const std::map<std::string, std::vector<std::string>> below = {
        {"profiles", {}},
        {"opos", {"profiles"}},
        {"programming", {"platform/window", "profiles", "widgets"}},
        {"widgets", {"profiles"}},
        {"dialogs", {"opos", "profiles", "widgets"}},
        {"wizard", {"opos", "profiles", "programming", "widgets"}},
        {"views", {"dialogs", "opos", "profiles", "programming", "widgets", "wizard"}},
        {"lane", {"platform/serial", "profiles", "programming", "widgets"}},
        {"reg", {"profiles", "platform/registry"}},
    };
    const auto graph = FolderGraph();
    for (const auto& [folder, allowed] : below) {
        const auto included = graph.find(folder);
        if (included == graph.end())
            continue;
        for (const std::string& other : included->second)
            EXPECT_NE(std::ranges::find(allowed, other), allowed.end()) << folder << " includes from " << other;
    }
    for (const auto& [folder, included] : graph) {
        EXPECT_TRUE(folder == "app" || !included.contains("app")) << folder << " includes from app";
        if (!folder.starts_with("platform/"))
            continue;
        for (const std::string& other : included)
            EXPECT_FALSE(other == "views" || other == "wizard" || other == "dialogs") << folder << " -> " << other;
    }
}

TEST(Architecture, PlainFoldersDoNotUseQt) {
    EXPECT_EQ(LinesMatching(R"(#\s*include\s*<Q\w+)", [](const SourceFile& file) { return !IsPlain(file); }), "");
}

TEST(Architecture, SystemsDifferOnlyUnderPlatform) {
    EXPECT_EQ(LinesMatching(R"(#\s*include\s*<windows\.h>|Q_OS_|\b_WIN32\b|__linux__)",
                            [](const SourceFile& file) { return IsUnder(file.folder, "platform"); }),
              "");
}

TEST(Architecture, MessageBoxesAreMadeInOnePlace) {
    EXPECT_EQ(
        LinesMatching("QMessageBox", [](const SourceFile& file) { return file.path == "widgets/MessageBox.cpp"; }), "");
}

TEST(Architecture, FilesKeepToTheirBudgets) {
    for (const SourceFile& file : Sources()) {
        const std::size_t budget = file.path.ends_with(".h") ? 120 : 400;
        EXPECT_LE(file.lines.size(), budget) << file.path;
    }
}

TEST(Architecture, EveryHeaderSaysWhatItIsForAndIsIncludedOnce) {
    for (const SourceFile& file : Sources()) {
        if (!file.path.ends_with(".h"))
            continue;
        ASSERT_FALSE(file.lines.empty()) << file.path;
        EXPECT_TRUE(file.lines.front().starts_with("// ")) << file.path;
        EXPECT_NE(std::ranges::find(file.lines, "#pragma once"), file.lines.end()) << file.path;
    }
}

TEST(Architecture, NothingIsLeftForLater) {
    EXPECT_EQ(LinesMatching("TODO|FIXME|XXX", [](const SourceFile&) { return false; }), "");
}

TEST(Architecture, PictureShowsEveryFolder) {
    std::ifstream file(std::string(RAVLIN_SOURCE_DIR) + "/docs/images/architecture.svg");
    const std::string picture((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    for (const SourceFile& source : Sources()) {
        const std::string name = source.folder.substr(source.folder.rfind('/') + 1);
        EXPECT_TRUE(std::regex_search(picture, std::regex("[>/ ]" + name + "[<, ]"))) << source.folder;
    }
}
