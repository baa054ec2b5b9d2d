#include <benchmark/benchmark.h>
#include <csignal>
#include <cstdlib>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

// From the start of a process until it tells that it has shown something: the viewer with its shipped
// settings, and in a context of 2.1, beside a minimal SDL program.

namespace {

/** Reads until `line` has come; false when the other end closes before. */
bool readUntil(int pipe, const std::string& line) {
    std::string text;
    char bytes[65536];
    for (ssize_t count = 0; text.find(line) == std::string::npos;
         text.append(bytes, static_cast<std::size_t>(count))) {
        count = read(pipe, bytes, sizeof bytes);
        if (count <= 0) {
            return false;
        }
    }
    return true;
}

void startUntil(benchmark::State& state, const std::string& line, std::vector<std::string> words) {
    setenv("SDL_VIDEODRIVER", "offscreen", 0);
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    for ([[maybe_unused]] auto round : state) {
        int ends[2];
        pid_t child = 0;
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        if (pipe(ends) != 0 || posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO) != 0 ||
            posix_spawn_file_actions_addclose(&actions, ends[0]) != 0 ||
            posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ) != 0) {
            state.SkipWithError("the program doesn't start");
            return;
        }
        close(ends[1]);
        if (!readUntil(ends[0], line)) {
            state.SkipWithError("the program ended before");
        }
        state.PauseTiming();
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        close(ends[0]);
        posix_spawn_file_actions_destroy(&actions);
        state.ResumeTiming();
    }
}

constexpr const char* loadingScreen = "Finished Drawing ManagerWindows::drawLoadingScreen()...\n";
constexpr const char* ready = "Gonna init here...\n";
constexpr const char* fixedFunction = "{glContextVersion=2.1}";
constexpr const char* viewer = KELDIN_BIN "/keldin";
constexpr const char* conf = "{configurationfile=" KELDIN_BIN "/vantrel.conf}";

void viewerToFirstPicture(benchmark::State& state) {
    startUntil(state, loadingScreen, {viewer, conf});
}

void viewerToFirstPictureFixedFunction(benchmark::State& state) {
    startUntil(state, loadingScreen, {viewer, conf, fixedFunction});
}

void viewerToWorld(benchmark::State& state) {
    startUntil(state, ready, {viewer, conf});
}

void bareToFirstPicture(benchmark::State& state) {
    startUntil(state, "picture\n", {KELDIN_BIN "/bare_first_picture"});
}

BENCHMARK(viewerToFirstPicture)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(viewerToFirstPictureFixedFunction)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(viewerToWorld)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(bareToFirstPicture)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
