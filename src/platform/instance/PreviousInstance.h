// Whether the program runs already, and how its running instance is asked to come forward.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

class PreviousInstance {
public:
    PreviousInstance();
    ~PreviousInstance();
    PreviousInstance(const PreviousInstance&) = delete;
    PreviousInstance& operator=(const PreviousInstance&) = delete;

    // Whether another instance of this user runs. The first answer holds for the life of the object, for which this
    // instance then counts as the running one.
    [[nodiscard]] bool IsRunning();
    // Asks the running instance, whose application title is this, to restore its window and to come to the foreground.
    // False where none is found within two seconds, or where nobody answers within two more.
    [[nodiscard]] bool BringForward(const std::string& title);
    // From now on a later instance finds this one, which has that application title: it brings the main window (the
    // system's number of it) forward itself, or has comeForward called. For the first instance only, once.
    void ListenForLater(const std::string& title, std::uintptr_t mainWindow, std::function<void()> comeForward);

private:
    class Private;
    std::unique_ptr<Private> private_;
};
