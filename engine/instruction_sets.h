// The vector instruction sets that the engine was built for and that this machine has.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace kelu::engine {

/// Names, best first, for example {"AVX2", "SSE4", "EMU128"}; the last is plain C++.
std::vector<std::string> InstructionSets();

/// For tests: from now on effects use the named set; an empty name brings back the best one. Not while an effect runs.
void ForceInstructionSet(const std::string& name);

}  // namespace kelu::engine
