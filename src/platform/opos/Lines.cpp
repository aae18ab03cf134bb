#include "platform/opos/Lines.h"

std::shared_ptr<SharedLine> Lines::OfPort(int port) {
    std::shared_ptr<SharedLine> line = lines_[port].lock();
    if (line == nullptr) {
        line = std::make_shared<SharedLine>(thread_.Context(), port);
        lines_[port] = line;
    }
    return line;
}
