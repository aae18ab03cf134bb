// Whether the program runs already, and how its running instance is asked to come forward.
#pragma once

#include <functional>
#include <memory>

class PreviousInstance {
public:
    PreviousInstance();
    ~PreviousInstance();
    PreviousInstance(const PreviousInstance&) = delete;
    PreviousInstance& operator=(const PreviousInstance&) = delete;

    // Whether another instance of this user runs. The first answer holds for the life of the object, for which this
    // instance then counts as the running one.
    [[nodiscard]] bool IsRunning();
    // Asks the running instance to restore its window and to come to the foreground. False where nobody answers within
    // two seconds.
    [[nodiscard]] bool BringForward();
    // Calls comeForward whenever a later instance asks for it; for the first instance only.
    void ListenForLater(std::function<void()> comeForward);

private:
    class Private;
    std::unique_ptr<Private> private_;
};
