#pragma once

#include <boost/asio/io_context.hpp>
#include <memory>
#include <thread>

namespace Vantrel {

class NetMessengerServerListener;

/**
 * Lets outside tools drive the application: listens on one port over TCP and UDP, reads frames on one network
 * worker of its own, and lets the messages act on the main thread, where `update` runs.
 */
class NetMessengerServer {
public:
    NetMessengerServer();
    NetMessengerServer(const NetMessengerServer&) = delete;
    NetMessengerServer& operator=(const NetMessengerServer&) = delete;
    /** Stops the worker; messages still queued are deleted without having acted. */
    virtual ~NetMessengerServer();

    /** Applies what has arrived; once per frame. */
    virtual void update();
    /** Null before `start` and after a failed one. */
    virtual NetMessengerServerListener* getListener() { return listener.get(); }
    /** Listens as the configuration says; a failure is reported and leaves the server without a listener. */
    virtual void start();
    /** Calls `onMessageArrived` of every message that has arrived, in order, then deletes them in order. */
    virtual void processMessages();
    /** Runs after each `processMessages`; for subclasses. */
    virtual void onMessagesProcessed() {}

private:
    void runWorker();

    // In this order: the sockets of listener and sessions go before the service they belong to.
    std::unique_ptr<boost::asio::io_context> ioService;
    std::unique_ptr<NetMessengerServerListener> listener;
    std::thread worker;
};

} // namespace Vantrel
