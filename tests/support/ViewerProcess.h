#pragma once

#include "tests/support/FreePort.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

namespace Vantrel::Tests {

/** Runs a program to its end with no input; answers its exit code and what it printed on both outputs. */
struct Finished {
    int exitCode = -1;
    std::string output;
};
Finished runToEnd(const std::vector<std::string>& command, const std::filesystem::path& directory = "/");

/**
 * The real viewer, started in an empty directory of its own, off-screen, on a free port. Killed with its
 * holder if it still runs.
 */
class ViewerProcess {
public:
    /** What the viewer's standard input is: at its end, or open without anything coming. */
    enum class Input { ended, open };

    /** Arguments come behind those that choose the port and a small window. */
    explicit ViewerProcess(const std::vector<std::string>& arguments = {},
                           const std::string& configuration = "",
                           const std::string& viewer = program("keldin"), Input input = Input::ended);
    ViewerProcess(const ViewerProcess&) = delete;
    ViewerProcess& operator=(const ViewerProcess&) = delete;
    ~ViewerProcess();

    std::uint16_t port() const { return listenPort; }
    const std::filesystem::path& directory() const { return home; }
    /** Everything printed so far. */
    const std::string& output() const { return printed; }
    /** Reads what the viewer prints until it holds `text`; false when it ends, or half a minute passes,
     * without. */
    bool waitFor(const std::string& text);
    /** Waits for the viewer to end by itself; its exit code, -1 when it doesn't. */
    int waitForEnd();
    /** The same without reading what the viewer prints. */
    int waitForEndUnread();
    void signal(int number) const;

    /** Path of a program of this build. */
    static std::string program(const std::string& name);

private:
    bool readMore(std::chrono::steady_clock::time_point deadline);

    std::filesystem::path home;
    std::uint16_t listenPort;
    pid_t child = -1;
    int outputPipe = -1;
    int silentInput = -1;
    std::string printed;
};

} // namespace Vantrel::Tests
