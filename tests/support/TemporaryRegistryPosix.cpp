#include "platform/registry/RegistrySqlite.h"
#include "support/TemporaryDirectory.h"
#include "support/TemporaryRegistry.h"

class TemporaryRegistry::Place {
public:
    [[nodiscard]] const HiveFiles& Files() const { return files_; }

private:
    TemporaryDirectory directory_;
    HiveFiles files_{directory_.Path() / "machine.db", directory_.Path() / "user.db"};
};

TemporaryRegistry::TemporaryRegistry()
    : place_(std::make_unique<Place>()), registry_(OpenSqliteRegistry(place_->Files())) {}

TemporaryRegistry::~TemporaryRegistry() = default;

const HiveFiles& TemporaryRegistry::Files() const {
    return place_->Files();
}

std::unique_ptr<RegistryTree> TemporaryRegistry::Tree() const {
    return OpenSqliteTree(Files());
}

std::unique_ptr<Registry> TemporaryRegistry::OtherProgram() const {
    return OpenSqliteRegistry(Files());
}

std::vector<std::string> TemporaryRegistry::Environment() const {
    return {"RAVLIN_MACHINE_HIVE=" + Files().machine.string(), "RAVLIN_USER_HIVE=" + Files().user.string()};
}
