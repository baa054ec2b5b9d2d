#include "tests/support/ViewerProcess.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace Vantrel::Tests {
namespace {

using Clock = std::chrono::steady_clock;

/** Generous, because the sanitizers are slow; nothing waits this long when all is well. */
constexpr std::chrono::seconds patience{60};

/** Starts a program; its outputs come through the pipe that is answered. */
std::pair<pid_t, int> start(const std::vector<std::string>& command, const std::filesystem::path& directory,
                            int input) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(input, STDIN_FILENO);
        ::dup2(ends[1], STDOUT_FILENO);
        ::dup2(ends[1], STDERR_FILENO);
        std::vector<char*> words;
        for (const std::string& word : command) {
            words.push_back(const_cast<char*>(word.c_str()));
        }
        words.push_back(nullptr);
        ::setenv("SDL_VIDEODRIVER", "offscreen", 1);
        if (::chdir(directory.c_str()) == 0) {
            ::execv(words[0], words.data());
        }
        ::_exit(127);
    }
    ::close(ends[1]);
    return {child, ends[0]};
}

int exitCodeOf(int status) {
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

Finished runToEnd(const std::vector<std::string>& command, const std::filesystem::path& directory) {
    const int ended = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    const auto [child, pipe] = start(command, directory, ended);
    ::close(ended);
    Finished finished;
    std::array<char, 4096> piece{};
    for (ssize_t count = 0; (count = ::read(pipe, piece.data(), piece.size())) > 0;) {
        finished.output.append(piece.data(), static_cast<std::size_t>(count));
    }
    ::close(pipe);
    int status = 0;
    ::waitpid(child, &status, 0);
    finished.exitCode = exitCodeOf(status);
    return finished;
}

ViewerProcess::ViewerProcess(const std::vector<std::string>& arguments, const std::string& configuration,
                             const std::string& viewer, Input input)
    : listenPort(freePort()) {
    std::string folder = std::filesystem::temp_directory_path() / "keldin_viewer_XXXXXX";
    home = std::filesystem::path(::mkdtemp(folder.data())) /
           "run"; // one down: the viewer looks in its parent too
    std::filesystem::create_directory(home);
    if (!configuration.empty()) {
        std::ofstream(home / "vantrel.conf") << configuration;
    }
    std::vector<std::string> command{viewer, "{NetServerListenPort=" + std::to_string(listenPort) + "}",
                                     "{NetServerListenAddress=127.0.0.1}", "{width=64}", "{height=48}"};
    if (viewer == program("keldin")) { // an installed one brings its data along
        command.push_back("{sharedmultimediapath=" KELDIN_SHARED_DATA "}");
    }
    command.insert(command.end(), arguments.begin(), arguments.end());
    std::array<int, 2> inputEnds{-1, -1};
    if (input == Input::open) {
        static_cast<void>(::pipe2(inputEnds.data(), O_CLOEXEC) == 0);
    } else {
        inputEnds[0] = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    }
    std::tie(child, outputPipe) = start(command, home, inputEnds[0]);
    ::close(inputEnds[0]);
    silentInput = inputEnds[1];
}

ViewerProcess::~ViewerProcess() {
    if (child > 0) {
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
    }
    ::close(outputPipe);
    ::close(silentInput);
    std::filesystem::remove_all(home.parent_path());
}

/** Appends what has been printed; false at the end of the output and at the deadline. */
bool ViewerProcess::readMore(Clock::time_point deadline) {
    pollfd readable{.fd = outputPipe, .events = POLLIN, .revents = 0};
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    if (left.count() <= 0 || ::poll(&readable, 1, static_cast<int>(left.count())) <= 0) {
        return false;
    }
    std::array<char, 4096> piece{};
    const ssize_t count = ::read(outputPipe, piece.data(), piece.size());
    if (count <= 0) {
        return false;
    }
    printed.append(piece.data(), static_cast<std::size_t>(count));
    return true;
}

bool ViewerProcess::waitFor(const std::string& text) {
    const auto deadline = Clock::now() + patience;
    while (printed.find(text) == std::string::npos) {
        if (!readMore(deadline)) {
            return false;
        }
    }
    return true;
}

int ViewerProcess::waitForEnd() {
    const auto deadline = Clock::now() + patience;
    while (readMore(deadline)) {
    }
    int status = 0;
    if (Clock::now() >= deadline || ::waitpid(child, &status, 0) != child) {
        return -1;
    }
    child = -1;
    return exitCodeOf(status);
}

int ViewerProcess::waitForEndUnread() {
    const auto deadline = Clock::now() + patience;
    int status = 0;
    while (::waitpid(child, &status, WNOHANG) != child) {
        if (Clock::now() > deadline) {
            return -1;
        }
        ::usleep(10'000);
    }
    child = -1;
    return exitCodeOf(status);
}

void ViewerProcess::signal(int number) const {
    ::kill(child, number);
}

std::string ViewerProcess::program(const std::string& name) {
    return std::string(KELDIN_PROGRAMS) + "/" + name;
}

} // namespace Vantrel::Tests
