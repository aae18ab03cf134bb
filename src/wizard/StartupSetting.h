// Whether the wizard stays away when the program starts; kept per user.
#pragma once

class Registry;

// False where nothing is stored. Errors: RegistryError; NumberedError for a stored text that is no number.
[[nodiscard]] bool HidesWizardAtStartup(Registry& registry);

// Errors: RegistryError.
void HideWizardAtStartup(Registry& registry, bool hide);
