// One hive of the Windows registry, and how a save is carried out in it as a whole.
//
// A session collects its changes. At its end they are written to the journal, as one value, which the system writes as
// a whole; then they are carried out, and the journal goes. A program that dies on the way leaves the journal behind:
// the next writing session carries the changes out again before anything else, and readers read as if that had
// happened. (The system's own transactions would do the same, but are not everywhere and on their way out.)
#pragma once

#include "platform/registry/Hive.h"
#include "platform/registry/NamedLock.h"
#include "platform/registry/RegistryChange.h"
#include "platform/registry/RegistryKey.h"
#include "platform/registry/RegistryWin32.h"

#include <chrono>
#include <string>

class SystemHive final : public Hive {
public:
    // Opens nothing.
    SystemHive(const RegistryPlace& place, std::chrono::milliseconds lockLimit);

    // Below the hive's place. Errors: WindowsFailure.
    [[nodiscard]] std::optional<RegistryKey> Open(const std::string& path, REGSAM access) const;
    // While it lives no save is carried out halfway. Errors: RegistryError OpenKey, after the limit for locks.
    [[nodiscard]] NamedLock HoldSaves() const;
    // What a program that died on the way left to be done; ask while saves are held.
    [[nodiscard]] RegistryChanges Unfinished() const;
    // Carries all of the changes out or, raising WindowsFailure, none.
    void Save(const RegistryChanges& changes) const;

protected:
    [[nodiscard]] std::string Title() const override;
    [[nodiscard]] std::string Describe(const HiveFailure& failure) const override { return failure.what(); }
    [[nodiscard]] std::shared_ptr<HiveSession> BeginReading() override;
    [[nodiscard]] std::shared_ptr<HiveSession> BeginWriting() override;

private:
    [[nodiscard]] std::string PathOf(const std::string& path) const;
    [[nodiscard]] NamedLock Hold(const char* what) const;
    void Finish() const;
    // Appends what takes the change back, in the order in which it has to be done.
    void CarryOut(const RegistryChange& change, RegistryChanges& undo) const;
    void DropKey(const std::string& path, RegistryChanges& undo) const;
    void Remember(const std::string& path, RegistryChanges& below) const;

    RegistryPlace place_;
    HKEY hive_;
    std::chrono::milliseconds lockLimit_;
};
