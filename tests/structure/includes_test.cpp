// Reads every #include of the program and holds it against the floors: a file includes only from its own floor or
// from floors below, and neither files nor folders form a cycle.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

// The longest matching prefix decides.
const std::vector<std::pair<std::string, int>> kFloors = {
    {"platform/", 0}, {"engine/", 0}, {"pictures/", 1}, {"controls/", 1}, {"canvas/", 2},
    {"document/", 3}, {"view/", 3},   {"effects/", 4},  {"capture/", 4},  {"output/", 4},
    {"dialogs/", 5},  {"app/", 6},    {"cli/", 6},
};

using Graph = std::map<std::string, std::set<std::string>>;

int FloorOf(const std::string& file) {
    std::size_t longest = 0;
    int floor = -1;
    for (const auto& [prefix, number] : kFloors)
        if (file.starts_with(prefix) && prefix.size() > longest) longest = prefix.size(), floor = number;
    return floor;
}

std::string FolderOf(const std::string& file) { return fs::path(file).parent_path().generic_string(); }

/// Every file of the program with the project files that it includes.
Graph ReadIncludes() {
    const fs::path root = KELU_SOURCE_DIR;
    const std::regex include(R"re(^\s*#\s*include\s+"([^"]+)")re");
    Graph graph;
    for (const auto& [prefix, floor] : kFloors) {
        if (!fs::exists(root / prefix)) continue;
        for (const auto& entry : fs::recursive_directory_iterator(root / prefix)) {
            const std::string extension = entry.path().extension().string();
            if (extension != ".h" && extension != ".cpp") continue;
            const std::string file = fs::relative(entry.path(), root).generic_string();
            std::set<std::string>& targets = graph[file];
            std::ifstream lines(entry.path());
            std::smatch match;
            for (std::string line; std::getline(lines, line);)
                if (std::regex_search(line, match, include) && fs::exists(root / match[1].str()))
                    targets.insert(match[1].str());
        }
    }
    return graph;
}

/// The nodes of one cycle, or nothing.
std::vector<std::string> FindCycle(const Graph& graph) {
    std::map<std::string, int> state;  // 1 on the path, 2 done
    std::vector<std::string> path;
    std::vector<std::string> cycle;
    auto visit = [&](auto&& self, const std::string& node) -> bool {
        state[node] = 1;
        path.push_back(node);
        if (const auto found = graph.find(node); found != graph.end()) {
            for (const std::string& next : found->second) {
                if (state[next] == 1) {
                    cycle.assign(std::find(path.begin(), path.end(), next), path.end());
                    return true;
                }
                if (state[next] == 0 && self(self, next)) return true;
            }
        }
        path.pop_back();
        state[node] = 2;
        return false;
    };
    for (const auto& [node, targets] : graph)
        if (state[node] == 0 && visit(visit, node)) break;
    return cycle;
}

TEST(Includes, NeverReachUp) {
    const Graph graph = ReadIncludes();
    ASSERT_GT(graph.size(), 20u) << "no sources found under " << KELU_SOURCE_DIR;
    for (const auto& [file, targets] : graph)
        for (const std::string& target : targets) {
            EXPECT_LE(FloorOf(target), FloorOf(file)) << file << " includes " << target << " from a floor above";
            if (file.starts_with("engine/")) {
                EXPECT_TRUE(target.starts_with("engine/")) << file << " includes " << target;
            }
        }
}

TEST(Includes, FilesFormNoCycle) { EXPECT_THAT(FindCycle(ReadIncludes()), testing::IsEmpty()); }

TEST(Includes, FoldersFormNoCycle) {
    Graph folders;
    for (const auto& [file, targets] : ReadIncludes())
        for (const std::string& target : targets)
            if (FolderOf(target) != FolderOf(file)) folders[FolderOf(file)].insert(FolderOf(target));
    EXPECT_THAT(FindCycle(folders), testing::IsEmpty());
}

}  // namespace
