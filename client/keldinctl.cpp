// keldinctl: the other end of the viewer's message protocol, on a command line.

#include "client/lib/Connection.h"
#include "client/lib/MessageCatalogue.h"
#include "vtl/base/Report.h"
#include "vtl/net/EngineMessageLayouts.h"
#include "vtl/net/NetMsg.h"

#include <CLI/CLI.hpp>
#include <cctype>
#include <cstdio>
#include <iostream>
#include <stdexcept>

namespace Vantrel {
namespace {

struct Options {
    std::string host = "127.0.0.1";
    std::string port = "12685";
    double timeoutSeconds = 5;
    bool udp = false;

    std::string name;
    std::vector<std::string> words;

    Connection connect() const {
        const auto timeout =
            std::chrono::duration_cast<Connection::Duration>(std::chrono::duration<double>(timeoutSeconds));
        return {udp ? Connection::Protocol::udp : Connection::Protocol::tcp, host, port, timeout};
    }
};

const CatalogueEntry& messageNamed(const std::string& name) {
    const CatalogueEntry* const entry = findMessage(name);
    if (entry == nullptr) {
        throw std::invalid_argument("there is no message '" + name + "'");
    }
    return *entry;
}

FieldTexts fieldTexts(std::span<const std::string> words) {
    FieldTexts texts;
    for (const std::string& word : words) {
        const std::size_t equals = word.find('=');
        if (equals == std::string::npos) {
            throw std::invalid_argument("'" + word + "' is not of the form field=value");
        }
        if (!texts.emplace(word.substr(0, equals), word.substr(equals + 1)).second) {
            throw std::invalid_argument("field '" + word.substr(0, equals) + "' is given twice");
        }
    }
    return texts;
}

/** A message as it goes out: under its own id, or under the generic one with its name in front of the body.
 */
class OutgoingMessage : public NetMsg {
public:
    OutgoingMessage(const NetMsg& wrapped, std::string className)
        : message(wrapped), name(std::move(className)) {}

    std::string getMessageType() const override { return std::string(GenericLayout::name); }
    bool toStreamBody(NetMessengerStreamBuffer& buffer) const override {
        buffer << name;
        return message.toStreamBody(buffer);
    }

private:
    const NetMsg& message;
    std::string name;
};

void receiveReply(Connection& connection, const CatalogueEntry& request) {
    const std::unique_ptr<NetMsg> reply = connection.receive();
    if (reply == nullptr || reply->getMessageType() != request.reply) {
        throw std::runtime_error("something else than " + std::string(request.reply) + " came back");
    }
    std::cout << reply->toString();
}

/** `send NAME field=value ...`, or `send NetMsgGeneric NAME field=value ...`. */
void send(const Options& options) {
    const bool isGeneric = options.name == GenericLayout::name && !options.words.empty() &&
                           options.words.front().find('=') == std::string::npos;
    const std::string& name = isGeneric ? options.words.front() : options.name;
    const CatalogueEntry& entry = messageNamed(name);
    const std::unique_ptr<NetMsg> message =
        entry.make(fieldTexts(std::span(options.words).subspan(isGeneric ? 1 : 0)));

    Connection connection = options.connect();
    if (isGeneric) {
        connection.send(OutgoingMessage(*message, name));
    } else {
        connection.send(*message);
    }
    if (!entry.reply.empty() && !options.udp) {
        receiveReply(connection, entry);
    }
}

void printHash(const Options& options) {
    std::printf("0x%08X %u\n", netMsgIDOf(options.name), netMsgIDOf(options.name));
}

std::vector<std::byte> bytesFromHex(const std::vector<std::string>& words) {
    std::string digits;
    for (const std::string& word : words) {
        for (const char c : word) {
            if (std::isspace(static_cast<unsigned char>(c)) == 0 && c != ',') {
                digits.push_back(c);
            }
        }
    }
    constexpr int base = 16;
    std::vector<std::byte> bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        unsigned byte = 0;
        const char* const end = digits.data() + std::min(i + 2, digits.size());
        if (std::from_chars(digits.data() + i, end, byte, base).ptr != digits.data() + i + 2) {
            throw std::invalid_argument("'" + digits.substr(i, 2) + "' is no byte in two hexadecimal digits");
        }
        bytes.push_back(static_cast<std::byte>(byte));
    }
    return bytes;
}

void sendRaw(const Options& options) {
    const std::vector<std::byte> bytes = bytesFromHex(options.words);
    options.connect().send(bytes);
}

int run(int argc, char** argv) {
    Options options;
    CLI::App app("Drives a running viewer by its message protocol.", "keldinctl");
    app.set_version_flag("--version", std::string("keldinctl ") + KELDIN_VERSION);
    app.require_subcommand(1);
    app.fallthrough();
    app.add_option("--host", options.host, "host the viewer runs on")->capture_default_str();
    app.add_option("--port", options.port, "port the viewer listens on")->capture_default_str();
    app.add_option("--timeout", options.timeoutSeconds, "seconds to wait for a connection or a reply")
        ->capture_default_str()
        ->check(CLI::Range(0.001, 86400.0));
    app.add_flag("--udp", options.udp, "send a datagram; no reply can come back");

    CLI::App* const sendCommand = app.add_subcommand("send", "send one message and wait for its reply");
    sendCommand->add_option("name", options.name, "message class, for example NetMsgShutdownInstance")
        ->required();
    sendCommand->add_option(
        "fields", options.words,
        "field=value for each field; behind NetMsgGeneric the class to name in the body first");
    sendCommand->callback([&options] { send(options); });

    CLI::App* const hashCommand = app.add_subcommand("hash", "print the id of a message class");
    hashCommand->add_option("name", options.name, "short name of the class")->required();
    hashCommand->callback([&options] { printHash(options); });

    CLI::App* const rawCommand = app.add_subcommand("raw", "send bytes as they are");
    rawCommand->add_option("hex", options.words, "the bytes in hexadecimal digits")->required();
    rawCommand->callback([&options] { sendRaw(options); });

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        constexpr int usageError = 2;
        return app.exit(error) == 0 ? 0 : usageError;
    } catch (const std::exception& error) {
        std::cerr << "keldinctl: " << error.what() << "\n";
        return 1;
    }
    return 0;
}

} // namespace
} // namespace Vantrel

int main(int argc, char** argv) {
    return Vantrel::run(argc, argv);
}
