#include "profiles/ModelCatalogue.h"

#include <algorithm>

namespace {

// A model that is in no list any more; serial profiles of the older generation still name it.
constexpr CatalogueEntry RetiredModel = {"Trek 3/4/5", 0, {2, 2}, {"Trek-3", "Trek-4", "Trek-5"}};

// The first model, retired ones last, that suits; null where none does.
template<typename Predicate>
const CatalogueEntry* FindModel(Predicate suits) {
    const auto* const row = std::ranges::find_if(ModelCatalogue, suits);
    if (row != ModelCatalogue.end())
        return row;
    return suits(RetiredModel) ? &RetiredModel : nullptr;
}

const CatalogueEntry* ModelOfLabel(std::string_view label) {
    return FindModel([label](const CatalogueEntry& model) { return model.label == label; });
}

} // namespace

std::string_view ModelCodeOfLabel(std::string_view label) {
    const CatalogueEntry* const model = ModelOfLabel(label);
    return model == nullptr ? std::string_view{} : model->codes.front();
}

std::string_view ModelLabelOfCode(std::string_view code) {
    if (code.empty())
        return {};
    const CatalogueEntry* const model =
        FindModel([code](const CatalogueEntry& row) { return std::ranges::find(row.codes, code) != row.codes.end(); });
    return model == nullptr ? std::string_view{} : model->label;
}

ModelClass ClassOfModel(std::string_view label) {
    const CatalogueEntry* const model = ModelOfLabel(label);
    return model == nullptr ? ModelClass{0, 0} : model->classes;
}

bool IsScaleCapable(std::string_view label) {
    const CatalogueEntry* const model = ModelOfLabel(label);
    return model != nullptr && model->scale == ScaleCapability::BuiltIn;
}

std::int16_t ScannerTypeOf(int interfaceIndex, std::string_view modelLabel) {
    if (interfaceIndex == 0)
        return IsScaleCapable(modelLabel) ? 0 : 1;
    return interfaceIndex == 1 ? 2 : 3;
}
