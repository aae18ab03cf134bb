#include "platform/registry/Hives.h"
#include "platform/registry/RegistryNames.h"

#include <algorithm>

namespace {

class HiveTree final : public RegistryTree {
public:
    explicit HiveTree(Hives hives) : hives_(std::move(hives)), sessions_(hives_) {}

    [[nodiscard]] bool HasKey(RegistryRoot root, std::string_view path) override {
        return Find(root, path).has_value();
    }
    [[nodiscard]] std::vector<std::string> SubKeys(RegistryRoot root, std::string_view path) override;
    [[nodiscard]] std::vector<RegistryValue> Values(RegistryRoot root, std::string_view path) override;
    [[nodiscard]] std::optional<RegistryValue> Value(RegistryRoot root, std::string_view path,
                                                     std::string_view name) override;
    void CreateKey(RegistryRoot root, std::string_view path) override { Make(root, path); }
    void SetValue(RegistryRoot root, std::string_view path, const RegistryValue& value) override;
    bool DeleteValue(RegistryRoot root, std::string_view path, std::string_view name) override;
    bool DeleteKey(RegistryRoot root, std::string_view path) override;
    void Commit() override { sessions_.Commit(); }

private:
    std::optional<KeyId> Find(RegistryRoot root, std::string_view path) {
        HiveSession& session = sessions_.Reading(root);
        return hives_.Of(root).Attempt(RegistryErrorNumber::OpenKey, [&] { return session.FindKey(path); });
    }

    KeyId Make(RegistryRoot root, std::string_view path) {
        HiveSession& session = sessions_.Writing(root, RegistryErrorNumber::CreateKey);
        return hives_.Of(root).Attempt(RegistryErrorNumber::CreateKey, [&] { return session.MakeKey(path); });
    }

    std::shared_ptr<const StoredValues> Stored(RegistryRoot root, std::string_view path) {
        const auto key = Find(root, path);
        if (!key)
            return std::make_shared<StoredValues>();
        return hives_.Of(root).Attempt(RegistryErrorNumber::ReadKey,
                                       [&] { return sessions_.Reading(root).Values(*key); });
    }

    Hives hives_;
    HiveSessions sessions_;
};

std::vector<std::string> HiveTree::SubKeys(RegistryRoot root, std::string_view path) {
    const auto key = Find(root, path);
    if (!key)
        return {};
    return hives_.Of(root).Attempt(RegistryErrorNumber::ReadKey,
                                   [&] { return *sessions_.Reading(root).SubKeys(*key); });
}

std::vector<RegistryValue> HiveTree::Values(RegistryRoot root, std::string_view path) {
    const auto stored = Stored(root, path);
    std::vector<RegistryValue> values;
    values.reserve(stored->size());
    for (const StoredValue& value : *stored)
        values.push_back(value.value);
    return values;
}

std::optional<RegistryValue> HiveTree::Value(RegistryRoot root, std::string_view path, std::string_view name) {
    CheckValueName(name, RegistryErrorNumber::ReadKey);
    const auto stored = Stored(root, path);
    const auto found = std::ranges::find(*stored, FoldedName(name), &StoredValue::folded);
    return found == stored->end() ? std::nullopt : std::optional(found->value);
}

void HiveTree::SetValue(RegistryRoot root, std::string_view path, const RegistryValue& value) {
    const KeyId key = Make(root, path);
    hives_.Of(root).Attempt(RegistryErrorNumber::WriteValue,
                            [&] { sessions_.Writing(root, RegistryErrorNumber::WriteValue).PutValue(key, value); });
}

bool HiveTree::DeleteValue(RegistryRoot root, std::string_view path, std::string_view name) {
    HiveSession& session = sessions_.Writing(root, RegistryErrorNumber::WriteValue);
    const auto key = Find(root, path);
    return key &&
           hives_.Of(root).Attempt(RegistryErrorNumber::WriteValue, [&] { return session.DropValue(*key, name); });
}

bool HiveTree::DeleteKey(RegistryRoot root, std::string_view path) {
    if (PathNames(path).empty())
        throw RegistryError(RegistryErrorNumber::DeleteKey, "A whole hive cannot be deleted. Delete keys in it.");
    HiveSession& session = sessions_.Writing(root, RegistryErrorNumber::DeleteKey);
    const auto key = Find(root, path);
    if (key)
        hives_.Of(root).Attempt(RegistryErrorNumber::DeleteKey, [&] { session.DropKey(*key); });
    return key.has_value();
}

} // namespace

std::unique_ptr<RegistryTree> MakeTree(Hives hives) {
    return std::make_unique<HiveTree>(std::move(hives));
}
