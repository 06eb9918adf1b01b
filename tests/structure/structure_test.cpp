// The house holds by itself: includes and links go down the floors, a folder uses no more of the toolkit than it may,
// sources are laid out as .clang-format says, and links in the documents lead somewhere.
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

enum Toolkit { None, Core, Gui, Widgets };

struct Room {
    std::string folder;
    int floor;
    Toolkit most;  ///< the highest of the toolkit's modules that sources here may include
};

// The longest matching folder decides. Tools and their like stand above everything: nobody includes them.
const std::vector<Room> kRooms = {
    {"platform/", 0, Core},
    {"engine/", 0, None},
    {"pictures/", 1, Gui},
    {"controls/", 1, Widgets},
    {"canvas/", 2, Gui},
    {"document/", 3, Gui},
    {"view/", 3, Widgets},
    {"effects/", 4, Widgets},
    {"effects/catalogue/", 4, Gui},
    {"capture/", 4, Widgets},
    {"output/", 4, Widgets},
    {"output/pdf/", 4, Gui},
    {"dialogs/", 5, Widgets},
    {"app/", 6, Widgets},
    {"cli/", 6, Gui},
    {"bench/", 7, Widgets},
    {"fuzz/", 7, Gui},
    {"help/", 7, Widgets},
    {"data/", 7, Widgets},
    {"tests/support/", 7, Widgets},
};

using Graph = std::map<std::string, std::set<std::string>>;

const fs::path kRoot = KELU_SOURCE_DIR;

const Room* RoomOf(const std::string& file) {
    const Room* best = nullptr;
    for (const Room& room : kRooms)
        if (file.starts_with(room.folder) && (!best || room.folder.size() > best->folder.size())) best = &room;
    return best;
}

std::string FolderOf(const std::string& file) { return fs::path(file).parent_path().generic_string(); }

std::string ReadText(const fs::path& path) {
    std::ifstream stream(path);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Files below the rooms whose name ends so, relative to the project.
std::vector<std::string> FilesEnding(const std::set<std::string>& endings) {
    std::vector<std::string> files;
    for (const auto& [folder, floor, most] : kRooms) {
        if (std::count(folder.begin(), folder.end(), '/') > 1 || !fs::exists(kRoot / folder)) continue;
        for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder))
            if (endings.contains(entry.path().extension().string()) ||
                endings.contains(entry.path().filename().string()))
                files.push_back(fs::relative(entry.path(), kRoot).generic_string());
    }
    return files;
}

std::vector<std::string> Sources() { return FilesEnding({".h", ".cpp"}); }

/// What the expression's first group finds, in order.
std::vector<std::string> FindAll(const std::string& text, const std::regex& expression) {
    std::vector<std::string> found;
    for (auto at = std::sregex_iterator(text.begin(), text.end(), expression); at != std::sregex_iterator(); ++at)
        found.push_back((*at)[1]);
    return found;
}

