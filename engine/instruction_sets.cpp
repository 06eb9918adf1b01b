// Names and choice of the instruction sets.
// SPDX-License-Identifier: MIT
#include "engine/instruction_sets.h"

#include <hwy/highway.h>
#include <hwy/targets.h>

namespace kelu::engine {

std::vector<std::string> InstructionSets() {
    std::vector<std::string> names;
    for (const std::int64_t target : hwy::SupportedAndGeneratedTargets()) names.emplace_back(hwy::TargetName(target));
    return names;
}

void ForceInstructionSet(const std::string& name) {
    hwy::SetSupportedTargetsForTest(0);
    for (const std::int64_t target : hwy::SupportedAndGeneratedTargets())
        if (name == hwy::TargetName(target)) hwy::SetSupportedTargetsForTest(target);
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
}

}  // namespace kelu::engine
