#include "app/modPrevInstance.h"

#include "platform/instance/PreviousInstance.h"

bool YieldToPreviousInstance(PreviousInstance& previous) {
    return previous.IsRunning() && previous.BringForward();
}
