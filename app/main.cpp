// keldin: the viewer.

#include "module/GLViewKELDIN.h"
#include "vtl/base/Report.h"
#include "vtl/base/StopSignals.h"

#include <algorithm>
#include <csignal>
#include <iostream>

namespace {

constexpr const char* help =
    R"(Usage: keldin [{key=value} ...]

A 3-D viewer for the siting of airport navigation aids, driven over TCP and UDP by a modelling tool.
Reads vantrel.conf in the working directory or in its parent; each {key=value} overrides a setting, for example

    keldin {width=1280} {height=720} {NetServerListenPort=20001}

  {configurationfile=PATH}  read this file instead of vantrel.conf
  {createwindow=0}          run without a window
  --help, --version         print this or the version, and end
)";

bool has(const std::vector<std::string>& args, const char* option) {
    return std::find(args.begin(), args.end(), option) != args.end();
}

} // namespace

int main(int argc, char** argv) {
    using namespace Vantrel;
    const std::vector<std::string> args(argv, argv + argc);
    if (has(args, "--help")) {
        std::cout << help;
        return 0;
    }
    if (has(args, "--version")) {
        std::cout << "keldin " KELDIN_VERSION "\n";
        return 0;
    }
    // Whoever reads our reports may go away; the picture stays.
    std::signal(SIGPIPE, SIG_IGN);
    StopSignals::install();
    Reports::open();
    runUntilStopped(args, &GLViewKELDIN::New);
    Report() << "Exited VANTREL Normally...\n";
    Reports::flush();
    return 0;
}
