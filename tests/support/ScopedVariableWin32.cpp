#include "support/ScopedVariable.h"

void ScopedVariable::Set(const std::string& name, const std::optional<std::string>& value) {
    _putenv_s(name.c_str(), value.value_or("").c_str()); // an empty value removes it
}