/// Every file of the program with the project files that it includes.
const Graph& Includes() {
    static const Graph graph = [] {
        const std::regex include(R"re((?:^|\n)\s*#\s*include\s+"([^"]+)")re");
        Graph includes;
        for (const std::string& file : Sources()) {
            std::set<std::string>& targets = includes[file];
            for (const std::string& target : FindAll(ReadText(kRoot / file), include))
                if (fs::exists(kRoot / target)) targets.insert(target);
        }
        return includes;
    }();
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

TEST(Structure, IncludesNeverReachUp) {
    ASSERT_GT(Includes().size(), 20u) << "no sources found under " << kRoot;
    for (const auto& [file, targets] : Includes())
        for (const std::string& target : targets) {
            const Room* to = RoomOf(target);
            ASSERT_TRUE(to) << file << " includes " << target << ", which stands in no room";
            EXPECT_LE(to->floor, RoomOf(file)->floor) << file << " includes " << target << " from a floor above";
            if (file.starts_with("engine/")) {
                EXPECT_TRUE(target.starts_with("engine/")) << file << " includes " << target;
            }
        }
}

TEST(Structure, FilesFormNoCycle) { EXPECT_THAT(FindCycle(Includes()), testing::IsEmpty()); }

TEST(Structure, FoldersFormNoCycle) {
    Graph folders;
    for (const auto& [file, targets] : Includes())
        for (const std::string& target : targets)
            if (FolderOf(target) != FolderOf(file)) folders[FolderOf(file)].insert(FolderOf(target));
    EXPECT_THAT(FindCycle(folders), testing::IsEmpty());
}

TEST(Structure, FoldersUseOnlyTheirPartOfTheToolkit) {
    const fs::path toolkit = KELU_QT_INCLUDE_DIR;  // holds a folder of headers a module
    ASSERT_TRUE(fs::exists(toolkit / "QtWidgets/QWidget")) << toolkit;
    const std::regex include(R"re((?:^|\n)\s*#\s*include\s+<(Q[A-Za-z]+)>)re");
    for (const std::string& file : Sources())
        for (const std::string& header : FindAll(ReadText(kRoot / file), include)) {
            const Toolkit needs = fs::exists(toolkit / "QtWidgets" / header)        ? Widgets
                                  : fs::exists(toolkit / "QtPrintSupport" / header) ? Widgets
                                  : fs::exists(toolkit / "QtSvg" / header)          ? Gui
                                  : fs::exists(toolkit / "QtGui" / header)          ? Gui
                                                                                    : Core;
            EXPECT_LE(needs, RoomOf(file)->most) << file << " includes <" << header << ">";
        }
}

TEST(Structure, LibrariesLinkDownwards) {
    // A library is one kelu_library(...) of a folder's CMakeLists.txt; its alias stands for the folder of its sources.
    struct Library {
        std::string room;  ///< a path below the folder of its first source
        std::vector<std::string> links;
        Toolkit most;
    };
    std::map<std::string, Library> libraries;
    const std::regex call(R"re(kelu_library\(([^)]*)\))re"), alias(R"re(ALIAS\s+(Kelu::\w+))re");
    const std::regex source(R"re(([\w/]+\.cpp))re"), link(R"re((Kelu::\w+))re"), module(R"re(QT\s+(\w+))re");
    const std::map<std::string, Toolkit> modules = {{"None", None}, {"Core", Core}, {"Gui", Gui}};
    for (const std::string& file : FilesEnding({"CMakeLists.txt"}))
        for (const std::string& text : FindAll(ReadText(kRoot / file), call)) {
            const std::string name = FindAll(text, alias).at(0);
            const auto asked = FindAll(text, module);
            Library& library = libraries[name];
            library.room = FolderOf(file) + "/" + FindAll(text, source).at(0);
            library.most = asked.empty() ? Widgets : modules.at(asked[0]);
            library.links = FindAll(text, link);
            std::erase(library.links, name);
        }
    ASSERT_GT(libraries.size(), 20u);
    for (const auto& [name, library] : libraries) {
        const Room& room = *RoomOf(library.room);
        EXPECT_LE(library.most, room.most) << name << " is built with more of the toolkit than its folder may use";
        for (const std::string& target : library.links) {
            ASSERT_TRUE(libraries.contains(target)) << name << " links " << target;
            EXPECT_LE(RoomOf(libraries.at(target).room)->floor, room.floor) << name << " links " << target;
            EXPECT_LE(libraries.at(target).most, library.most) << name << " gets widgets from " << target;
        }
    }
}

TEST(Structure, SourcesAreLaidOutAsTheFormatterDoes) {
    // Other versions lay out a little differently: the one of Debian 12 is the measure.
    if (std::system("clang-format-14 --version >/dev/null 2>&1") != 0) {
        const char* const required = std::getenv("KELU_REQUIRE_TOOLS");
        if (required && std::strstr(required, "clang-format-14")) FAIL() << "clang-format-14 is not installed";
        GTEST_SKIP() << "clang-format-14 is not installed";
    }
    const std::string list = "cd '" + kRoot.string() + "' && git ls-files '*.cpp' '*.h' | ";
    ASSERT_EQ(std::system((list + "grep -q app/main.cpp").c_str()), 0) << "not a checkout";
    EXPECT_EQ(std::system((list + "xargs clang-format-14 --dry-run -Werror 2>&1 | head -20; " + list +
                           "xargs clang-format-14 --dry-run -Werror 2>/dev/null")
                              .c_str()),
              0);
}

TEST(Structure, LinksInDocumentsLeadSomewhere) {
    const std::regex link(R"re(\]\(([^)#:]+)(?:#[^)]*)?\))re");
    std::vector<fs::path> documents;
    for (const auto& entry : fs::directory_iterator(kRoot))
        if (entry.path().extension() == ".md") documents.push_back(entry.path());
    for (const auto& entry : fs::recursive_directory_iterator(kRoot / "docs"))
        if (entry.path().extension() == ".md") documents.push_back(entry.path());
    for (const fs::path& document : documents)
        for (const std::string& target : FindAll(ReadText(document), link))
            EXPECT_TRUE(fs::exists(document.parent_path() / target)) << document << " points to " << target;
}

}  // namespace
