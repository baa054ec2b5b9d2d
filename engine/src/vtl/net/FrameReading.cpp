#include "vtl/net/FrameReading.h"

#include "vtl/base/Report.h"

#include <string>

namespace Vantrel {

void reportBadHeader(const char* receiver, const NetMessengerStreamBuffer& stream) {
    Reports::writeInPieces([&](const Reports::Writer& write) {
        write(receiver +
              std::string("::onRecvBody()... Received bad header info... Server state may be corrupt...\n"
                          "received byte data is: "));
        stream.dump(write);
        write("\n");
    });
}

void reportException(const std::exception& failure) {
    Report() << "Exception: " << failure.what() << "\n";
}

} // namespace Vantrel
