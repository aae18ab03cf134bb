#include "profiles/NewScale.h"

#include "profiles/CAveryScale.h"
#include "profiles/CScale2.h"

std::shared_ptr<CGenericScale> NewScale(Registry& registry, int scaleTypeIndex) {
    if (scaleTypeIndex == 0)
        return std::make_shared<CScale2>(registry);
    return std::make_shared<CAveryScale>(registry);
}
