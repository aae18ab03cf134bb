// The program's own settings, per user, and the driver-wide logging level, per machine.
#pragma once

#include <cstdint>
#include <string>

class Registry;

// Every function reads or writes the registry at once. Missing values are no errors. Errors: RegistryError;
// NumberedError TypeMismatch or Overflow for a stored text that is no such number.
class Settings {
public:
    // The registry outlives the settings.
    explicit Settings(Registry& registry) : registry_(registry) {}

    // Of the main window's frame, in the screen's logical pixels; 0 where nothing is stored.
    struct Position {
        float left = 0;
        float top = 0;
    };
    [[nodiscard]] Position WindowPosition() const;
    // The index of the view last shown; 0 where nothing is stored.
    [[nodiscard]] std::int16_t ListBar() const;
    void SaveWindow(const Position& position, int listBar) const;

    // Whether the configuration wizard opens at start.
    [[nodiscard]] bool OpensWizard() const;

    // The level as stored, -1 to 4 as decimal text; empty where nothing is stored.
    [[nodiscard]] std::string LogVerbosity() const;
    void SaveLogVerbosity(int level) const;

private:
    [[nodiscard]] std::string Read(const char* valueName) const;

    Registry& registry_;
};
