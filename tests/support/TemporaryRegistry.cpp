#include "support/TemporaryRegistry.h"

void TemporaryRegistry::Put(const std::string& path, const std::string& name, const std::string& text,
                            RegistryRoot root) {
    const auto tree = Tree();
    tree->SetValue(root, path, {name, RegistryType::String, text});
    tree->Commit();
}

std::string TemporaryRegistry::Text(const std::string& path, const std::string& name, RegistryRoot root) const {
    const auto other = OtherProgram();
    const auto store = other->CreateStore();
    store->CreateMissing(false);
    store->RootKey(root);
    store->KeyPath(path);
    return store->ReadValue(RegistryValueType::String, name);
}

std::vector<RegistryValue> TemporaryRegistry::Values(const std::string& path, RegistryRoot root) const {
    return Tree()->Values(root, path);
}

std::vector<std::string> TemporaryRegistry::SubKeys(const std::string& path, RegistryRoot root) const {
    return Tree()->SubKeys(root, path);
}

bool TemporaryRegistry::HasKey(const std::string& path, RegistryRoot root) const {
    return Tree()->HasKey(root, path);
}
