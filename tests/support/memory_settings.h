// Settings over a store in memory, empty at first.
// SPDX-License-Identifier: MIT
#pragma once

#include "document/settings.h"
#include "platform/registry_access.h"
#include "platform/registry_store.h"

namespace kelu {

struct MemoryRegistry {
    MemoryRegistryStore store;
    clsRegistryAccess registry{store};
};

class MemorySettings : private MemoryRegistry, public Settings {
 public:
    MemorySettings() : Settings(registry) {}
    using MemoryRegistry::registry;
};

}  // namespace kelu
