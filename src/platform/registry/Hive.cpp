#include "platform/registry/Hive.h"

std::shared_ptr<HiveSession> Hive::Read() {
    if (auto session = reading_.lock())
        return session;
    auto session = Attempt(RegistryErrorNumber::OpenKey, [&] { return BeginReading(); });
    reading_ = session;
    return session;
}

std::shared_ptr<HiveSession> Hive::Write(RegistryErrorNumber number) {
    if (!writing_.expired())
        throw RegistryError(number,
                            Title() + ", is being written by another part of this program. Nothing was changed.");
    auto session = Attempt(number, [&] { return BeginWriting(); });
    writing_ = session;
    return session;
}
