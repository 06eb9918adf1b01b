// From the start of the program to its window on the screen, and the memory it then holds. Every number is the whole
// way as a user waits for it: process, libraries, settings, window. Needs an X display of its own without a window
// manager: xvfb-run -s "-screen 0 1400x900x24" bench_start [PICTURE [ROUNDS]]
// SPDX-License-Identifier: MIT
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kPatience = 20000;  // ms
constexpr int kSettled = 6;       // seconds until the splash is over and the window idle

double Since(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

struct Times {
    double mapped = -1;   // ms
    double painted = -1;  // ms, first pixels in the window
};

/// Processor time that a process and its threads have taken, in ms: tells also on a busy machine what a start costs.
double ProcessorTime(pid_t process) {
    clockid_t clock = 0;
    timespec time{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &time) != 0) return -1;
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

class Screen {
 public:
    Screen() : connection_(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(connection_)) throw std::string("no X display");
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection_, root_, XCB_CW_EVENT_MASK, &events);
        const xcb_query_extension_reply_t* damage = xcb_get_extension_data(connection_, &xcb_damage_id);
        if (!damage->present) throw std::string("the display does not tell of painting");
        damageEvent_ = static_cast<std::uint8_t>(damage->first_event + XCB_DAMAGE_NOTIFY);
        std::free(xcb_damage_query_version_reply(connection_, xcb_damage_query_version(connection_, 1, 1), nullptr));
        xcb_flush(connection_);
    }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen() { xcb_disconnect(connection_); }

    /// Waits for a window to be mapped and painted.
    Times WaitForWindow(Clock::time_point start) {
        Times times;
        while (times.painted < 0 && Since(start) < kPatience) {
            const std::unique_ptr<xcb_generic_event_t, void (*)(void*)> event(xcb_poll_for_event(connection_),
                                                                              std::free);
            if (!event) {
                pollfd descriptor{xcb_get_file_descriptor(connection_), POLLIN, 0};
                poll(&descriptor, 1, 100);
                continue;
            }
            const std::uint8_t type = event->response_type & 0x7f;
            if (type == XCB_MAP_NOTIFY && times.mapped < 0) {
                times.mapped = Since(start);
                const auto window = reinterpret_cast<const xcb_map_notify_event_t*>(event.get())->window;
                xcb_damage_create(connection_, xcb_generate_id(connection_), window, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
                xcb_flush(connection_);
            } else if (type == damageEvent_) {
                times.painted = Since(start);
            }
        }
        return times;
    }

    void Forget() {  // what the ended program left behind
        RoundTrip();
        while (xcb_generic_event_t* event = xcb_poll_for_event(connection_)) std::free(event);
    }

 private:
    void RoundTrip() { std::free(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr)); }

    xcb_connection_t* connection_;
    xcb_window_t root_ = 0;
    std::uint8_t damageEvent_ = 0;
};

/// Private memory of a process in MB (proportional set size).
double Memory(pid_t process) {
    std::ifstream lines("/proc/" + std::to_string(process) + "/smaps_rollup");
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("Pss:", 0) == 0) return std::atof(line.c_str() + 4) / 1024;
    }
    return -1;
}

pid_t Start(const std::string& program, const std::string& picture) {
    std::vector<char*> arguments{const_cast<char*>(program.c_str())};
    if (!picture.empty()) arguments.push_back(const_cast<char*>(picture.c_str()));
    arguments.push_back(nullptr);
    pid_t process = 0;
    if (posix_spawn(&process, program.c_str(), nullptr, nullptr, arguments.data(), environ) != 0)
        throw "cannot start " + program;
    return process;
}

void Tell(const char* what, std::vector<double>& times) {
    std::sort(times.begin(), times.end());
    std::printf("%s: least %.0f ms, median %.0f ms, most %.0f ms\n", what, times.front(), times[times.size() / 2],
                times.back());
}

int Measure(int argc, char** argv) {
    const std::string program = std::filesystem::canonical("/proc/self/exe").parent_path() / "kelu";
    const std::string picture = argc > 1 ? argv[1] : "";
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 11;
    const std::string folder = std::filesystem::temp_directory_path() / ("kelu-start-" + std::to_string(getpid()));
    std::filesystem::create_directory(folder);
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "TEMP"}) setenv(name, folder.c_str(), 1);

    Screen screen;
    std::vector<double> mapped, painted, processor;
    double memory = -1;
    for (int round = 0; round <= rounds; ++round) {  // the first one warms up and tells the memory
        const Clock::time_point start = Clock::now();
        const pid_t process = Start(program, picture);
        const Times times = screen.WaitForWindow(start);
        const double taken = ProcessorTime(process);
        if (round == 0) {
            sleep(kSettled);
            memory = Memory(process);
        }
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
        screen.Forget();
        if (times.painted < 0) throw std::string("no window appeared");
        if (round == 0) continue;
        mapped.push_back(times.mapped);
        painted.push_back(times.painted);
        processor.push_back(taken);
    }
    std::filesystem::remove_all(folder);
    Tell("window mapped ", mapped);
    Tell("first painted ", painted);
    Tell("processor time", processor);
    std::printf("memory when idle, %s: %.0f MB\n", picture.empty() ? "no picture" : picture.c_str(), memory);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return Measure(argc, argv);
    } catch (const std::string& reason) {
        std::fprintf(stderr, "bench_start: %s\n", reason.c_str());
        return 1;
    }
}
