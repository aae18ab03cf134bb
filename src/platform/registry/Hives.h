// The two hives of a registry.
#pragma once

#include "platform/registry/Hive.h"

#include <array>
#include <memory>
#include <utility>

inline constexpr std::size_t HiveCount = 2;

class Hives {
public:
    Hives(std::unique_ptr<Hive> machine, std::unique_ptr<Hive> user) : hives_{std::move(machine), std::move(user)} {}

    [[nodiscard]] Hive& Of(RegistryRoot root) { return *hives_.at(static_cast<std::size_t>(root)); }

private:
    std::array<std::unique_ptr<Hive>, HiveCount> hives_;
};

// The sessions that one sequence of operations has open, at most one per hive: a reading one from its first operation
// on, a writing one instead of it from the first write on.
class HiveSessions {
public:
    explicit HiveSessions(Hives& hives) : hives_(hives) {}

    // Errors: RegistryError OpenKey.
    [[nodiscard]] HiveSession& Reading(RegistryRoot root) {
        auto& session = Session(root);
        if (!session)
            session = hives_.Of(root).Read();
        return *session;
    }

    // Errors: RegistryError with the number given.
    [[nodiscard]] HiveSession& Writing(RegistryRoot root, RegistryErrorNumber number) {
        auto& session = Session(root);
        if (!session || !session->MayWrite())
            session = hives_.Of(root).Write(number);
        return *session;
    }

    [[nodiscard]] bool IsWriting(RegistryRoot root) {
        const auto& session = Session(root);
        return session && session->MayWrite();
    }

    // Errors: RegistryError CloseKey; what this hive's session wrote is gone then.
    void Commit() {
        for (const RegistryRoot root : {RegistryRoot::LocalMachine, RegistryRoot::CurrentUser}) {
            auto& session = Session(root);
            if (session && session->MayWrite()) {
                hives_.Of(root).Attempt(RegistryErrorNumber::CloseKey, [&] { session->Commit(); });
                hives_.Of(root).Changed();
            }
            session.reset();
        }
    }

private:
    std::shared_ptr<HiveSession>& Session(RegistryRoot root) { return sessions_.at(static_cast<std::size_t>(root)); }

    Hives& hives_;
    std::array<std::shared_ptr<HiveSession>, HiveCount> sessions_;
};

// Registries and trees over two hives.
[[nodiscard]] std::unique_ptr<Registry> MakeRegistry(Hives hives);
[[nodiscard]] std::unique_ptr<RegistryTree> MakeTree(Hives hives);
