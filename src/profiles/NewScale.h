// Which class serves which type of scale.
#pragma once

#include "profiles/CGenericScale.h"

#include <memory>

class Registry;

// An empty profile for an index of the scale type list: 0 single-cable, any other dual-cable. The registry outlives it.
[[nodiscard]] std::shared_ptr<CGenericScale> NewScale(Registry& registry, int scaleTypeIndex);
