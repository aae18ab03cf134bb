// The pages of the wizard and the ways between them.
#pragma once

namespace WizardPage {
inline constexpr int Welcome = 0;
inline constexpr int SelectScanner = 1;
inline constexpr int ScaleType = 2;
inline constexpr int Options = 3;
inline constexpr int Configuration = 4;
inline constexpr int TestScanner = 5;
inline constexpr int TestScale = 6;
inline constexpr int Finished = 7;
} // namespace WizardPage

// Indexes of the list of scale types.
namespace WizardScaleType {
inline constexpr int None = 0;
inline constexpr int SingleCable = 1;
inline constexpr int DualCable = 2;
} // namespace WizardScaleType

// What the user chose that pages are skipped by.
struct WizardPath {
    bool scaleCapable; // a scale can be built into the model
    int scaleType;
};

[[nodiscard]] constexpr int PageAfter(int page, const WizardPath& path) {
    const bool skips = (page == WizardPage::SelectScanner && !path.scaleCapable) ||
                       (page == WizardPage::TestScanner && path.scaleType == WizardScaleType::None);
    return page + (skips ? 2 : 1);
}

// From the scanner's test the way back leads to the options: the configuration is run by going forward only.
[[nodiscard]] constexpr int PageBefore(int page, const WizardPath& path) {
    const bool skips = (page == WizardPage::Options && !path.scaleCapable) || page == WizardPage::TestScanner ||
                       (page == WizardPage::Finished && path.scaleType == WizardScaleType::None);
    return page - (skips ? 2 : 1);
}
