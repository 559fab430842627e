#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "test_store.h"

namespace harness {

/// What breaks the shape of the store, but for what users may do: a value of the kind field keeps
/// no field where its title was typed and names none.
[[nodiscard]] std::vector<std::string> shape_faults(const std::string& connect_string);

/// Has a random user work on a store of its own, the sample, and compares rows and shown trees
/// before each turn.
void walk_and_look(std::uint64_t seed, int turns);

/// What the test program does as a process of its own: with "--walk TURNS SEED" one looking walk
/// after the other, with "--walk TURNS SEED CONNECT_STRING" a walk over that store, without
/// looking.
int walk_command(const std::vector<std::string>& arguments);

}  // namespace harness
