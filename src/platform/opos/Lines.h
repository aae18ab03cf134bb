// The serial lines in use by this program's service objects, one for each port.
#pragma once

#include "platform/opos/LineThread.h"
#include "platform/opos/SharedLine.h"

#include <map>
#include <memory>

// Used on the user interface's thread; what it gives is used on the line thread.
class Lines {
public:
    [[nodiscard]] LineThread& Thread() { return thread_; }
    // The line of the port ("COM" and the number), the same for all who have it at a time.
    [[nodiscard]] std::shared_ptr<SharedLine> OfPort(int port);

private:
    // Behind the thread: what the thread's loop still holds may hold lines.
    std::map<int, std::weak_ptr<SharedLine>> lines_;
    LineThread thread_;
};
