#include "vtl/net/NetMessengerServer.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/base/Report.h"
#include "vtl/base/ScopedSignalsBlocked.h"
#include "vtl/net/FrameReading.h"
#include "vtl/net/NetMessengerServerListener.h"

#include <exception>
#include <limits>

namespace Vantrel {
namespace {

using Configuration = ManagerEnvironmentConfiguration;

constexpr std::uint16_t defaultPort = 12685;
constexpr std::size_t defaultQueuedMegabytes = 64;

std::uint16_t configuredPort() {
    const std::uint32_t port = Configuration::getUnsigned("NetServerListenPort");
    if (port != 0 && port <= std::numeric_limits<std::uint16_t>::max()) {
        return static_cast<std::uint16_t>(port);
    }
    Report() << "Defaulting to UDP / TCP Listening Port of " << defaultPort << "...\n"
             << "   to set port edit .conf file to say 'NetServerListenPort=12345'\n";
    return defaultPort;
}

NetMessengerServerSettings configuredSettings() {
    NetMessengerServerSettings settings;
    settings.port = configuredPort();
    if (const std::string address = Configuration::getVariableValue("NetServerListenAddress");
        !address.empty()) {
        settings.address = address;
    }
    const std::size_t megabytes = Configuration::getUnsigned("NetServerQueuedMegabytes");
    settings.queuedBytesAtMost = (megabytes != 0 ? megabytes : defaultQueuedMegabytes) << 20U;
    return settings;
}

} // namespace

NetMessengerServer::NetMessengerServer() = default;

NetMessengerServer::~NetMessengerServer() {
    if (worker.joinable()) {
        ioService->stop();
        worker.join();
    }
}

void NetMessengerServer::update() {
    if (listener != nullptr) {
        processMessages();
        onMessagesProcessed();
    }
}

void NetMessengerServer::start() {
    const NetMessengerServerSettings settings = configuredSettings();
    try {
        constexpr int threadsThatRunIt = 1;
        ioService = std::make_unique<boost::asio::io_context>(threadsThatRunIt);
        listener = std::make_unique<NetMessengerServerListener>(*ioService, settings);
        const ScopedSignalsBlocked signalsBlocked;
        worker = std::thread([this] { runWorker(); });
        Report() << "NetMessengerServer - Asynchronous NetMessenger Server Running...\n";
    } catch (const std::exception& failure) {
        listener.reset();
        Report() << "Exception: " << failure.what() << "\n"
                 << "ERROR: FAILED to start NetMessengerServer... Future calls on this instance may cause "
                    "problems...\n";
    }
}

void NetMessengerServer::processMessages() {
    if (listener == nullptr) {
        return;
    }
    const NetMessengerMessageQueue::Drained drained = listener->getMessageQueue().drain();
    if (drained.wasOverLimit) {
        listener->resumeWaiting();
    }
    for (const ArrivedMessages& arrived : drained.arrived) {
        for (const std::unique_ptr<NetMsg>& message : arrived.messages) {
            try {
                message->onMessageArrived();
            } catch (const std::exception& failure) {
                reportException(failure);
            }
        }
    }
}

void NetMessengerServer::runWorker() {
    const auto keepRunning = boost::asio::make_work_guard(*ioService);
    for (;;) {
        try {
            ioService->run();
            return;
        } catch (const std::exception& failure) {
            reportException(failure);
        }
    }
}

} // namespace Vantrel
