#include "support/TemporaryKeys.h"

#include "platform/registry/RegistryKey.h"

#include <atomic>

namespace {

std::string UnusedKey() {
    static std::atomic<int> count = 0;
    return "SOFTWARE\\Ravlin tests\\" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++count);
}

} // namespace

TemporaryKeys::TemporaryKeys()
    : key_(UnusedKey()),
      places_{{RegistryRoot::LocalMachine, key_ + "\\Hive", key_ + "\\Journal"},
              {RegistryRoot::CurrentUser, key_ + "\\Hive", key_ + "\\Journal"}} {}

TemporaryKeys::~TemporaryKeys() {
    RegistryKey::Drop(HKEY_LOCAL_MACHINE, key_);
    RegistryKey::Drop(HKEY_CURRENT_USER, key_);
}
