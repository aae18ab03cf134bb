#include "support_opos/InstalledControls.h"

class InstalledControls::Private {};

InstalledControls::InstalledControls(Registry& /*registry*/, EventDispatcher& /*dispatcher*/) {}

InstalledControls::~InstalledControls() = default;
