// The wizard's step that makes a scanner work with the driver.
#pragma once

#include "programming/ProgrammingSession.h"
#include "programming/SerlinkFactory.h"

class CGenericScanner;
class QWidget;

// Programs the scanner of the profile over its serial port, in a window of its own that is gone when this returns. A
// scanner without a port is configured with bar codes: its user is told so, which succeeds. owner is the window that
// both belong to. Raises no error.
[[nodiscard]] ProgrammingOutcome ConfigureScanner(const CGenericScanner& scanner, const SerlinkFactory& makeSerlink,
                                                  QWidget* owner);
